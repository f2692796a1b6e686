#pragma once

#include <cerrno>
#include <concepts>

namespace quillmeter {

/// Of a system call, which gives a negative number, and errno, when it fails.
[[nodiscard]] bool wasInterrupted(std::signed_integral auto result) {
  return result < 0 && errno == EINTR;
}

/// Makes a call again for as long as signals interrupt it, which `wasInterrupted` says of what it gives.
template <class Call>
auto uninterrupted(const Call& call) {
  auto result = call();
  while (wasInterrupted(result))
    result = call();
  return result;
}

}  // namespace quillmeter
