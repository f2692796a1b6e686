#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>
#include <string>

#include "cli/Commands.h"
#include "cli/JsonWriter.h"
#include "cli/Measurement.h"
#include "cli/Output.h"
#include "cli/ReferenceFindings.h"
#include "cli/Suggestions.h"
#include "cli/TextColumns.h"
#include "support/CommandConfinement.h"
#include "support/ExitStatus.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

struct ReferencesOptions {
  ReadOptions read;
  std::string format = "table";
  bool check = false;
};

/// The form of the JSON, described in docs/json.md. It grows when a member changes its meaning or goes.
constexpr std::int64_t kReferencesJsonVersion = 1;

void writeJson(const ProjectFindings& findings, Output& output) {
  JsonWriter json(output);
  json.beginObject();
  json.member("version", kReferencesJsonVersion);
  writeMissing(findings, json);
  json.key("otherCase");
  json.beginArray();
  for (const OtherCase& reference : findings.otherCase) {
    json.beginObject();
    json.member("location", std::string_view(reference.location));
    json.member("filePath", std::string_view(reference.path));
    json.member("identifier", std::string_view(reference.identifier));
    json.endObject();
  }
  json.endArray();
  json.endObject();
}

void writeTable(const ProjectFindings& findings, Output& output) {
  if (findings.missing.empty() && findings.otherCase.empty()) {
    output.write("Every reference leads to what it names.\n");
    return;
  }
  std::vector<std::vector<std::string>> rows{{"Finding", "Reference", "Location", "On disk"}};
  for (const MissingReference& reference : findings.missing)
    rows.push_back({"missing", onOneLine(reference.identifier), onOneLine(reference.location), ""});
  for (const OtherCase& reference : findings.otherCase)
    rows.push_back({"other case", onOneLine(reference.identifier), onOneLine(reference.location),
                    onOneLine(reference.path)});
  writeTextColumns(rows, {0, 1, 2, 3}, output);
}

int references(const ReferencesOptions& options) {
  confineToOutputs();
  const auto project = readProjectForReferences(options.read);
  if (!project) return kNothingMeasured;
  tellOfFaults(project->faults());
  const ProjectFindings& findings = project->findings();
  Output output(std::nullopt);
  if (options.format == "json") {
    writeJson(findings, output);
  } else {
    writeTable(findings, output);
  }
  const bool isClean = findings.missing.empty() && findings.otherCase.empty();
  return statusAfter(output, options.check && !isClean ? kFindings : kSuccess);
}

}  // namespace

void writeMissing(const ProjectFindings& findings, JsonWriter& json) {
  json.key("missing");
  json.beginArray();
  for (const MissingReference& reference : findings.missing) {
    json.beginObject();
    json.member("location", std::string_view(reference.location));
    json.member("identifier", std::string_view(reference.identifier));
    json.endObject();
  }
  json.endArray();
}

void addReferencesCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<ReferencesOptions>();
  CLI::App* command = app.add_subcommand(
      "references", "List a project's references that nothing is found for, or only a name in other case");
  command->add_option("--format", options->format, "table or json")
      ->check(oneOf({"table", "json"}))
      ->capture_default_str();
  command->add_flag("--check", options->check, "Exit with status 1 when there is any");
  addReadOptions(*command, options->read);
  command->footer(
      "Examples:\n"
      "  quillmeter-cli references ~/Projects/Notebook\n"
      "  quillmeter-cli references --rules current --check Notebook.xcodeproj");
  command->callback([options, &status] { status = references(*options); });
}

}  // namespace quillmeter
