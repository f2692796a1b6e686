#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "measuring/FileKinds.h"

namespace quillmeter {

using ReportExtensions = std::span<const std::string_view>;

/// The groups that a report sorts its files into, made from a table of kinds once and kept beside it. The
/// table must outlive this. Extensions are lower-cased; one that the table does not know is of no group.
class ReportGroups {
 public:
  explicit ReportGroups(const FileKindTable& kinds);

  /// The extensions of each group, in the order of the groups in the report.
  [[nodiscard]] std::span<const std::vector<std::string_view>> order() const { return order_; }
  /// The extensions of the group that `extension` belongs to; nothing for an extension of no group. Their
  /// order differs from that in `order`.
  [[nodiscard]] std::optional<ReportExtensions> groupOf(std::string_view extension) const;
  /// Which of the groups in `order` that is.
  [[nodiscard]] std::optional<std::size_t> indexOf(std::string_view extension) const;
  /// What the report calls that group; empty for an extension of no group.
  [[nodiscard]] std::string_view labelOf(std::string_view extension) const;
  /// Whether the report shows line counts for files of this extension. It does so for code, but not for "mm".
  [[nodiscard]] bool showsLineCounts(std::string_view extension) const;

 private:
  const FileKindTable& kinds_;
  std::vector<std::vector<std::string_view>> order_;
  std::vector<std::vector<std::string_view>>
      lookUp_;  ///< the same groups, with their extensions as looked up
};

}  // namespace quillmeter
