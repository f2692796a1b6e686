#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compare/Differences.h"

namespace quillmeter {

/// A limit that a user sets, such as "noLinesTotal>+5%" or "file:noLinesTotal>800": what is looked at, how it
/// is compared, and with what.
///
/// A number with a sign is compared with the difference to the earlier measurement, and so is a number of per
/// cent, which always has a sign; any other number is compared with the value itself. What grows from 0 grows
/// by more than any number of per cent, and 0 that stays 0 grows by 0 %.
struct Limit {
  enum class Operator { above, atLeast, below, atMost };
  enum class Unit { value, difference, percent };

  std::string text;         ///< as the user wrote it
  bool ofAnyFile = false;   ///< of any one file, not of the whole project
  std::size_t measure = 0;  ///< place in `totalNames`
  Operator comparison = Operator::above;
  Unit unit = Unit::value;
  std::int64_t threshold = 0;  ///< millionths of a per cent, or units

  [[nodiscard]] bool needsBaseline() const { return unit != Unit::value; }
};

/// A limit, or what is wrong with its text: a sentence for the user that says what is understood.
struct LimitReading {
  std::optional<Limit> limit;
  std::string error;  ///< empty when there is a limit
};

[[nodiscard]] LimitReading readLimit(std::string_view text);

/// What passed a limit: a line for the user a time, "noLinesTotal is 2420, was 2299 (+121, +5.26 %)". Nothing
/// when the limit holds. Of many files the first ten are named, and the last line gives the number of the
/// others.
///
/// Of single files, limits of a difference look at every file (one that was added had 0 of everything, one
/// that was removed has 0 now), limits of per cent at those that are in both measurements, limits of a value
/// at those that are there now.
[[nodiscard]] std::vector<std::string> passed(const Limit& limit, const Differences& differences);

/// `before` to `after` in per cent with two decimals and a sign: "+5.26 %"; "from nothing" where 0 grew.
[[nodiscard]] std::string percentText(std::int64_t before, std::int64_t after);

}  // namespace quillmeter
