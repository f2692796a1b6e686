#pragma once

#include <span>
#include <string>
#include <vector>

namespace quillmeter::testing {

/// Which of the calls that a program linked with `FailingCalls.cpp` makes of the system fails, and how.
/// Counted are the calls that reading a project and writing an output are made of, by whoever makes them in
/// this process, libraries among them; not those on standard error.
struct FailingCall {
  long number = -1;    ///< how many calls come before it; negative: none fails
  int error = 0;       ///< its errno
  bool stays = false;  ///< what was asked for once and failed so fails so ever after
};

/// From now on.
void failCall(const FailingCall& failing);

/// The calls since then.
[[nodiscard]] long callsMade();

/// Whether one has failed.
[[nodiscard]] bool hasCallFailed();

/// The kinds of the first calls since then, as indices for `errorsOfCall`.
[[nodiscard]] std::span<const unsigned char> callsNoted();

/// What a call of a kind may fail with.
[[nodiscard]] std::span<const int> errorsOfCall(unsigned char kind);

}  // namespace quillmeter::testing
