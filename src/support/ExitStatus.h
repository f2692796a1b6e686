#pragma once

namespace quillmeter {

/// What the tool tells a build server by its exit status. The application says the same of its command line
/// and of a report that it makes for the tool.
enum ExitStatus : int {
  kSuccess = 0,
  kFindings = 1,         ///< a check that the user asked for found something
  kWrongUsage = 2,       ///< options or arguments that make no sense
  kNothingMeasured = 3,  ///< no input could be measured
  kOutputFailed = 4,     ///< the output could not be written; an old output file is untouched
};

}  // namespace quillmeter
