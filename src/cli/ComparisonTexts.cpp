#include "cli/ComparisonTexts.h"

#include <algorithm>

#include "overview/OverviewCaptions.h"
#include "overview/OverviewFigures.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter {
namespace {

struct Caption {
  std::string_view name;  ///< of the total
  std::string_view caption;
};

/// In the order and the words of the overview, then what it does not show.
constexpr std::array<Caption, 10> kCaptions = {{
    {"fileSize", "Size on disk"},
    {"noLinesTotal", "Lines in total"},
    {"noLinesWithoutSpaces", "Non-empty lines"},
    {"noLinesComments", "Comment lines"},
    {"noWords", "Words"},
    {"noCharactersTotal", "Characters"},
    {"noCharactersWithoutSpaces", "Characters without spaces"},
    {"getNumberCodeFiles", "Code files"},
    {"getNumberImageFiles", "Image files"},
    {"getNumberXIBFiles", ""},
}};

ProjectRules rulesOf(const Comparison& comparison) {
  return rulesNamed(comparison.after.rules).value_or(ProjectRules::classic);
}

/// What counts as an interface file depends on the rules.
std::string captionOf(const Caption& caption, const Comparison& comparison) {
  if (!caption.caption.empty()) return std::string(caption.caption);
  return std::string(overviewCaptions(kindsBy(rulesOf(comparison)))[kInterfaceFilesMetric].caption);
}

std::string percentCell(std::int64_t before, std::int64_t after, const DecimalFormatter& oneDecimal) {
  if (before == after) return "";
  if (before == 0) return "new";
  const double percent = 100.0 * static_cast<double>(after - before) / static_cast<double>(before);
  return (percent > 0 ? "+" : "") + oneDecimal.format(percent) + " %";
}

}  // namespace

std::vector<TotalRow> totalRows(const Comparison& comparison, const DecimalFormatter& formatter) {
  const Differences& differences = comparison.differences;
  const DecimalFormatter oneDecimal(1, 1);
  std::vector<TotalRow> rows;
  for (const Caption& caption : kCaptions) {
    const std::size_t place = *totalNamed(caption.name);
    const std::int64_t before = differences.before[place];
    const std::int64_t after = differences.after[place];
    const bool isSize = place == kSizeCounter;
    rows.push_back({captionOf(caption, comparison),
                    isSize ? sizeText(before, formatter) : formatter.format(before),
                    isSize ? sizeText(after, formatter) : formatter.format(after),
                    isSize ? signedSize(after - before, formatter) : signedCount(after - before, formatter),
                    percentCell(before, after, oneDecimal)});
  }
  return rows;
}

std::string changesSentence(const Differences& differences, const DecimalFormatter& formatter) {
  std::string sentence;
  for (std::size_t i = 0; i < kChangeKinds; ++i) {
    const std::size_t number = differences.numbers[i];
    if (number == 0) continue;
    sentence += sentence.empty() ? "" : ", ";
    sentence += formatter.format(static_cast<std::uint64_t>(number));
    if (sentence.find(' ') == std::string::npos) sentence += number == 1 ? " file" : " files";
    sentence += " " + std::string(changeName(static_cast<ChangeKind>(i)));
  }
  return sentence.empty() ? "no files" : sentence;
}

std::string omissionSentence(const Comparison& comparison, const DecimalFormatter& formatter) {
  const std::size_t left = comparison.differences.changes() - listedFiles(comparison);
  if (left == 0) return "";
  return "and " + formatter.format(static_cast<std::uint64_t>(left)) + " more";
}

std::string rulesLine(const Comparison& comparison) {
  return rulesOf(comparison) == ProjectRules::current ? "Measured by the current rules\n" : "";
}

std::string signedCount(std::int64_t number, const DecimalFormatter& formatter) {
  return (number > 0 ? "+" : "") + formatter.format(number);
}

std::string signedSize(std::int64_t bytes, const DecimalFormatter& formatter) {
  if (bytes == 0) return sizeText(0, formatter);
  return (bytes > 0 ? "+" : "-") + sizeText(bytes > 0 ? bytes : -bytes, formatter);
}

std::size_t listedFiles(const Comparison& comparison) {
  return std::min(comparison.top, comparison.differences.changes());
}

}  // namespace quillmeter
