#include "xcode/DiskView.h"

#include "files/ReadingFiles.h"

namespace quillmeter {
namespace {

using Type = FolderEntry::Type;

/// The type of an entry of an open folder, links followed to files alone.
Type typeOf(const FileSystem& fileSystem, const Descriptor& folder, const std::string& name, EntryType type) {
  if (type == EntryType::unknown) {
    const auto asked = fileSystem.entryType(folder, name.c_str());
    type = asked ? *asked : EntryType::other;
  }
  if (type == EntryType::folder) return Type::folder;
  if (type == EntryType::regular) return Type::file;
  if (type != EntryType::link) return Type::neither;
  const auto target = fileSystem.statusInFolder(folder, name);
  return target && target->type == FileStatus::Type::regular ? Type::file : Type::neither;
}

}  // namespace

std::optional<FileStatus::Type> DiskView::typeAt(const std::string& path) {
  const auto status = fileSystem_.status(path);
  noteOrFail(path, status.error());
  if (!status) return std::nullopt;
  return status->type;
}

const DiskView::Entries& DiskView::entries(const std::string& folder) {
  const auto found = entries_.find(folder);
  return found != entries_.end() ? found->second : entries_.emplace(folder, listed(folder)).first->second;
}

std::vector<std::string> DiskView::listedFolders() const {
  std::vector<std::string> folders;
  for (const auto& entry : entries_)
    folders.push_back(entry.first);
  return folders;
}

std::string DiskView::textOf(const std::string& path) {
  auto text = readWholeFile(fileSystem_, path, kLargestText);
  noteOrFail(path, text.error());
  return text ? *std::move(text) : std::string();
}

DiskView::Entries DiskView::listed(const std::string& path) {
  Entries entries;
  const auto folder = fileSystem_.openListing(path, FileSystem::Links::follow);
  if (!folder) {
    noteOrFail(path, folder.error());
    return entries;
  }
  FolderListing listing;
  for (bool more = true; more;) {
    const auto listed = fileSystem_.listSome(*folder, listing);
    noteOrFail(path, listed.error());
    more = listed && *listed;
  }
  listing.sort();
  entries.reserve(listing.entries().size());
  for (const FolderListing::Entry& entry : listing.entries()) {
    std::string name(listing.name(entry));
    const Type type = typeOf(fileSystem_, *folder, name, entry.type);
    entries.push_back({std::move(name), type});
  }
  return entries;
}

/// Without descriptors the figures would be too small; what else fails is one folder's matter.
void DiskView::noteOrFail(const std::string& path, DiskError error) {
  if (error.kind() == DiskError::Kind::fewDescriptors) throw TooFewDescriptors(path, error);
  faults_.note(path, error);
}

}  // namespace quillmeter
