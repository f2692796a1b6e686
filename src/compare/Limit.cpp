#include "compare/Limit.h"

#include <algorithm>
#include <charconv>

#include "support/NearestWord.h"
#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

__extension__ using Wide = __int128;

constexpr std::string_view kFilePrefix = "file:";
constexpr std::int64_t kMillion = 1'000'000;
constexpr std::int64_t kMostPercent = 1'000'000'000;
constexpr std::size_t kMostDecimals = 6;
constexpr std::size_t kMostFilesNamed = 10;

LimitReading refused(std::string_view text, const std::string& why) {
  return {std::nullopt, "'" + std::string(text) + "' is no limit: " + why +
                            "; a limit is written like noLinesTotal>2000, noLinesTotal>+5% or "
                            "file:noLinesTotal>800"};
}

std::string_view withoutBlanks(std::string_view text) {
  while (text.starts_with(' '))
    text.remove_prefix(1);
  while (text.ends_with(' '))
    text.remove_suffix(1);
  return text;
}

/// The whole of `digits` as a number; nothing for anything else, the empty text and what is too large.
std::optional<std::int64_t> wholeNumber(std::string_view digits) {
  std::int64_t number = 0;
  const char* const end = digits.data() + digits.size();
  if (digits.empty() || digits.front() == '-') return std::nullopt;
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

/// "5", "2.5" and so on in millionths.
std::optional<std::int64_t> millionths(std::string_view decimal) {
  const std::size_t point = std::min(decimal.find('.'), decimal.size());
  const auto whole = wholeNumber(decimal.substr(0, point));
  if (!whole || *whole > kMostPercent) return std::nullopt;
  if (point == decimal.size()) return *whole * kMillion;
  std::string decimals(decimal.substr(point + 1));
  if (decimals.empty() || decimals.size() > kMostDecimals) return std::nullopt;
  decimals.resize(kMostDecimals, '0');
  const auto fraction = wholeNumber(decimals);
  if (!fraction) return std::nullopt;
  return *whole * kMillion + *fraction;
}

std::string nameFault(std::string_view name, bool ofAnyFile) {
  std::vector<std::string> known;
  for (std::size_t i = 0; i < (ofAnyFile ? kFileCounters : kTotals); ++i)
    known.emplace_back(totalNames()[i]);
  std::string why = "there is no number '" + std::string(name) + "'";
  if (ofAnyFile) why += " of a file";
  if (const auto nearest = nearestWord(name, known)) return why + " (did you mean " + *nearest + "?)";
  why += ", there are";
  for (const std::string& each : known)
    why += (&each == &known.front() ? " " : ", ") + each;
  return why;
}

/// Reads what stands behind the operator. Gives what is wrong with it, nothing when it is understood.
std::optional<std::string> readThreshold(std::string_view text, Limit& limit) {
  const bool hasSign = text.starts_with('+') || text.starts_with('-');
  const bool isNegative = text.starts_with('-');
  std::string_view digits = text.substr(hasSign ? 1 : 0);
  const bool isPercent = digits.ends_with('%');
  if (isPercent) digits = withoutBlanks(digits.substr(0, digits.size() - 1));
  if (isPercent && !hasSign) return "per cent are of a difference and need a sign, as in +5%";
  const auto number = isPercent ? millionths(digits) : wholeNumber(digits);
  if (!number) {
    return "'" + std::string(text) + "' is no " +
           (isPercent ? "number of per cent with six decimals at most" : "whole number");
  }
  limit.unit = isPercent ? Limit::Unit::percent : hasSign ? Limit::Unit::difference : Limit::Unit::value;
  limit.threshold = isNegative ? -*number : *number;
  return std::nullopt;
}

template <class Value>
bool holds(Limit::Operator comparison, Value left, Value right) {
  switch (comparison) {
    case Limit::Operator::above:
      return left > right;
    case Limit::Operator::atLeast:
      return left >= right;
    case Limit::Operator::below:
      return left < right;
    case Limit::Operator::atMost:
      return left <= right;
  }
  return false;
}

/// Exact in whole numbers: no difference between files is too small to be seen.
bool isPassed(const Limit& limit, std::int64_t before, std::int64_t after) {
  if (limit.unit == Limit::Unit::value) return holds(limit.comparison, after, limit.threshold);
  const std::int64_t difference = after - before;
  if (limit.unit == Limit::Unit::difference) return holds(limit.comparison, difference, limit.threshold);
  if (before == 0 && after > 0) {
    return limit.comparison == Limit::Operator::above || limit.comparison == Limit::Operator::atLeast;
  }
  // 0 that stays 0 has grown by 0 of 1.
  const Wide base = std::max<std::int64_t>(before, 1);
  return holds(limit.comparison, Wide{difference} * 100 * kMillion, Wide{limit.threshold} * base);
}

std::string signedText(std::int64_t number) {
  return (number >= 0 ? "+" : "") + std::to_string(number);
}

std::string sentence(const Limit& limit, std::string_view what, std::int64_t before, std::int64_t after) {
  std::string text = std::string(what) + " is " + std::to_string(after);
  if (!limit.needsBaseline()) return text;
  text += ", was " + std::to_string(before) + " (" + signedText(after - before);
  return text + (limit.unit == Limit::Unit::percent ? ", " + percentText(before, after) : "") + ")";
}

bool isLookedAt(const Limit& limit, const FileChange& file) {
  if (limit.unit == Limit::Unit::value) return file.after.has_value();
  return limit.unit == Limit::Unit::difference || (file.before && file.after);
}

std::vector<std::string> passedByFiles(const Limit& limit, const Differences& differences) {
  std::vector<std::string> lines;
  std::size_t number = 0;
  for (const FileChange& file : differences.files) {
    const std::int64_t before = file.before ? (*file.before)[limit.measure] : 0;
    const std::int64_t after = file.after ? (*file.after)[limit.measure] : 0;
    if (!isLookedAt(limit, file) || !isPassed(limit, before, after)) continue;
    if (++number > kMostFilesNamed) continue;
    const std::string what = std::string(totalNames()[limit.measure]) + " of " + file.path;
    lines.push_back(sentence(limit, what, before, after));
  }
  if (number > kMostFilesNamed) lines.push_back("and " + std::to_string(number - kMostFilesNamed) + " more");
  return lines;
}

}  // namespace

LimitReading readLimit(std::string_view text) {
  Limit limit;
  limit.text = text;
  std::string_view rest = withoutBlanks(text);
  limit.ofAnyFile = rest.starts_with(kFilePrefix);
  if (limit.ofAnyFile) rest.remove_prefix(kFilePrefix.size());
  const std::size_t sign = rest.find_first_of("<>");
  if (sign == std::string_view::npos)
    return refused(text,
                   "it has none of > >= < <=, which a shell keeps for itself unless the limit is in quotes");
  const std::string_view name = withoutBlanks(rest.substr(0, sign));
  const bool isAbove = rest[sign] == '>';
  rest.remove_prefix(sign + 1);
  const bool isInclusive = rest.starts_with('=');
  if (isInclusive) rest.remove_prefix(1);
  limit.comparison = isAbove ? (isInclusive ? Limit::Operator::atLeast : Limit::Operator::above)
                             : (isInclusive ? Limit::Operator::atMost : Limit::Operator::below);
  const auto place = totalNamed(name);
  if (!place || (limit.ofAnyFile && *place >= kFileCounters)) {
    return refused(text, nameFault(name, limit.ofAnyFile));
  }
  limit.measure = *place;
  if (const auto fault = readThreshold(withoutBlanks(rest), limit)) return refused(text, *fault);
  return {limit, {}};
}

std::vector<std::string> passed(const Limit& limit, const Differences& differences) {
  if (limit.ofAnyFile) return passedByFiles(limit, differences);
  const std::int64_t before = differences.before[limit.measure];
  const std::int64_t after = differences.after[limit.measure];
  if (!isPassed(limit, before, after)) return {};
  return {sentence(limit, totalNames()[limit.measure], before, after)};
}

std::string percentText(std::int64_t before, std::int64_t after) {
  if (before == 0) return after == 0 ? "+0.00 %" : "from nothing";
  const double percent = 100.0 * static_cast<double>(after - before) / static_cast<double>(before);
  return (percent >= 0 ? "+" : "") + fixed(percent, 2) + " %";
}

}  // namespace quillmeter
