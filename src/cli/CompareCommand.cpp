#include "cli/CompareCommand.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <limits>
#include <memory>

#include "cli/Commands.h"
#include "cli/ComparisonFormats.h"
#include "cli/Output.h"
#include "cli/Suggestions.h"
#include "compare/SnapshotReader.h"
#include "files/FileSystem.h"
#include "support/CommandConfinement.h"
#include "support/ExitStatus.h"

namespace quillmeter {
namespace {

constexpr std::size_t kUsualTop = 20;
constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();

std::optional<std::size_t> topOf(const std::string& text) {
  if (text == "all") return kAll;
  std::size_t top = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, top);
  if (text.empty() || error != std::errc() || stop != end) return std::nullopt;
  return top;
}

/// People get what they can read; machines get everything, unless they ask for less.
std::size_t top(const ComparisonOptions& options) {
  if (options.top) return topOf(*options.top).value_or(kAll);
  return options.format == "json" ? kAll : kUsualTop;
}

/// Of a measurement, not a project.
bool isFile(const std::string& path) {
  const auto status = FileSystem::real().status(path);
  return status && status->type != FileStatus::Type::folder;
}

/// A JSON file or a project as the user named it. Absent when it could not be read; the user has been told.
std::optional<Snapshot> snapshotAt(const std::string& path, ReadOptions read) {
  if (isFile(path)) return snapshotInFile(path);
  read.project = path;
  const auto project = readProject(read);
  if (!project) return std::nullopt;
  tellOfFaults(project->faults());
  return snapshotOf(*project);
}

struct CompareOptions {
  ReadOptions read;
  std::string before;
  std::string after;
  ComparisonOptions comparison;
};

/// A project's references lead anywhere, a measurement's file nowhere.
void confine(const CompareOptions& options) {
  const auto& output = options.comparison.outputPath;
  if (isFile(options.before) && isFile(options.after)) {
    confineToInputs({options.before, options.after}, output);
  } else {
    confineToOutputs({output});
  }
}

int compare(const CompareOptions& options) {
  confine(options);
  const auto before = snapshotAt(options.before, options.read);
  if (!before) return kNothingMeasured;
  const auto after = snapshotAt(options.after, options.read);
  if (!after) return kNothingMeasured;
  return showComparison(*before, *after, options.comparison);
}

}  // namespace

void addTopOption(CLI::App& command, ComparisonOptions& options) {
  command
      .add_option("--top", options.top,
                  "List the N files that changed most, or 'all'; else 20, all of them in JSON")
      ->type_name("N")
      ->check([](const std::string& text) {
        return topOf(text) ? "" : "'" + text + "' is neither a number nor 'all'";
      });
}

std::optional<Snapshot> snapshotInFile(const std::string& path) {
  SnapshotReading reading = readSnapshotFile(path);
  if (!reading.snapshot) complain(path + ": " + reading.error);
  return std::move(reading.snapshot);
}

int showComparison(const Snapshot& before, const Snapshot& after, const ComparisonOptions& options) {
  if (before.rules != after.rules) {
    complain("these numbers cannot be compared: the earlier ones are by the " + before.rules +
             " rules, the later ones by the " + after.rules +
             " rules; measure both with --rules current, or both without");
    return kWrongUsage;
  }
  const Differences differences = differencesBetween(before, after);
  const Comparison comparison{before, after, differences, top(options)};
  Output output(options.outputPath);
  if (options.format == "json") {
    writeComparisonJson(comparison, output);
  } else if (options.format == "markdown") {
    writeComparisonMarkdown(comparison, output);
  } else {
    writeComparisonTable(comparison, output);
  }
  const int written = statusAfter(output, kSuccess);
  const int status = checkLimits(limitsOf(options.limits), differences);
  return written == kSuccess ? status : written;
}

void addCompareCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<CompareOptions>();
  CLI::App* command = app.add_subcommand("compare", "Compare two measurements of a project");
  command->add_option("OLD", options->before, "What was: a JSON file of 'measure', or a project")->required();
  command->add_option("NEW", options->after, "What is: a JSON file of 'measure', or a project")->required();
  command
      ->add_option("--format", options->comparison.format,
                   "table: to read; markdown: for a merge request; json: to process further")
      ->check(oneOf({"table", "markdown", "json"}))
      ->capture_default_str();
  command
      ->add_option("-o,--output", options->comparison.outputPath, "Write to FILE instead of standard output")
      ->type_name("FILE");
  addTopOption(*command, options->comparison);
  addLimitOptions(*command, options->comparison.limits);
  addReadingFlags(*command, options->read);
  command->footer(std::string(kLimitHelp) +
                  "\n\n"
                  "Examples:\n"
                  "  quillmeter-cli compare monday.json ~/Projects/Notebook\n"
                  "  quillmeter-cli compare --format markdown --top 5 main.json branch.json\n"
                  "  quillmeter-cli compare --fail-if 'noLinesTotal>+5%' main.json .");
  command->callback([options, &status] { status = compare(*options); });
}

}  // namespace quillmeter
