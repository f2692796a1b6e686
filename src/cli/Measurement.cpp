#include "cli/Measurement.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "analysis/ProjectChooser.h"
#include "cli/Output.h"
#include "cli/ProgressBar.h"
#include "cli/ReadingReport.h"
#include "cli/Suggestions.h"
#include "files/FileSystem.h"
#include "support/ExitStatus.h"
#include "support/Text.h"
#include "xcode/ProjectReaders.h"

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
  command
      .add_option_function<std::string>(
          "--rules",
          [&options](const std::string& rules) {
            options.rules = rulesNamed(rules).value_or(ProjectRules::classic);
          },
          "classic: the references line by line, as ever; current: the project as today's Xcode reads it, "
          "with "
          "Swift, storyboards, folders and packages")
      ->check(oneOf({"classic", "current"}))
      ->default_str("classic");
  command.add_flag("--quiet", options.quiet, "Show no progress");
  command.add_flag("--verbose", options.verbose, "Say on standard error what is being read");
}

namespace {

/// The project after its read, whatever it has; null when the read failed, of which the user was told.
std::unique_ptr<ProjectReader> projectRead(const ReadOptions& options) {
  auto project = projectReader(options.rules);
  if (options.verbose) {
    project->setLogSink([](std::string_view line) { std::fprintf(stderr, "%s\n", onOneLine(line).c_str()); });
  }
  const std::string folder = absoluteFolder(options.project);
  const std::string bundle = chosenProject(folder);
  tellOfOtherProjects(folder, bundle);
  ProgressBar progress(!options.quiet && !options.verbose);
  try {
    project->parseFileAtPathAndDelegate(bundle, &progress);
  } catch (const TooFewDescriptors& failure) {
    complain(failure.what());
    return nullptr;
  }
  project->setDelegate(nullptr);
  return project;
}

std::unique_ptr<ProjectReader> refused(const ProjectReader& project) {
  const std::string reason = whyNothingIsMeasured(project);
  // What cannot be opened at all is a fault and the reason; it is told once.
  const ReadFaults& faults = project.faults();
  if (faults.count != 1 || !reason.ends_with(": " + reasonFor(faults.firstError))) tellOfFaults(faults);
  complain(reason);
  return nullptr;
}

}  // namespace

std::unique_ptr<ProjectReader> readProject(const ReadOptions& options) {
  auto project = projectRead(options);
  if (!project) return nullptr;
  if (project->files().empty()) static_cast<void>(refused(*project));
  if (const std::string hint = hintAtCurrentRules(*project); !hint.empty()) complain(hint);
  return project->files().empty() ? nullptr : std::move(project);
}

std::unique_ptr<ProjectReader> readProjectForReferences(const ReadOptions& options) {
  auto project = projectRead(options);
  if (!project) return nullptr;
  const ProjectFindings& findings = project->findings();
  const bool hasReferences =
      !findings.missing.empty() || !findings.other.empty() || !project->files().empty();
  return hasReferences ? std::move(project) : refused(*project);
}

std::string reasonFor(DiskError error) {
  if (error.number == EFBIG) return "it is larger than 1 GiB, which no project description is";
  return std::generic_category().message(error.number);
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
