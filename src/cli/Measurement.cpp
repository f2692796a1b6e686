#include "cli/Measurement.h"

#include <CLI/CLI.hpp>
#include <cstdio>

#include "analysis/ProjectChooser.h"
#include "cli/ExitStatus.h"
#include "cli/Output.h"
#include "cli/ProgressBar.h"
#include "files/FileSystem.h"
#include "support/Text.h"

namespace quillmeter {

void addReadOptions(CLI::App& command, ReadOptions& options) {
  const auto mistakeIn = [](const std::string& path) {
    return path.empty() ? std::string("the project's path is empty") : std::string();
  };
  command.add_option("PROJECT", options.project, "A folder that holds an .xcodeproj bundle, or the bundle")
      ->required()
      ->check(mistakeIn);
  addReadingFlags(command, options);
}

void addReadingFlags(CLI::App& command, ReadOptions& options) {
  command.add_flag("--quiet", options.quiet, "Show no progress");
  command.add_flag("--verbose", options.verbose, "Say on standard error what is being read");
}

std::unique_ptr<ParseProject> readProject(const ReadOptions& options) {
  auto project = std::make_unique<ParseProject>();
  if (options.verbose) {
    project->setLogSink([](std::string_view line) { std::fprintf(stderr, "%s\n", onOneLine(line).c_str()); });
  }
  ProgressBar progress(!options.quiet && !options.verbose);
  project->parseFileAtPathAndDelegate(chosenProject(absoluteFolder(options.project)), &progress);
  project->setDelegate(nullptr);
  if (!project->files().empty()) return project;

  if (!FileSystem::real().status(project->initialPath())) {
    complain(project->initialPath() + ": no such file or folder");
  }
  complain(
      "Error processing current folder. Please contact the Support team to assist you with importing this "
      "project.");
  return nullptr;
}

void complain(const std::string& message) {
  std::fprintf(stderr, "quillmeter-cli: %s\n", onOneLine(message).c_str());
}

int statusAfter(Output& output, int status) {
  const auto error = output.finish();
  if (!error) return status;
  complain(*error);
  return kOutputFailed;
}

}  // namespace quillmeter
