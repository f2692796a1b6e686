#pragma once

#include <string>
#include <vector>

#include "compare/Differences.h"
#include "compare/Limit.h"

namespace CLI {
class App;
}

namespace quillmeter {

/// The limits that a command's user sets with --fail-if.
struct LimitOptions {
  std::vector<std::string> texts;
};

/// Adds --fail-if, which may be given any number of times; a limit that makes no sense is wrong usage.
/// `options` must outlive the command.
void addLimitOptions(CLI::App& command, LimitOptions& options);

[[nodiscard]] std::vector<Limit> limitsOf(const LimitOptions& options);

/// Tells the user on standard error which limits were passed by what. Gives `kFindings` when any was, else
/// `kSuccess`.
[[nodiscard]] int checkLimits(const std::vector<Limit>& limits, const Differences& differences);

}  // namespace quillmeter
