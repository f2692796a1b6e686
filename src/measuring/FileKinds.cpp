#include "measuring/FileKinds.h"

#include <algorithm>
#include <utility>

#include "measuring/FileObject.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

/// Whether a folder of the path has the extension "xcassets", in any letter case.
bool liesInAssetCatalogue(std::string_view path) {
  auto folders = pathComponents(path);
  folders.pop_back();
  return std::any_of(folders.begin(), folders.end(), [](std::string_view folder) {
    return folder.find('.') != std::string_view::npos && lowerCased(textAfterLastDot(folder)) == "xcassets";
  });
}

}  // namespace

FileKindTable::FileKindTable(std::vector<FileGroupEntry> groups, std::vector<FileKindEntry> entries)
    : groups_(std::move(groups)), entries_(std::move(entries)) {
  for (const FileGroupEntry& entry : groups_)
    kindOfGroup_.at(static_cast<std::size_t>(entry.group)) = entry.kind;
  firstOfSlot_.fill(entries_.size());
  nextOfSlot_.resize(entries_.size());
  for (std::size_t i = entries_.size(); i-- > 0;)
    nextOfSlot_[i] = std::exchange(firstOfSlot_.at(slot(entries_[i].extension)), i);
  for (const FileKindEntry& entry : entries_) {
    longest_ = std::max(longest_, entry.extension.size());
    if (find(entry.extension) == &entry && !entry.isOnlyListed)
      extensions_[static_cast<std::size_t>(row(entry.group).kind)].push_back(entry.extension);
  }
}

FileGroups FileKindTable::allGroups() const {
  FileGroups all;
  for (const FileGroupEntry& entry : groups_)
    all.insert(entry.group);
  return all;
}

FileGroups FileKindTable::chosenBy(FileGroup group) const {
  FileGroups groups{group};
  for (const FileGroupEntry& entry : groups_) {
    if (entry.chosenWith == group) groups.insert(entry.group);
  }
  return groups;
}

const FileGroupEntry& FileKindTable::row(FileGroup group) const {
  return *std::find_if(groups_.begin(), groups_.end(),
                       [group](const FileGroupEntry& entry) { return entry.group == group; });
}

/// A walk asks for each of a million names, and most of them lead to a slot without entries.
std::size_t FileKindTable::slot(std::string_view extension) {
  const std::size_t last = extension.empty() ? 0 : static_cast<unsigned char>(extension.back());
  return (last + 7 * extension.size()) % kSlots;
}

const FileKindEntry* FileKindTable::find(std::string_view lowerCasedExtension) const {
  for (std::size_t i = firstOfSlot_[slot(lowerCasedExtension)]; i < entries_.size(); i = nextOfSlot_[i]) {
    // Letter by letter: these texts are too short for a call of the library's comparison to pay.
    const std::string_view known = entries_[i].extension;
    if (std::equal(known.begin(), known.end(), lowerCasedExtension.begin(), lowerCasedExtension.end()))
      return &entries_[i];
  }
  return nullptr;
}

const FileKindEntry* FileKindTable::find(const FileObject& file) const {
  const auto extension = file.getFileExtension();
  return extension ? find(*extension) : nullptr;
}

FileKind FileKindTable::kindOf(const FileKindEntry* entry) const {
  return entry == nullptr || entry->isOnlyListed ? FileKind::none
                                                 : kindOfGroup_[static_cast<std::size_t>(entry->group)];
}

FileKind FileKindTable::kindOfPath(std::string_view path) const {
  const std::string_view extension = textAfterLastDot(path);
  // Lower-casing makes no text shorter than a third of it and an ASCII text no shorter at all, so a long one
  // is of no kind and needs no copy.
  if (extension.size() > longest_ && (extension.size() > 3 * longest_ || isAscii(extension)))
    return FileKind::none;
  const FileKindEntry* entry = find(lowerCased(extension));
  if (entry != nullptr && entry->isOnlyInAssetCatalogues && !liesInAssetCatalogue(path))
    return FileKind::none;
  return kindOf(entry);
}

std::vector<std::string_view> FileKindTable::extensions(FileGroup group) const {
  std::vector<std::string_view> result;
  for (const FileKindEntry& entry : entries_) {
    if (entry.group == group && !entry.isOnlyListed) result.push_back(entry.extension);
  }
  return result;
}

std::vector<std::string_view> FileKindTable::listedExtensions(const FileGroups& groups) const {
  std::vector<std::string_view> result;
  for (const FileKindEntry& entry : entries_) {
    if (groups.contains(entry.group)) result.push_back(entry.extension);
  }
  return result;
}

bool isOneOf(std::string_view extension, std::span<const std::string_view> formats) {
  return std::find(formats.begin(), formats.end(), extension) != formats.end();
}

std::string extensionsText(std::span<const std::string_view> extensions, std::string_view lastSeparator) {
  std::vector<std::string> pieces;
  for (const std::string_view extension : extensions)
    pieces.push_back("." + std::string(extension));
  return listInWords(pieces, lastSeparator);
}

}  // namespace quillmeter
