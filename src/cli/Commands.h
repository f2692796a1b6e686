#pragma once

namespace CLI {
class App;
}

/// The commands of the tool, each in a source file of its own. Each function adds its command to `app`; when
/// the user asks for it, parsing the command line runs it and leaves an `ExitStatus` in `status`, which must
/// outlive `app`.
namespace quillmeter {

void addExportCommand(CLI::App& app, int& status);
void addMeasureCommand(CLI::App& app, int& status);
void addCompareCommand(CLI::App& app, int& status);
void addReportCommand(CLI::App& app, int& status);
void addCleanupCommand(CLI::App& app, int& status);
void addMethodsCommand(CLI::App& app, int& status);
void addReferencesCommand(CLI::App& app, int& status);

}  // namespace quillmeter
