#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "charts/ChartKind.h"
#include "measuring/FileObject.h"

namespace quillmeter {

/// What the details panel says about the file of one bar.
struct ChartAdvice {
  std::string fileName;
  std::string value;                  ///< the file's own measure
  std::string average;                ///< the chart's average measure
  std::optional<std::string> advice;  ///< absent when the two cannot be compared (0 against an average of 0)
};

/// The verdict on `file` in the bar chart `kind`, whose average measure is `average`. Absent for a pie.
[[nodiscard]] std::optional<ChartAdvice> chartAdvice(ChartKind kind, const FileObject& file, double average);

/// A measure as users read it: "12 lines", "1.5 KB", "3.0 MB". Units of 1024; a size of 1024 KB or more is in
/// MB.
[[nodiscard]] std::string barValueText(ChartKind kind, const FileObject& file);

}  // namespace quillmeter
