#pragma once

#include <string>
#include <vector>

namespace quillmeter {

/// Runs the application that lies beside this tool with `arguments`, on the tool's own standard streams, and
/// waits for its end; should the tool be killed, the application is, too. Gives its exit status. When it is
/// missing, cannot start or does not end by itself, the user is told and the status is that of an output that
/// could not be written.
[[nodiscard]] int runReportProcess(std::vector<std::string> arguments);

}  // namespace quillmeter
