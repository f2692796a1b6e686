#include "cli/Limits.h"

#include <CLI/CLI.hpp>

#include "cli/Measurement.h"
#include "support/ExitStatus.h"

namespace quillmeter {

void addLimitOptions(CLI::App& command, LimitOptions& options) {
  command
      .add_option("--fail-if", options.texts, "Exit with status 1 when the numbers pass LIMIT (see below)")
      ->type_name("LIMIT")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->check([](const std::string& text) { return readLimit(text).error; });
}

std::vector<Limit> limitsOf(const LimitOptions& options) {
  std::vector<Limit> limits;
  for (const std::string& text : options.texts)
    limits.push_back(readLimit(text).limit.value());
  return limits;
}

int checkLimits(const std::vector<Limit>& limits, const Differences& differences) {
  int status = kSuccess;
  for (const Limit& limit : limits) {
    for (const std::string& line : passed(limit, differences)) {
      complain("limit " + limit.text + " passed: " + line);
      status = kFindings;
    }
  }
  return status;
}

}  // namespace quillmeter
