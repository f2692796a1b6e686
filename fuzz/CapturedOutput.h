#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <functional>
#include <optional>
#include <string>

#include "Require.h"
#include "cli/Output.h"

namespace quillmeter::fuzzing {

/// What `write` writes to standard output, which is a file in memory from the first call on.
inline std::string captured(const std::function<void(Output&)>& write) {
  static const bool isPrepared = [] {
    const int memory = ::memfd_create("output", MFD_CLOEXEC);
    return memory >= 0 && ::dup2(memory, STDOUT_FILENO) == STDOUT_FILENO && ::close(memory) == 0;
  }();
  require(isPrepared && ::ftruncate(STDOUT_FILENO, 0) == 0 && ::lseek(STDOUT_FILENO, 0, SEEK_SET) == 0);
  Output output(std::nullopt);
  write(output);
  require(!output.finish());
  std::string text(static_cast<std::size_t>(::lseek(STDOUT_FILENO, 0, SEEK_CUR)), '\0');
  require(::pread(STDOUT_FILENO, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()));
  return text;
}

}  // namespace quillmeter::fuzzing
