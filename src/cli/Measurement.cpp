#include "cli/Measurement.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "analysis/ProjectChooser.h"
#include "cli/ExitStatus.h"
#include "cli/Output.h"
#include "cli/ProgressBar.h"
#include "files/FileSystem.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

std::string reasonFor(DiskError error) {
  if (error.number == EFBIG) return "it is larger than 1 GiB, which no project description is";
  return std::generic_category().message(error.number);
}

}  // namespace

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
  try {
    project->parseFileAtPathAndDelegate(chosenProject(absoluteFolder(options.project)), &progress);
  } catch (const TooFewDescriptors& failure) {
    complain(failure.what());
    return nullptr;
  }
  project->setDelegate(nullptr);
  if (!project->files().empty()) return project;

  tellOfFaults(project->faults());
  if (!FileSystem::real().status(project->initialPath())) {
    complain(project->initialPath() + ": no such file or folder");
  }
  complain(
      "Error processing current folder. Please contact the Support team to assist you with importing this "
      "project.");
  return nullptr;
}

void tellOfFaults(const ReadFaults& faults) {
  if (faults.count == 0) return;
  const std::string first = faults.firstPath + ": " + reasonFor(faults.firstError);
  if (faults.count == 1) return complain("one file or folder could not be read: " + first);
  complain(std::to_string(faults.count) + " files or folders could not be read, the first of them " + first);
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
