#include <cctype>

#include "cli/ComparisonTexts.h"
#include "cli/Output.h"
#include "overview/OverviewFigures.h"
#include "support/Text.h"
#include "support/Utf8.h"

namespace quillmeter {
namespace {

bool isPlain(char letter) {
  const auto byte = static_cast<unsigned char>(letter);
  return std::isalnum(byte) != 0 || letter == ' ' || letter == '/' || letter == '-' || letter == '.';
}

/// Between letters an underscore formats nothing, and most names are easier to read with it.
bool joinsLetters(std::string_view text, std::size_t place) {
  const auto isLetter = [&](std::size_t i) {
    return i < text.size() && std::isalnum(static_cast<unsigned char>(text[i])) != 0;
  };
  return text[place] == '_' && place > 0 && isLetter(place - 1) && isLetter(place + 1);
}

bool followsWww(std::string_view text, std::size_t place) {
  return place >= 3 && lowerCased(text.substr(place - 3, 3)) == "www";
}

/// A name as code. Everything that could format, link or mention is a character reference, which no Markdown
/// dialect takes for its own sign; the element keeps pages from looking for @names and #numbers in it. Bytes
/// that are not UTF-8 become U+FFFD.
std::string markdownName(std::string_view name) {
  const std::string line = onOneLine(name);
  const std::string_view text = line;
  std::string markdown = "<code>";
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Character character = firstCharacter(text.substr(i));
    const bool isDotOfALink = text[i] == '.' && followsWww(text, i);
    const bool standsForItself = (isPlain(text[i]) && !isDotOfALink) || joinsLetters(text, i);
    if (!character.valid) {
      markdown += "\uFFFD";
    } else if (character.bytes > 1 || standsForItself) {
      markdown += text.substr(i, character.bytes);
    } else {
      markdown += "&#" + std::to_string(static_cast<int>(text[i])) + ";";
    }
    i += character.bytes;
  }
  return markdown + "</code>";
}

void writeRow(const std::vector<std::string>& cells, Output& output) {
  for (const std::string& cell : cells)
    output.write("| " + cell + " ");
  output.write("|\n");
}

void writeTotals(const Comparison& comparison, const DecimalFormatter& formatter, Output& output) {
  writeRow({"", "Before", "After", "Change", ""}, output);
  output.write("|:--|--:|--:|--:|--:|\n");
  for (const TotalRow& row : totalRows(comparison, formatter))
    writeRow({row.begin(), row.end()}, output);
}

void writeFiles(const Comparison& comparison, const DecimalFormatter& formatter, Output& output) {
  const std::size_t count = listedFiles(comparison);
  if (count == 0) return;
  output.write("\n");
  writeRow({"Change", "Lines", "Size", "File"}, output);
  output.write("|:--|--:|--:|:--|\n");
  for (std::size_t i = 0; i < count; ++i) {
    const FileChange& file = comparison.differences.files[i];
    const std::string from = file.kind == ChangeKind::moved ? markdownName(file.earlierPath) + " → " : "";
    writeRow({std::string(changeName(file.kind)), signedCount(file.difference(kLinesCounter), formatter),
              signedSize(file.difference(kSizeCounter), formatter), from + markdownName(file.path)},
             output);
  }
}

}  // namespace

void writeComparisonMarkdown(const Comparison& comparison, Output& output) {
  const DecimalFormatter formatter = overviewFormatter();
  const std::int64_t lines =
      comparison.differences.after[kLinesCounter] - comparison.differences.before[kLinesCounter];
  output.write("### " + markdownName(comparison.after.projectTitle) + ": " + signedCount(lines, formatter) +
               (lines == 1 || lines == -1 ? " line\n\n" : " lines\n\n"));
  writeTotals(comparison, formatter, output);
  output.write("\n" + changesSentence(comparison.differences, formatter) + "\n");
  writeFiles(comparison, formatter, output);
  const std::string omission = omissionSentence(comparison, formatter);
  if (!omission.empty()) output.write("\n" + omission + "\n");
  if (const std::string rules = rulesLine(comparison); !rules.empty()) output.write("\n" + rules);
}

}  // namespace quillmeter
