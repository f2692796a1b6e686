#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

/// The groups that a report sorts its files into. Extensions are lower-cased.
namespace quillmeter {

using ReportExtensions = std::span<const std::string_view>;

/// The extensions of each group, in the order of the groups in the report.
[[nodiscard]] const std::array<ReportExtensions, 5>& reportOrder();

/// The extensions of the group that `extension` belongs to; nothing for an extension of no group.
[[nodiscard]] std::optional<ReportExtensions> reportGroup(std::string_view extension);

/// What the report calls the group that `extension` belongs to; empty for an extension of no group.
[[nodiscard]] std::string_view reportGroupLabel(std::string_view extension);

/// Whether the report shows line counts for files of this extension. It does so for code, but not for "mm".
[[nodiscard]] bool showsLineCounts(std::string_view extension);

}  // namespace quillmeter
