#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "analysis/ProjectRules.h"

namespace quillmeter {

/// What the command line asks for.
struct CommandLine {
  std::optional<std::string> project;         ///< absolute path in bytes, without a trailing "/"
  std::optional<ProjectRules> rules;          ///< in place of the remembered ones
  std::optional<std::string> output;          ///< to be written to the terminal instead of running
  std::optional<std::string> error;           ///< what is wrong with the arguments
  std::vector<std::string> toolkitArguments;  ///< the toolkit's own options with their values, as they stand
};

/// Reads the arguments behind the program's name. A relative path is taken from the current folder; the
/// argument "--" ends the options, so that a path may begin with "-". The toolkit's options (which display to
/// use, say) may stand anywhere before it; they are known here by name alone, so that help and wrong usage
/// are found without the toolkit and its display.
[[nodiscard]] CommandLine readCommandLine(std::span<const char* const> arguments);

}  // namespace quillmeter
