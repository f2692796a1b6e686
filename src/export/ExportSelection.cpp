#include "export/ExportSelection.h"

#include <algorithm>
#include <utility>

#include "support/Text.h"

namespace quillmeter {
namespace {

std::string keys(const FileKindTable& kinds, std::string_view separator, std::string_view lastSeparator) {
  std::vector<std::string_view> keys;
  for (const FileGroupEntry& entry : kinds.groups()) {
    if (!entry.chosenWith) keys.push_back(entry.key);
  }
  std::string text;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (i > 0) text.append(i + 1 < keys.size() ? separator : lastSeparator);
    text.append(keys[i]);
  }
  return text;
}

/// The entries of a list; at least one, which may be empty.
std::vector<std::string_view> split(std::string_view list) {
  std::vector<std::string_view> entries;
  for (std::size_t comma = list.find(','); comma != std::string_view::npos; comma = list.find(',')) {
    entries.push_back(list.substr(0, comma));
    list.remove_prefix(comma + 1);
  }
  entries.push_back(list);
  return entries;
}

/// Null when no group that can be chosen has that key.
const FileGroupEntry* groupOfKey(std::string_view key, const FileKindTable& kinds) {
  for (const FileGroupEntry& entry : kinds.groups()) {
    if (!entry.chosenWith && entry.key == key) return &entry;
  }
  return nullptr;
}

}  // namespace

std::optional<FileGroups> fileGroupsNamed(std::string_view list, const FileKindTable& kinds) {
  FileGroups groups;
  for (const std::string_view key : split(list)) {
    const FileGroupEntry* const known = groupOfKey(key, kinds);
    if (known == nullptr) return std::nullopt;
    groups.insert(kinds.chosenBy(known->group));
  }
  return groups;
}

std::optional<std::string> wrongFileGroupKey(std::string_view list, const FileKindTable& kinds) {
  for (const std::string_view key : split(list)) {
    if (groupOfKey(key, kinds) == nullptr) return std::string(key);
  }
  return std::nullopt;
}

std::string fileGroupKeys(const FileKindTable& kinds) {
  return keys(kinds, ",", ",");
}

std::string fileGroupKeysInWords(const FileKindTable& kinds) {
  return keys(kinds, ", ", " and ");
}

const FileGroupEntry* exportGroup(const FileObject& file, const FileGroups& groups,
                                  const FileKindTable& kinds) {
  const FileKindEntry* entry = kinds.find(file);
  if (kinds.kindOf(entry) == FileKind::none || !groups.contains(entry->group)) return nullptr;
  return &kinds.row(entry->group);
}

std::vector<ExportedFile> filesToExport(const FileList& files, const FileGroups& groups,
                                        const FileKindTable& kinds) {
  // Folding a name costs far more than comparing two folded ones, so each is folded once.
  struct Keyed {
    std::string key;
    ExportedFile exported;
  };
  std::vector<Keyed> kept;
  for (const auto& file : files) {
    if (!file) continue;
    const FileGroupEntry* group = exportGroup(*file, groups, kinds);
    if (group != nullptr) kept.push_back({caseFoldKey(file->fileName().value_or("")), {file, group}});
  }
  std::stable_sort(kept.begin(), kept.end(), [](const Keyed& a, const Keyed& b) { return a.key < b.key; });
  std::vector<ExportedFile> result;
  result.reserve(kept.size());
  for (Keyed& entry : kept)
    result.push_back(std::move(entry.exported));
  return result;
}

}  // namespace quillmeter
