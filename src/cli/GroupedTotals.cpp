#include "cli/GroupedTotals.h"

#include <algorithm>
#include <map>
#include <utility>

#include "cli/JsonWriter.h"
#include "cli/TextColumns.h"
#include "overview/OverviewFigures.h"
#include "support/NumberFormat.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

void add(GroupTotals& group, const FileObject& file) {
  ++group.files;
  for (std::size_t i = 0; i < kFileCounters; ++i)
    group.counters[i] = wrappingSum(group.counters[i], integerValue((file.*kFileCounterFields[i].value)()));
}

std::vector<GroupTotals> byTarget(const MeasuredProject& project) {
  std::vector<GroupTotals> groups;
  std::vector<bool> isInTarget(project.files().size());
  for (const ProjectTarget& target : project.findings().targets) {
    GroupTotals& group = groups.emplace_back(GroupTotals{.name = target.name});
    for (const std::uint32_t index : target.files) {
      add(group, *project.files()[index]);
      isInTarget[index] = true;
    }
  }
  GroupTotals none{.name = "no target"};
  for (std::size_t i = 0; i < project.files().size(); ++i)
    if (!isInTarget[i]) add(none, *project.files()[i]);
  if (none.files > 0) groups.push_back(std::move(none));
  return groups;
}

/// The folder group of a file at `path`, for a project in `folder`: its name behind whether it lies
/// elsewhere, since a folder below the project's may be called "outside", too.
std::pair<bool, std::string> folderGroup(std::string_view path, std::string_view folder) {
  const std::string prefix = folder == "/" ? "/" : std::string(folder) + "/";
  if (!path.starts_with(prefix)) return {true, "outside"};
  path.remove_prefix(prefix.size());
  const std::size_t slash = path.find('/');
  return {false, slash == std::string_view::npos ? "." : std::string(path.substr(0, slash))};
}

std::vector<GroupTotals> byFolder(const MeasuredProject& project) {
  std::map<std::pair<bool, std::string>, GroupTotals> groups;
  for (const auto& file : project.files())
    add(groups[folderGroup(file->filePath().value_or(""), project.findings().folder)], *file);
  std::vector<GroupTotals> sorted;
  for (auto& [key, group] : groups) {
    group.name = key.second;
    sorted.push_back(std::move(group));
  }
  return sorted;
}

std::vector<GroupTotals> byKind(const MeasuredProject& project) {
  std::vector<GroupTotals> groups;
  for (const FileGroupEntry& entry : project.kinds().groups()) {
    GroupTotals group{.name = std::string(entry.name)};
    for (const auto& file : project.files()) {
      const FileKindEntry* kind = project.kinds().find(*file);
      if (kind != nullptr && kind->group == entry.group) add(group, *file);
    }
    if (group.files > 0) groups.push_back(std::move(group));
  }
  return groups;
}

std::string_view headerOf(Grouping grouping) {
  switch (grouping) {
    case Grouping::target:
      return "Target";
    case Grouping::folder:
      return "Folder";
    case Grouping::kind:
      break;
  }
  return "Kind";
}

}  // namespace

std::vector<GroupTotals> groupedTotals(const MeasuredProject& project, Grouping grouping) {
  if (grouping == Grouping::target) return byTarget(project);
  return grouping == Grouping::folder ? byFolder(project) : byKind(project);
}

void writeGroups(const std::vector<GroupTotals>& groups, Grouping grouping, Output& output) {
  const DecimalFormatter formatter = overviewFormatter();
  std::vector<std::vector<std::string>> rows{{std::string(headerOf(grouping)), "Files", "Lines", "Non-empty",
                                              "Comments", "Words", "Characters", "Size"}};
  for (const GroupTotals& group : groups) {
    std::vector<std::string> row{onOneLine(group.name), formatter.format(group.files)};
    // In the order of the fields: after the size come lines, comments, non-empty lines, words, characters
    // without and with white space.
    for (const std::size_t counter : {1U, 3U, 2U, 4U, 6U})
      row.push_back(formatter.format(group.counters[counter]));
    row.push_back(sizeText(group.counters[0], formatter));
    rows.push_back(std::move(row));
  }
  writeTextColumns(rows, {0}, output);
}

void writeGroups(const std::vector<GroupTotals>& groups, JsonWriter& json) {
  json.beginArray();
  for (const GroupTotals& group : groups) {
    json.beginObject();
    json.member("name", std::string_view(group.name));
    json.member("files", static_cast<std::int64_t>(group.files));
    for (std::size_t i = 0; i < kFileCounters; ++i)
      json.member(kFileCounterFields[i].name, group.counters[i]);
    json.endObject();
  }
  json.endArray();
}

}  // namespace quillmeter
