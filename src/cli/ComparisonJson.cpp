#include <algorithm>
#include <optional>
#include <string>

#include "cli/ComparisonFormats.h"
#include "cli/JsonWriter.h"

namespace quillmeter {
namespace {

void writeSide(std::string_view name, const Snapshot& snapshot, JsonWriter& json) {
  json.key(name);
  json.beginObject();
  json.member("projectTitle", std::string_view(snapshot.projectTitle));
  json.member("initialPath", std::string_view(snapshot.initialPath));
  json.endObject();
}

void writeTotals(const Differences& differences, JsonWriter& json) {
  json.key("totals");
  json.beginObject();
  for (std::size_t i = 0; i < kTotals; ++i) {
    json.key(totalNames()[i]);
    json.beginObject();
    json.member("before", differences.before[i]);
    json.member("after", differences.after[i]);
    json.member("difference", differences.after[i] - differences.before[i]);
    json.endObject();
  }
  json.endObject();
}

void writeNumbers(const Differences& differences, JsonWriter& json) {
  json.key("numbers");
  json.beginObject();
  for (std::size_t i = 0; i < kChangeKinds; ++i)
    json.member(changeName(static_cast<ChangeKind>(i)), static_cast<std::int64_t>(differences.numbers[i]));
  json.endObject();
}

void writeCounters(std::string_view name, const std::optional<Counters>& counters, JsonWriter& json) {
  json.key(name);
  if (!counters) return json.null();
  json.beginObject();
  for (std::size_t i = 0; i < kFileCounters; ++i)
    json.member(totalNames()[i], (*counters)[i]);
  json.endObject();
}

void writeFile(const FileChange& file, JsonWriter& json) {
  json.beginObject();
  json.member("change", changeName(file.kind));
  json.member("filePath", std::string_view(file.path));
  json.member("filePathBefore", std::string_view(file.earlierPath));
  writeCounters("before", file.before, json);
  writeCounters("after", file.after, json);
  json.endObject();
}

}  // namespace

void writeComparisonJson(const Comparison& comparison, Output& output) {
  const Differences& differences = comparison.differences;
  JsonWriter json(output);
  json.beginObject();
  json.member("version", kComparisonJsonVersion);
  json.member("rules", std::string_view(comparison.after.rules));
  writeSide("before", comparison.before, json);
  writeSide("after", comparison.after, json);
  writeTotals(differences, json);
  writeNumbers(differences, json);
  json.key("files");
  json.beginArray();
  for (std::size_t i = 0; i < std::min(comparison.top, differences.changes()); ++i)
    writeFile(differences.files[i], json);
  json.endArray();
  json.endObject();
}

}  // namespace quillmeter
