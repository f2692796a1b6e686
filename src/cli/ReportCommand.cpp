#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/Commands.h"
#include "cli/Measurement.h"
#include "cli/Output.h"
#include "page/MeasurementPage.h"
#include "support/CommandConfinement.h"
#include "support/ExitStatus.h"

namespace quillmeter {
namespace {

struct ReportOptions {
  ReadOptions read;
  std::string html;
};

int report(const ReportOptions& options) {
  confineToOutputs({options.html});
  const auto project = readProject(options.read);
  if (!project) return kNothingMeasured;
  tellOfFaults(project->faults());
  Output output(options.html);
  output.write(measurementPage(*project));
  return statusAfter(output, kSuccess);
}

}  // namespace

void addReportCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<ReportOptions>();
  CLI::App* command =
      app.add_subcommand("report", "Make a page of a project's totals, charts and files for a browser");
  command->add_option("--html", options->html, "Write the page to FILE; '-' is standard output")
      ->type_name("FILE")
      ->required();
  addReadOptions(*command, options->read);
  command->footer(
      "The page is one file that loads nothing else: open it, send it or print it.\n\n"
      "Examples:\n"
      "  quillmeter-cli report --html notebook.html ~/Projects/Notebook\n"
      "  quillmeter-cli report --html - . > report.html");
  command->callback([options, &status] { status = report(*options); });
}

}  // namespace quillmeter
