#include <CLI/CLI.hpp>
#include <csignal>
#include <new>

#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/Measurement.h"
#include "cli/Suggestions.h"

/// The terminal's door to the engine. Each command lives in a source file of its own; this only puts them
/// together.
int main(int argc, char** argv) {
  // A reader that goes away (`| head`) is an output that could not be written, not a reason to be killed.
  std::signal(SIGPIPE, SIG_IGN);
  int status = quillmeter::kSuccess;
  CLI::App app("Measures software projects described by an Xcode project bundle.", "quillmeter-cli");
  app.set_version_flag("--version", "quillmeter-cli " QUILLMETER_VERSION);
  app.require_subcommand(1);
  app.failure_message(quillmeter::wrongUsageMessage);
  app.footer(
      "Run 'quillmeter-cli COMMAND --help' for a command's options and examples.\n"
      "Exit status: 0 success, 1 a check found something, 2 wrong usage, 3 nothing could be measured,\n"
      "4 the output could not be written.");
  quillmeter::addMeasureCommand(app, status);
  quillmeter::addCompareCommand(app, status);
  quillmeter::addCleanupCommand(app, status);
  quillmeter::addExportCommand(app, status);
  quillmeter::addReportCommand(app, status);
  quillmeter::addMethodsCommand(app, status);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? quillmeter::kSuccess : quillmeter::kWrongUsage;
  } catch (const std::bad_alloc&) {
    quillmeter::complain("there is not enough memory");
    return quillmeter::kNothingMeasured;
  }
  return status;
}
