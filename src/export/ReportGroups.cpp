#include "export/ReportGroups.h"

#include <algorithm>

namespace quillmeter {

ReportGroups::ReportGroups(const FileKindTable& kinds) : kinds_(kinds) {
  for (const FileGroupEntry& group : kinds.groups()) {
    order_.push_back(kinds.extensions(group.group));
    lookUp_.push_back(order_.back());
    std::stable_partition(lookUp_.back().begin(), lookUp_.back().end(), [&kinds](std::string_view extension) {
      return kinds.find(extension)->isFirstOfItsGroup;
    });
  }
}

std::optional<std::size_t> ReportGroups::indexOf(std::string_view extension) const {
  for (std::size_t group = 0; group < order_.size(); ++group) {
    if (isOneOf(extension, order_[group])) return group;
  }
  return std::nullopt;
}

std::optional<ReportExtensions> ReportGroups::groupOf(std::string_view extension) const {
  const auto group = indexOf(extension);
  return group ? std::optional<ReportExtensions>(lookUp_[*group]) : std::nullopt;
}

std::string_view ReportGroups::labelOf(std::string_view extension) const {
  const auto group = indexOf(extension);
  return group ? kinds_.groups()[*group].reportLabel : std::string_view();
}

bool ReportGroups::showsLineCounts(std::string_view extension) const {
  const FileKindEntry* entry = kinds_.find(extension);
  return kinds_.kindOf(entry) == FileKind::code && !entry->hasNoReportLines;
}

}  // namespace quillmeter
