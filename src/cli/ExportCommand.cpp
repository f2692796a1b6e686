#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "cli/Commands.h"
#include "cli/Measurement.h"
#include "cli/Output.h"
#include "cli/ReportProcess.h"
#include "cli/Suggestions.h"
#include "export/CsvText.h"
#include "support/CommandConfinement.h"
#include "support/ExitStatus.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter {
namespace {

struct ExportOptions {
  ReadOptions read;
  std::optional<std::string> csv;
  std::optional<std::string> pdf;
  std::optional<std::string> kinds;  ///< all of the rules' when absent
};

std::string kindsOf(const ExportOptions& options) {
  return options.kinds.value_or(fileGroupKeys(kindsBy(options.read.rules)));
}

/// Whether two names lead to one file, whichever way they are written.
bool isOneFile(const std::string& first, const std::string& second) {
  const auto whole = [](const std::string& path) {
    std::error_code error;
    const auto resolved = std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error);
    return error ? std::filesystem::path(path) : resolved;
  };
  return first != "-" && second != "-" && whole(first) == whole(second);
}

/// What is wrong with the options together; nothing when they make sense.
std::optional<std::string> misuse(const ExportOptions& options) {
  if (!options.csv && !options.pdf) return "export: name an output with --csv or --pdf";
  if (options.csv == "-" && options.pdf == "-") return "export: only one output can be standard output";
  if (options.csv && options.pdf && isOneFile(*options.csv, *options.pdf)) {
    return "export: --csv and --pdf name the same file";
  }
  const FileKindTable& kinds = kindsBy(options.read.rules);
  if (const auto wrong = wrongFileGroupKey(kindsOf(options), kinds)) {
    return "export: --kinds: " + noneOf(*wrong, CLI::detail::split(fileGroupKeys(kinds), ','));
  }
  return std::nullopt;
}

int exportCsvTo(const std::string& path, const MeasuredProject& project, const FileGroups& groups) {
  Output output(path);
  output.write(csvText(filesToExport(project.files(), groups, project.kinds())));
  return statusAfter(output, kSuccess);
}

int exportFiles(const ExportOptions& options) {
  if (const auto mistake = misuse(options)) {
    complain(*mistake);
    return kWrongUsage;
  }
  // The application writes what it must where it must and confines itself, so it comes from before this
  // process does.
  std::optional<ReportProcess> report;
  if (options.pdf) {
    report.emplace(std::vector<std::string>{"--report", *options.pdf, kindsOf(options),
                                            std::string(rulesName(options.read.rules))});
  }
  confineToOutputs({options.csv});
  const auto project = readProject(options.read);
  if (!project) return kNothingMeasured;
  tellOfFaults(project->faults());
  int status = kSuccess;
  if (options.csv)
    status = exportCsvTo(*options.csv, *project, *fileGroupsNamed(kindsOf(options), project->kinds()));
  if (report) {
    const int reported = report->finishWith(project->initialPath());
    if (status == kSuccess) status = reported;
  }
  return status;
}

}  // namespace

void addExportCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<ExportOptions>();
  CLI::App* command =
      app.add_subcommand("export", "Export a project's files as a CSV table or as a PDF report, or both");
  command->add_option("--csv", options->csv, "Write the table to FILE; '-' is standard output")
      ->type_name("FILE");
  command
      ->add_option(
          "--pdf", options->pdf,
          "Write the report to FILE; '-' is standard output. Needs the application beside this tool, "
          "but no display")
      ->type_name("FILE");
  command
      ->add_option(
          "--kinds", options->kinds,
          "What to export, a list of " + fileGroupKeysInWords(currentKinds()) + "; all of them if not given")
      ->type_name("KINDS");
  addReadOptions(*command, options->read);
  command->footer(
      "Examples:\n"
      "  quillmeter-cli export --csv files.csv ~/Projects/Notebook\n"
      "  quillmeter-cli export --pdf report.pdf --kinds c,headers,objc Notebook.xcodeproj\n"
      "  quillmeter-cli export --csv - . | sort");
  command->callback([options, &status] { status = exportFiles(*options); });
}

}  // namespace quillmeter
