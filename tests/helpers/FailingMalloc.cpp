#include "helpers/FailingMalloc.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <limits>

// How the C library gives memory under names of its own, for programs that stand in front of it as this one
// does.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
}

namespace quillmeter::testing {
namespace {

constinit std::atomic<long> first = std::numeric_limits<long>::max();
constinit std::atomic<long> left = std::numeric_limits<long>::max();
constinit std::atomic<bool> onlyOne = true;
constinit std::atomic<bool> refused = false;

// Neither of them asks for memory itself.
thread_local constinit char thisThread = 0;
constinit std::atomic<const char*> onlyThread = nullptr;

bool isGranted() {
  const char* const only = onlyThread.load(std::memory_order_relaxed);
  if (only != nullptr && only != &thisThread) return true;
  const long number = left.fetch_sub(1, std::memory_order_relaxed);
  if (number > 0 || (number < 0 && onlyOne)) return true;
  refused = true;
  errno = ENOMEM;
  return false;
}

}  // namespace

void refuseMemoryAfter(long granted, Refusal refusal) {
  onlyThread = nullptr;
  onlyOne = refusal == Refusal::one;
  first = granted;
  left = granted;
}

void refuseMemoryOfThisThreadAfter(long granted, Refusal refusal) {
  refuseMemoryAfter(granted, refusal);
  onlyThread = &thisThread;
}

long memoryRequests() {
  return first - left;
}

bool wasMemoryRefused() {
  return refused;
}

}  // namespace quillmeter::testing

extern "C" {

void* malloc(std::size_t size) noexcept {
  return quillmeter::testing::isGranted() ? __libc_malloc(size) : nullptr;
}

void* calloc(std::size_t count, std::size_t size) noexcept {
  return quillmeter::testing::isGranted() ? __libc_calloc(count, size) : nullptr;
}

void* realloc(void* memory, std::size_t size) noexcept {
  return quillmeter::testing::isGranted() ? __libc_realloc(memory, size) : nullptr;
}
}
