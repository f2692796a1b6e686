#pragma once

#include <cerrno>

namespace quillmeter {

/// Makes a system call again for as long as signals interrupt it. The call gives a negative number, and
/// errno, when it fails.
template <class Call>
auto uninterrupted(const Call& call) {
  auto result = call();
  while (result < 0 && errno == EINTR)
    result = call();
  return result;
}

}  // namespace quillmeter
