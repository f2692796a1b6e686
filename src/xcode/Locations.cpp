#include "xcode/Locations.h"

#include "support/Paths.h"

namespace quillmeter {

Locations::Id Locations::joined(Id folder, std::string_view path) {
  for (;;) {
    const std::size_t slash = path.find('/');
    const std::string_view name = path.substr(0, slash);
    if (name == "..") {
      folder = piece(folder).parent;
    } else if (!name.empty() && name != ".") {
      pieces_.push_back({folder, name});
      folder = static_cast<Id>(pieces_.size() - 1);
    }
    if (slash == std::string_view::npos) return folder;
    path.remove_prefix(slash + 1);
  }
}

std::string Locations::text(Id location) const {
  std::size_t size = 0;
  for (Id i = location; i != kRoot; i = piece(i).parent)
    size += 1 + piece(i).name.size();
  if (size == 0) return "/";
  std::string result(size, '/');
  for (Id i = location; i != kRoot; i = piece(i).parent) {
    const std::string_view name = piece(i).name;
    size -= name.size();
    result.replace(size--, name.size(), name);
  }
  return result;
}

std::string normalisedLocation(std::string_view folder, std::string_view path) {
  Locations locations;
  return locations.text(locations.joined(locations.joined(Locations::kRoot, folder), path));
}

std::string_view parentLocation(std::string_view location) {
  const std::size_t slash = location.rfind('/');
  return location.substr(0, slash == 0 ? 1 : slash);
}

bool isBelow(std::string_view location, std::string_view folder) {
  if (folder == "/") return location.size() > 1;
  return location.size() > folder.size() && location.starts_with(folder) && location[folder.size()] == '/';
}

std::string locationExtension(std::string_view location) {
  std::string extension(pathExtension(location));
  for (char& c : extension)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return extension;
}

}  // namespace quillmeter
