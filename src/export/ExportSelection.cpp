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

}  // namespace

std::optional<FileGroups> fileGroupsNamed(std::string_view list, const FileKindTable& kinds) {
  FileGroups groups;
  for (bool more = true; more;) {
    const std::size_t comma = list.find(',');
    const std::string_view key = list.substr(0, comma);
    const auto known =
        std::find_if(kinds.groups().begin(), kinds.groups().end(),
                     [key](const FileGroupEntry& entry) { return !entry.chosenWith && entry.key == key; });
    if (known == kinds.groups().end()) return std::nullopt;
    groups.insert(kinds.chosenBy(known->group));
    more = comma != std::string_view::npos;
    if (more) list.remove_prefix(comma + 1);
  }
  return groups;
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
