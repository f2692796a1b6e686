/* A disk or share that takes its time: preloaded into a program (LD_PRELOAD), it lets each open and each listing of a
   folder sleep for QUILLMETER_SLOW_DISK microseconds first. A listing that only finds its end does not sleep, since
   nothing has to be fetched for it. */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stdlib.h>
#include <sys/types.h>
#include <time.h>

static void take_time(void) {
  static long microseconds = -1;
  if (microseconds < 0) {
    const char* value = getenv("QUILLMETER_SLOW_DISK");
    microseconds = value != NULL ? atol(value) : 0;
  }
  const struct timespec time = {microseconds / 1000000, microseconds % 1000000 * 1000};
  nanosleep(&time, NULL);
}

/* The mode is there only for what may create a file. */
static mode_t mode_of(int flags, va_list* more) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(*more, mode_t) : 0;
}

static void* next_function(const char* name) { return dlsym(RTLD_NEXT, name); }

int open(const char* path, int flags, ...) {
  static int (*next)(const char*, int, ...);
  if (next == NULL) next = (int (*)(const char*, int, ...))next_function("open");
  va_list more;
  va_start(more, flags);
  const mode_t mode = mode_of(flags, &more);
  va_end(more);
  take_time();
  return next(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
  static int (*next)(int, const char*, int, ...);
  if (next == NULL) next = (int (*)(int, const char*, int, ...))next_function("openat");
  va_list more;
  va_start(more, flags);
  const mode_t mode = mode_of(flags, &more);
  va_end(more);
  take_time();
  return next(folder, path, flags, mode);
}

/* On 64 bits these are the same calls; a program may use either name. */
int open64(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const mode_t mode = mode_of(flags, &more);
  va_end(more);
  return open(path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const mode_t mode = mode_of(flags, &more);
  va_end(more);
  return openat(folder, path, flags, mode);
}

ssize_t getdents64(int folder, void* buffer, size_t size) {
  static ssize_t (*next)(int, void*, size_t);
  if (next == NULL) next = (ssize_t(*)(int, void*, size_t))next_function("getdents64");
  const ssize_t count = next(folder, buffer, size);
  if (count > 0) take_time();
  return count;
}
