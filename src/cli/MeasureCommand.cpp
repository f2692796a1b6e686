#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "cli/Commands.h"
#include "cli/CompareCommand.h"
#include "cli/Measurement.h"
#include "cli/MeasurementFormats.h"
#include "cli/Output.h"
#include "cli/Suggestions.h"
#include "support/CommandConfinement.h"
#include "support/ExitStatus.h"

namespace quillmeter {
namespace {

struct MeasureOptions {
  ReadOptions read;
  std::optional<std::string> baseline;
  std::optional<Grouping> by;
  ComparisonOptions output;
};

/// What is wrong with the options together; nothing when they make sense.
std::optional<std::string> misuse(const MeasureOptions& options) {
  if (options.baseline && options.output.format == "csv") {
    return "measure: a comparison has the formats table, markdown and json";
  }
  if (options.by && (options.baseline || options.output.format == "csv"))
    return "measure: --by groups the formats table and json, without --baseline";
  if (options.by == Grouping::target && options.read.rules == ProjectRules::classic)
    return "measure: the classic rules know no targets; --by target needs --rules current";
  if (options.baseline) return std::nullopt;
  if (options.output.format == "markdown") return "measure: the format markdown needs --baseline";
  if (options.output.top) return "measure: --top needs --baseline";
  for (const Limit& limit : limitsOf(options.output.limits)) {
    if (limit.needsBaseline()) return "measure: the limit " + limit.text + " needs --baseline";
  }
  return std::nullopt;
}

int showMeasurement(const MeasuredProject& project, std::optional<Grouping> by,
                    const ComparisonOptions& options) {
  Output output(options.outputPath);
  if (options.format == "json") {
    writeJson(project, by, output);
  } else if (options.format == "csv") {
    writeCsv(project, output);
  } else {
    writeTable(project, by, output);
  }
  const int written = statusAfter(output, kSuccess);
  if (options.limits.texts.empty()) return written;
  const Snapshot snapshot = snapshotOf(project);
  const int status = checkLimits(limitsOf(options.limits), differencesBetween(snapshot, snapshot));
  return written == kSuccess ? status : written;
}

int measure(const MeasureOptions& options) {
  if (const auto mistake = misuse(options)) {
    complain(*mistake);
    return kWrongUsage;
  }
  confineToOutputs({options.output.outputPath});
  std::optional<Snapshot> baseline;
  if (options.baseline) {
    baseline = snapshotInFile(*options.baseline);
    if (!baseline) return kNothingMeasured;
  }
  const auto project = readProject(options.read);
  if (!project) return kNothingMeasured;
  tellOfFaults(project->faults());
  if (baseline) return showComparison(*baseline, snapshotOf(*project), options.output);
  return showMeasurement(*project, options.by, options.output);
}

}  // namespace

void addMeasureCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<MeasureOptions>();
  CLI::App* command = app.add_subcommand("measure", "Measure a project and show its totals or every file");
  command
      ->add_option("--format", options->output.format,
                   "table: totals to read; json, csv: every file. With --baseline table, markdown or json")
      ->check(oneOf({"table", "json", "csv", "markdown"}))
      ->capture_default_str();
  command->add_option("-o,--output", options->output.outputPath, "Write to FILE instead of standard output")
      ->type_name("FILE");
  command
      ->add_option_function<std::string>(
          "--by",
          [options](const std::string& by) {
            options->by = by == "target"   ? Grouping::target
                          : by == "folder" ? Grouping::folder
                                           : Grouping::kind;
          },
          "Group the totals, too: target (with --rules current), folder (the first one below the project's) "
          "or "
          "kind")
      ->check(oneOf({"target", "folder", "kind"}));
  command
      ->add_option("--baseline", options->baseline,
                   "Show what has changed since FILE, an earlier output of --format json")
      ->type_name("FILE");
  addTopOption(*command, options->output);
  addLimitOptions(*command, options->output.limits);
  addReadOptions(*command, options->read);
  command->footer(std::string(kLimitHelp) +
                  "\nDifferences need --baseline.\n\n"
                  "Examples:\n"
                  "  quillmeter-cli measure ~/Projects/Notebook\n"
                  "  quillmeter-cli measure --format json -o numbers.json Notebook.xcodeproj\n"
                  "  quillmeter-cli measure --format csv . > numbers.csv\n"
                  "  quillmeter-cli measure --baseline numbers.json --fail-if 'noLinesTotal>+5%' .\n"
                  "  quillmeter-cli measure --fail-if 'file:noLinesTotal>800' .");
  command->callback([options, &status] { status = measure(*options); });
}

}  // namespace quillmeter
