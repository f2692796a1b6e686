#include "cli/Tool.h"

#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <new>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "cli/Commands.h"
#include "cli/Measurement.h"
#include "cli/Output.h"
#include "cli/Suggestions.h"
#include "support/Addresses.h"
#include "support/Confinement.h"
#include "support/ExitStatus.h"
#include "support/MemoryGuard.h"

namespace quillmeter {
namespace {

/// What happens when memory runs out, on any thread. Nothing here or after it asks for more. Unwinding could
/// be swallowed on its way: the streams that the help text is put together in take an exception for a short
/// text, and a library function that may not throw would end the process in a crash. An output that is half
/// written is left as an output whose writer was killed: the old one stays.
[[noreturn]] void endForWantOfMemory() {
  static constinit std::atomic_flag told;
  while (told.test_and_set())
    ::pause();  // another thread is at it
  constexpr std::string_view message = "quillmeter-cli: Not enough memory to do this\n";
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, message.data(), message.size());
  ::_exit(kNothingMeasured);
}

/// Writes what was asked for instead of a command, or what is wrong with the arguments.
int answer(const CLI::App& app, const CLI::ParseError& error) {
  std::ostringstream help;
  std::ostringstream mistake;
  if (app.exit(error, help, mistake) != 0) {
    std::fputs(mistake.str().c_str(), stderr);
    return kWrongUsage;
  }
  Output output(std::nullopt);
  output.write(help.str());
  return statusAfter(output, kSuccess);
}

std::string versionText(bool verbose) {
  const std::string version = std::string("quillmeter-cli ") + kVersion;
  // What is told is what happened: this process needs no more than what it is left with.
  return verbose ? version + "\nWhile it reads: " + confinementText(confineThread()) : version;
}

int runCommandLine(int argc, const char* const* argv) {
  int status = kSuccess;
  CLI::App app("Measures software projects described by an Xcode project bundle.", "quillmeter-cli");
  bool verbose = false;
  CLI::Option* const verboseFlag =
      app.add_flag("--verbose", verbose, "With --version: also say what the kernel denies the tool");
  verboseFlag->needs(app.set_version_flag("--version", [&verbose] { return versionText(verbose); }));
  app.require_subcommand(1);
  app.failure_message(wrongUsageMessage);
  app.footer(
      "Run 'quillmeter-cli COMMAND --help' for a command's options and examples.\n"
      "Exit status: 0 success, 1 a check found something, 2 wrong usage, 3 nothing could be measured,\n"
      "4 the output could not be written.");
  addMeasureCommand(app, status);
  addCompareCommand(app, status);
  addCleanupCommand(app, status);
  addExportCommand(app, status);
  addReferencesCommand(app, status);
  addReportCommand(app, status);
  addMethodsCommand(app, status);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return answer(app, error);
  }
  return status;
}

/// Puts something on the places of standard streams that are closed, so that no file opened later comes to be
/// one of them. What is put there can be neither read nor written.
void occupyClosedStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (::fcntl(stream, F_GETFD) >= 0) continue;
    // The lowest number that is free is given, which is this one.
    if (::open("/", O_PATH | O_DIRECTORY) != stream) return;
  }
}

}  // namespace

int runTool(int argc, const char* const* argv) {
  occupyClosedStreams();
  std::signal(SIGPIPE, SIG_IGN);
  endWhenMemoryRunsOut(endForWantOfMemory);
  try {
    return runCommandLine(argc, argv);
  } catch (const std::bad_alloc&) {
    // Of what does not come from operator new: a text that no memory could hold, a library with memory of its
    // own.
    endForWantOfMemory();
  }
}

}  // namespace quillmeter
