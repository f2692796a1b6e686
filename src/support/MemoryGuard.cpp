#include "support/MemoryGuard.h"

#include <sys/mman.h>
#include <unicode/uclean.h>

#include <cstdlib>
#include <new>

namespace quillmeter {
namespace {

using End = void (*)();

constinit thread_local End endOfThisThread = nullptr;

void* orEnd(void* memory) {
  const auto end = endOfThisThread != nullptr ? endOfThisThread : std::get_new_handler();
  if (memory == nullptr && end != nullptr) end();
  return memory;
}

// The Unicode library never asks for nothing.
void* allocate(const void* /*context*/, std::size_t size) {
  return orEnd(std::malloc(size));
}

void* reallocate(const void* /*context*/, void* memory, std::size_t size) {
  return orEnd(std::realloc(memory, size));
}

void release(const void* /*context*/, void* memory) {
  std::free(memory);
}

void guardUnicodeLibrary() {
  UErrorCode status = U_ZERO_ERROR;
  u_setMemoryFunctions(nullptr, allocate, reallocate, release, &status);
}

}  // namespace

void endWhenMemoryRunsOut(void (*end)()) {
  std::set_new_handler(end);
  guardUnicodeLibrary();
}

void endWhenUnicodeLibraryLacksMemory(void (*end)()) {
  endOfThisThread = end;
  guardUnicodeLibrary();
}

void* memoryOrEnd(std::size_t size) {
  void* const memory = std::malloc(size);
  const auto end = memory == nullptr ? std::get_new_handler() : nullptr;
  if (end != nullptr) end();
  return memory;
}

bool isThereRoomFor(std::size_t size) {
  void* const room = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return room != MAP_FAILED && ::munmap(room, size) == 0;
}

}  // namespace quillmeter
