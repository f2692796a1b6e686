#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "CapturedOutput.h"
#include "RecordsInput.h"
#include "Require.h"
#include "cli/ComparisonFormats.h"
#include "cli/ComparisonTexts.h"
#include "cli/MeasurementFormats.h"
#include "compare/SnapshotReader.h"
#include "export/CsvText.h"
#include "overview/OverviewFigures.h"
#include "page/MeasurementPage.h"
#include "support/Text.h"
#include "support/Utf8.h"

/// Every format of the tool over a project with names and numbers of all sorts (`RecordsProject`): JSON and
/// CSV read back as what was written, tables and Markdown have the lines they should, pages hold no markup
/// but their own.

namespace {

using namespace quillmeter;
using fuzzing::captured;
using fuzzing::RecordsProject;

constexpr std::array<std::optional<Grouping>, 4> kGroupings = {std::nullopt, Grouping::target,
                                                               Grouping::folder, Grouping::kind};

std::size_t linesIn(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::size_t timesIn(std::string_view text, std::string_view piece) {
  std::size_t times = 0;
  for (std::size_t at = text.find(piece); at != std::string_view::npos; at = text.find(piece, at + 1))
    ++times;
  return times;
}

/// Whether nothing in a text moves a terminal's cursor but its line feeds.
bool isPlain(std::string_view text) {
  while (!text.empty()) {
    const Utf8Character character = firstCharacter(text);
    const bool isControl =
        character.codePoint < 0x20 || (character.codePoint >= 0x7F && character.codePoint < 0xA0);
    if (character.valid && isControl && character.codePoint != '\n') return false;
    text.remove_prefix(character.bytes);
  }
  return true;
}

/// Whether a JSON text is in UTF-8 and escapes what JSON wants escaped: between its own line feeds nothing is
/// below a blank.
bool isJsonText(std::string_view text) {
  return isValidUtf8(text) && std::all_of(text.begin(), text.end(), [](char letter) {
           return static_cast<unsigned char>(letter) >= 0x20 || letter == '\n';
         });
}

/// The fields of each record, by the common rules of CSV.
std::vector<std::vector<std::string>> csvRows(std::string_view text) {
  std::vector<std::vector<std::string>> rows(1, std::vector<std::string>(1));
  bool isQuoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char letter = text[i];
    if (letter == '"') {
      if (isQuoted && text.substr(i + 1).starts_with('"'))
        rows.back().back() += text[i++];
      else
        isQuoted = !isQuoted;
    } else if (isQuoted || (letter != ',' && letter != '\n')) {
      rows.back().back() += letter;
    } else if (letter == ',') {
      rows.back().emplace_back();
    } else {
      rows.emplace_back(1);
    }
  }
  require(!isQuoted && rows.back() == std::vector<std::string>(1));
  rows.pop_back();
  return rows;
}

void checkCsv(const MeasuredProject& project) {
  const auto rows = csvRows(captured([&](Output& output) { writeCsv(project, output); }));
  require(rows.size() == project.files().size() + 1);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    require(rows[i].size() == kFileCounters + 2);
    if (i == 0) continue;
    const FileObject& file = *project.files()[i - 1];
    require(rows[i][0] == file.fileName() && rows[i][1] == file.filePath());
    for (std::size_t counter = 0; counter < kFileCounters; ++counter) {
      const auto& number = (file.*kFileCounterFields[counter].value)();
      require(rows[i][counter + 2] == (number ? std::to_string(number->longValue()) : ""));
    }
  }
}

/// The other CSV, whose form does not allow for quotes in names: each row as it should be.
void checkExportedCsv(const MeasuredProject& project) {
  const auto files = filesToExport(project.files(), project.kinds().allGroups(), project.kinds());
  std::string rest = csvText(files) + "\n";
  rest.erase(0, rest.find('\n') + 1);
  std::string expected;
  for (const ExportedFile& exported : files) {
    const FileObject& file = *exported.file;
    std::array<char, 64> size{};
    std::snprintf(size.data(), size.size(), "%.2f",
                  static_cast<double>(integerValue(file.fileSize())) / 1024.0);
    expected += "\"" + std::string(exported.group->csvType) + "\",\"" + file.fileName().value_or("") + "\"";
    for (const auto& number :
         {file.noLinesTotal(), file.noLinesWithoutSpaces(), file.noWords(), file.noCharactersTotal()})
      expected += exported.group->kind == FileKind::code ? ",\"" + std::to_string(integerValue(number)) + "\""
                                                         : ",\"\"";
    expected += std::string(",\"") + size.data() + "\"\n";
  }
  require(rest == expected);
}

void checkJson(const MeasuredProject& project) {
  for (const auto& grouping : kGroupings) {
    const std::string text = captured([&](Output& output) { writeJson(project, grouping, output); });
    require(isJsonText(text));
    // Lone surrogates, which stand for bytes, are more than that reader takes.
    if (text.find("\\udc") == std::string::npos) {
      const auto json = nlohmann::json::parse(text);
      require(json["files"].size() == project.files().size() &&
              json["projectTitle"] == project.projectTitle());
      require(json.contains("groups") == grouping.has_value());
    }
    const SnapshotReading reading = readSnapshot(text);
    require(reading.snapshot.has_value());
    const Snapshot expected = snapshotOf(project);
    require(reading.snapshot->projectTitle == expected.projectTitle);
    require(reading.snapshot->initialPath == expected.initialPath);
    require(reading.snapshot->rules == expected.rules && reading.snapshot->totals == expected.totals);
    require(std::equal(reading.snapshot->files.begin(), reading.snapshot->files.end(), expected.files.begin(),
                       expected.files.end(), [](const SnapshotFile& a, const SnapshotFile& b) {
                         return std::tie(a.path, a.counters) == std::tie(b.path, b.counters);
                       }));
  }
}

void checkTable(const MeasuredProject& project) {
  for (const auto& grouping : kGroupings) {
    const std::string text = captured([&](Output& output) { writeTable(project, grouping, output); });
    const std::size_t rows = grouping ? groupedTotals(project, *grouping).size() : 3;
    const std::size_t ofRules = project.rules() == ProjectRules::current ? 1 : 0;
    require(isPlain(text) && linesIn(text) == 2 + ofRules + 1 + kOverviewMetrics + 1 + 1 + rows);
  }
}

void checkGroups(const MeasuredProject& project) {
  for (const Grouping grouping : {Grouping::folder, Grouping::kind}) {
    std::uint64_t files = 0;
    for (const GroupTotals& group : groupedTotals(project, grouping))
      files += group.files;
    std::size_t ofAKind = 0;
    for (const auto& file : project.files())
      ofAKind += project.kinds().find(*file) != nullptr ? 1U : 0U;
    require(files == (grouping == Grouping::kind ? ofAKind : project.files().size()));
  }
}

/// Names stand between <code> and </code>, without a character that Markdown takes for its own sign.
void checkMarkdown(std::string_view text, std::size_t lines) {
  require(linesIn(text) == lines && isValidUtf8(text) && isPlain(text));
  for (std::size_t at = text.find("<code>"); at != std::string_view::npos; at = text.find("<code>", at + 1)) {
    const std::string_view name = text.substr(at + 6, text.find("</code>", at) - at - 6);
    for (const char letter : name) {
      const auto byte = static_cast<unsigned char>(letter);
      require(byte >= 0x80 || std::isalnum(byte) != 0 ||
              std::string_view(" /-._&#;").find(letter) != std::string_view::npos);
    }
  }
}

void checkComparison(const MeasuredProject& project, std::size_t seed) {
  const Snapshot after = snapshotOf(project);
  Snapshot before = after;
  for (std::size_t i = 0; i < before.files.size(); ++i) {
    if (i % 3 == seed % 3) before.files[i].counters[kLinesCounter] /= 2;
    if (i % 5 == seed % 5) before.files[i].path.insert(0, "x/");
  }
  before.files.resize(before.files.size() - std::min(before.files.size(), seed % 4));
  arrange(before);
  const Differences differences = differencesBetween(before, after);
  const Comparison comparison{before, after, differences, seed % 7};
  const DecimalFormatter formatter = overviewFormatter();
  const std::size_t totals = totalRows(comparison, formatter).size();
  const std::size_t listed = listedFiles(comparison);
  require(listed == std::min(differences.changes(), comparison.top));
  const std::size_t omitted = omissionSentence(comparison, formatter).empty() ? 0 : 1;
  require(omitted == (listed < differences.changes() ? 1U : 0U));
  const std::size_t ofRules = after.rules == "current" ? 1 : 0;

  const std::string table = captured([&](Output& output) { writeComparisonTable(comparison, output); });
  require(isPlain(table) &&
          linesIn(table) == 4 + ofRules + 1 + totals + 2 + (listed > 0 ? 2 + listed : 0) + omitted);
  const std::string markdown = captured([&](Output& output) { writeComparisonMarkdown(comparison, output); });
  checkMarkdown(markdown, 2 + 2 + totals + 2 + (listed > 0 ? 3 + listed : 0) + 2 * omitted + 2 * ofRules);
  const std::string json = captured([&](Output& output) { writeComparisonJson(comparison, output); });
  require(isJsonText(json));
  if (json.find("\\udc") != std::string::npos) return;
  require(nlohmann::json::parse(json)["files"].size() == listed);
}

void checkPage(const MeasuredProject& project, const std::string& harmlessInput) {
  const std::string page = measurementPage(project);
  require(isValidUtf8(page) && timesIn(page, "<tr>") == project.files().size() + 1);
  const std::string harmless = measurementPage(RecordsProject(harmlessInput));
  for (const std::string_view sign : {"<script", "</script", "<style", "<body", "<table", "<title>", "<td"})
    require(timesIn(page, sign) == timesIn(harmless, sign));
}

/// The same project with names of letters alone.
std::string harmless(std::string_view input) {
  std::string text(input);
  for (char& letter : text)
    if (letter == '<' || letter == '>' || letter == '&' || letter == '"' || letter == '\'') letter = 'x';
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const RecordsProject project(input);
  checkCsv(project);
  checkExportedCsv(project);
  checkJson(project);
  checkTable(project);
  checkGroups(project);
  checkComparison(project, size);
  checkPage(project, harmless(input));
  return 0;
}
