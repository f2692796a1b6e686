/* Walking through UTF-8 text, one character at a time. */
#ifndef NOTEBOOK_UTF8SCAN_H
#define NOTEBOOK_UTF8SCAN_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define UTF8SCAN_INVALID 0xFFFDu

typedef struct
{
	const unsigned char *next;
	const unsigned char *end;
} utf8scan_t;

void utf8scan_begin(utf8scan_t *scan, const char *text, size_t length);
int utf8scan_next(utf8scan_t *scan, uint32_t *character);
size_t utf8scan_count(const char *text, size_t length);
int utf8scan_is_word(uint32_t character);

#ifdef __cplusplus
}
#endif

#endif
