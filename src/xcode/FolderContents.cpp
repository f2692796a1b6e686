#include "xcode/FolderContents.h"

#include <cstddef>
#include <unordered_set>
#include <vector>

#include "xcode/Locations.h"

namespace quillmeter {
namespace {

/// A folder on the way down: how far its entries were gone through, and how much of the path is its own.
struct Level {
  const DiskView::Entries* entries;
  std::size_t next;
  std::size_t pathLength;
};

}  // namespace

bool isClosedFolder(std::string_view location) {
  static const std::unordered_set<std::string_view> closed = {
      "app",          "appex",       "bundle",         "dsym",      "docc",
      "framework",    "icon",        "kext",           "mlmodelc",  "mlpackage",
      "nib",          "playground",  "plugin",         "rtfd",      "scnassets",
      "storyboardc",  "swiftmodule", "xcappdata",      "xcarchive", "xcdatamodel",
      "xcdatamodeld", "xcframework", "xcmappingmodel", "xcodeproj", "xcplugin",
      "xcresult",     "xctest",      "xcworkspace",    "xpc"};
  return closed.contains(locationExtension(location));
}

void forEachFileIn(DiskView& disk, const std::string& folder,
                   const std::function<void(const std::string& path)>& action,
                   const std::function<bool(const std::string& folder)>& isEntered) {
  std::string path = folder == "/" ? std::string() : folder;
  std::vector<Level> levels = {{&disk.entries(folder), 0, path.size()}};
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.next == level.entries->size()) {
      levels.pop_back();
      continue;
    }
    const FolderEntry& entry = (*level.entries)[level.next++];
    if (entry.name.starts_with('.')) continue;
    path.resize(level.pathLength);
    path.append("/").append(entry.name);
    if (entry.type == FolderEntry::Type::file) action(path);
    if (entry.type == FolderEntry::Type::folder && !isClosedFolder(path) && isEntered(path))
      levels.push_back({&disk.entries(path), 0, path.size()});
  }
}

}  // namespace quillmeter
