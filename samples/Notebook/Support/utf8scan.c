/*
 * utf8scan.c
 *
 * Walks through UTF-8 text without copying it. Broken sequences give
 * U+FFFD once for each byte, so that a scan always ends.
 *
 * This file is edited on Windows as well and keeps its line ends.
 */
#include "utf8scan.h"

#include <string.h>

/* How many bytes follow a first byte; -1 for a byte that starts nothing.
 */
static int following_bytes(unsigned char first)
{
	if (first < 0x80)
		return 0;
	if (first >= 0xC2 && first <= 0xDF)
		return 1;	// é, ß, Ж
	if (first >= 0xE0 && first <= 0xEF)
		return 2;	// €, 漢
	if (first >= 0xF0 && first <= 0xF4)
		return 3;	// 📓
	return -1;
}

// The smallest character that may be written with so many following bytes.
static const uint32_t smallest[4] = { 0x0, 0x80, 0x800, 0x10000 };

static int is_surrogate(uint32_t character)
{
	return character >= 0xD800 && character <= 0xDFFF;
}

void utf8scan_begin(utf8scan_t *scan, const char *text, size_t length)
{
	scan->next = (const unsigned char *)text;
	scan->end = scan->next + length;
}

// Gives the next character and returns 1, or returns 0 at the end.
int utf8scan_next(utf8scan_t *scan, uint32_t *character)
{
	if (scan->next == scan->end)
		return 0;

	const unsigned char first = *scan->next++;
	const int count = following_bytes(first);

	if (count == 0) {
		*character = first;
		return 1;
	}

	*character = UTF8SCAN_INVALID;
	if (count < 0 || scan->end - scan->next < count)
		return 1;

	uint32_t value = first & (0x3Fu >> count);
	for (int i = 0; i < count; i++) {
		const unsigned char byte = scan->next[i];
		if ((byte & 0xC0) != 0x80)
			return 1;
		value = value << 6 | (byte & 0x3Fu);
	}

	if (value < smallest[count] || value > 0x10FFFF || is_surrogate(value))
		return 1;

	scan->next += count;
	*character = value;
	return 1;
}

size_t utf8scan_count(const char *text, size_t length)
{
	utf8scan_t scan;
	uint32_t character;
	size_t count = 0;

	utf8scan_begin(&scan, text, length);
	while (utf8scan_next(&scan, &character))
		count++;
	return count;
}

// Letters and digits of ASCII; everything above is taken for a letter.
int utf8scan_is_word(uint32_t character)
{
	if (character >= 0x80)
		return character != UTF8SCAN_INVALID;
	if (character >= '0' && character <= '9')
		return 1;
	character |= 0x20;
	return character >= 'a' && character <= 'z';
}
