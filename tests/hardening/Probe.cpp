#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

// A program with something for each part of the hardening to protect: copies of unknown length, a frame of
// many pages, an index that is not checked, calls through pointers.
namespace {

using Function = int (*)(const char*);

[[gnu::noinline]] int copied(const char* text) {
  std::array<char, 64> buffer{};
  std::memcpy(buffer.data(), text, std::strlen(text));
  return buffer[static_cast<std::size_t>(std::atoi(text)) % buffer.size()];
}

[[gnu::noinline]] int readIntoPages(const char* text) {
  std::array<char, 1 << 16> pages;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  const ssize_t size = ::read(STDIN_FILENO, pages.data(), std::strlen(text) << 12U);
  return size > 0 ? pages[static_cast<std::size_t>(size) - 1] : 0;
}

[[gnu::noinline]] int indexed(const char* text) {
  const std::vector<int> numbers(std::strlen(text));
  return numbers[static_cast<std::size_t>(std::atoi(text))];
}

[[gnu::noinline]] int length(const char* text) {
  return static_cast<int>(std::strlen(text));
}

[[gnu::noinline]] int first(const char* text) {
  return *text;
}

}  // namespace

int main(int argc, char** argv) {
  const volatile std::array<Function, 5> functions{copied, readIntoPages, indexed, length, first};
  return const_cast<const std::array<Function, 5>&>(functions)[static_cast<std::size_t>(argc) % 5](argv[0]);
}
