#pragma once

#include <array>
#include <string>
#include <string_view>

#include "overview/OverviewFigures.h"

namespace quillmeter {

class FileKindTable;

/// How one overview figure is named and what it means. The panel's captions and tool tips, the command-line
/// tool's table and docs/metrics.md all say the same because they take it from here (tests compare the ones
/// that are written by hand).
struct OverviewCaption {
  std::string_view key;      ///< for machines: lower camel case, never changes
  std::string_view caption;  ///< for people, beside the figure
  std::string definition;    ///< one or two sentences: what is counted and what is not
};

/// Entry i belongs to `lblSizeMetrics` i + 1.
using OverviewCaptions = std::array<OverviewCaption, kOverviewMetrics>;

/// The place of the interface files among them.
inline constexpr std::size_t kInterfaceFilesMetric = 8;

/// The captions for a project of `kinds`, whose extensions the definitions name.
[[nodiscard]] OverviewCaptions overviewCaptions(const FileKindTable& kinds);

/// The large figure. It is the same number as the second metric.
[[nodiscard]] OverviewCaption totalLinesCaption(const FileKindTable& kinds);

}  // namespace quillmeter
