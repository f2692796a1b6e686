#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/Measurement.h"
#include "cli/MeasurementFormats.h"
#include "cli/Output.h"
#include "cli/ToolConfinement.h"

namespace quillmeter {
namespace {

struct MeasureOptions {
  ReadOptions read;
  std::string format = "table";
  std::optional<std::string> outputPath;
};

int measure(const MeasureOptions& options) {
  confineToOutputs({options.outputPath});
  const auto project = readProject(options.read);
  if (!project) return kNothingMeasured;
  Output output(options.outputPath);
  if (options.format == "json") {
    writeJson(*project, output);
  } else if (options.format == "csv") {
    writeCsv(*project, output);
  } else {
    writeTable(*project, output);
  }
  return statusAfter(output, kSuccess);
}

}  // namespace

void addMeasureCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<MeasureOptions>();
  CLI::App* command = app.add_subcommand("measure", "Measure a project and show its totals or every file");
  command->add_option("--format", options->format, "table: totals to read; json, csv: every file")
      ->check(CLI::IsMember({"table", "json", "csv"}))
      ->capture_default_str();
  command->add_option("-o,--output", options->outputPath, "Write to FILE instead of standard output")
      ->type_name("FILE");
  addReadOptions(*command, options->read);
  command->footer(
      "Examples:\n"
      "  quillmeter-cli measure ~/Projects/Notebook\n"
      "  quillmeter-cli measure --format json -o numbers.json Notebook.xcodeproj\n"
      "  quillmeter-cli measure --format csv . > numbers.csv");
  command->callback([options, &status] { status = measure(*options); });
}

}  // namespace quillmeter
