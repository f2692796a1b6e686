#include "cli/MeasurementFormats.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/MeasuredProject.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "cli/ReferenceFindings.h"
#include "measuring/FileCounters.h"

namespace quillmeter {
namespace {

void writeFile(const FileObject& file, JsonWriter& json) {
  json.beginObject();
  json.member("fileName", file.fileName());
  json.member("filePath", file.filePath());
  for (const FileCounter& field : kFileCounterFields)
    json.member(field.name, (file.*field.value)());
  json.endObject();
}

void writeTotals(const MeasuredProject& project, JsonWriter& json) {
  const auto count = [&json](std::string_view name, std::size_t value) {
    json.member(name, static_cast<std::int64_t>(value));
  };
  json.beginObject();
  count("getNumberCodeFiles", project.getNumberCodeFiles());
  count("getNumberImageFiles", project.getNumberImageFiles());
  count("getNumberXIBFiles", project.getNumberXIBFiles());
  count("getNumberInstanceMethods", project.getNumberInstanceMethods());
  count("getNumberStaticMethods", project.getNumberStaticMethods());
  json.endObject();
}

std::string_view groupingName(Grouping grouping) {
  if (grouping == Grouping::target) return "target";
  return grouping == Grouping::folder ? "folder" : "kind";
}

/// What the current rules find beside the files.
void writeFindings(const MeasuredProject& project, JsonWriter& json) {
  const ProjectFindings& findings = project.findings();
  json.key("targets");
  json.beginArray();
  const auto totals = groupedTotals(project, Grouping::target);
  for (std::size_t i = 0; i < findings.targets.size(); ++i) {
    json.beginObject();
    json.member("name", std::string_view(findings.targets[i].name));
    json.key("files");
    json.beginArray();
    for (const std::uint32_t index : findings.targets[i].files)
      json.value(std::int64_t{index});
    json.endArray();
    for (std::size_t counter = 0; counter < kFileCounters; ++counter)
      json.member(kFileCounterFields[counter].name, totals[i].counters[counter]);
    json.endObject();
  }
  json.endArray();
  json.key("other");
  json.beginObject();
  for (const auto& [extension, count] : findings.other) {
    json.textKey(extension);
    json.value(static_cast<std::int64_t>(count));
  }
  json.endObject();
  writeMissing(findings, json);
  json.member("foreign", static_cast<std::int64_t>(findings.foreign));
}

/// By hand: find_first_of makes a call for each letter, which took a tenth of the time of a large project.
bool needsQuotes(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; });
}

void writeCsvField(std::string_view text, Output& output) {
  if (!needsQuotes(text)) return output.write(text);
  output.write("\"");
  for (std::size_t quote = text.find('"'); quote != std::string_view::npos; quote = text.find('"')) {
    output.write(text.substr(0, quote + 1));
    output.write("\"");
    text.remove_prefix(quote + 1);
  }
  output.write(text);
  output.write("\"");
}

}  // namespace

void writeJson(const MeasuredProject& project, std::optional<Grouping> grouping, Output& output) {
  JsonWriter json(output);
  json.beginObject();
  json.member("version", kMeasurementJsonVersion);
  json.member("rules", rulesName(project.rules()));
  json.member("projectTitle", std::string_view(project.projectTitle()));
  json.member("initialPath", std::string_view(project.initialPath()));
  json.key("files");
  json.beginArray();
  for (const auto& file : project.files())
    writeFile(*file, json);
  json.endArray();
  json.key("totals");
  writeTotals(project, json);
  if (project.rules() == ProjectRules::current) writeFindings(project, json);
  if (grouping) {
    json.member("by", groupingName(*grouping));
    json.key("groups");
    writeGroups(groupedTotals(project, *grouping), json);
  }
  json.endObject();
}

void writeCsv(const MeasuredProject& project, Output& output) {
  output.write("fileName,filePath");
  for (const FileCounter& field : kFileCounterFields)
    output.write(std::string(",").append(field.name));
  output.write("\n");
  for (const auto& file : project.files()) {
    writeCsvField(file->fileName().value_or(""), output);
    output.write(",");
    writeCsvField(file->filePath().value_or(""), output);
    for (const FileCounter& field : kFileCounterFields) {
      const std::optional<Number>& number = (*file.*field.value)();
      output.write(number ? "," + number->stringValue() : ",");
    }
    output.write("\n");
  }
}

}  // namespace quillmeter
