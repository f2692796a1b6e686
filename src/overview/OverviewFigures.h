#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace quillmeter {

class DecimalFormatter;
class MeasuredProject;

/// What the overview knows of a project: sums over its file list, taken in one pass. A plain value; the
/// overview panel, the charts, the report and the command-line tool all show these numbers.
struct OverviewFigures {
  /// Bytes of all files, whatever their kind. A sum beyond 2^63 - 1 wraps to negative values.
  std::int64_t size = 0;
  /// Lines of the source files; like all sums here, it wraps at 2^64.
  std::uint64_t totalNumberLines = 0;
  std::uint64_t nonEmptyLines = 0;
  /// The empty lines: all lines less the non-empty ones.
  std::uint64_t totalNumberLinesWithSpaces = 0;
  std::uint64_t totalNumberLinesWithComments = 0;
  std::size_t codeFiles = 0;
  std::size_t imageFiles = 0;
  std::size_t xibFiles = 0;

  /// Truncated; 0 when there is no code file to share the lines.
  [[nodiscard]] std::uint64_t averageNonEmptyLines() const;
  [[nodiscard]] std::uint64_t averageCommentLines() const;
};

/// The figures of `project`; all 0 when it has not been read or holds no file. A record's absent counter
/// counts as 0.
[[nodiscard]] OverviewFigures overviewFigures(const MeasuredProject& project);

inline constexpr std::size_t kOverviewMetrics = 10;

/// The figures as users read them, in UTF-8.
struct OverviewFigureTexts {
  std::string lblTotalNumberLines;
  /// The texts of `lblSizeMetrics1` to `lblSizeMetrics10`, in that order.
  std::array<std::string, kOverviewMetrics> lblSizeMetrics;
};

/// The number format of every overview figure: decimal style, at most one fraction digit, rounded half to
/// even. `locale` is an ICU locale name; the empty name means the user's own.
[[nodiscard]] DecimalFormatter overviewFormatter(const std::string& locale = {});

[[nodiscard]] OverviewFigureTexts overviewFigureTexts(const OverviewFigures& figures,
                                                      const DecimalFormatter& formatter);

/// `bytes` in units of 1024: "1,023 B", "1.5 KB", "12 MB"; MB is the largest unit.
[[nodiscard]] std::string sizeText(std::int64_t bytes, const DecimalFormatter& formatter);

}  // namespace quillmeter
