#pragma once

#include <optional>
#include <span>
#include <string>

namespace quillmeter {

/// What the command line asks for.
struct CommandLine {
  std::optional<std::string> project;  ///< absolute path in bytes, without a trailing "/"
  std::optional<std::string> output;   ///< to be written to the terminal instead of running
  std::optional<std::string> error;    ///< what is wrong with the arguments
};

/// Reads the arguments behind the program's name. A relative path is taken from the current folder; the
/// argument "--" ends the options, so that a path may begin with "-".
[[nodiscard]] CommandLine readCommandLine(std::span<const char* const> arguments);

}  // namespace quillmeter
