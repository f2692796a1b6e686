#include "xcode/CurrentKinds.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "support/Paths.h"
#include "xcode/Locations.h"

namespace quillmeter {
namespace {

using Table = std::unordered_map<std::string_view, CurrentKind>;

const Table& kindTable() {
  static const Table table = {{"c", CurrentKind::cSource},
                              {"cc", CurrentKind::cSource},
                              {"cp", CurrentKind::cSource},
                              {"cpp", CurrentKind::cSource},
                              {"cxx", CurrentKind::cSource},
                              {"c++", CurrentKind::cSource},
                              {"metal", CurrentKind::cSource},
                              {"h", CurrentKind::header},
                              {"hh", CurrentKind::header},
                              {"hp", CurrentKind::header},
                              {"hpp", CurrentKind::header},
                              {"hxx", CurrentKind::header},
                              {"h++", CurrentKind::header},
                              {"inl", CurrentKind::header},
                              {"ipp", CurrentKind::header},
                              {"pch", CurrentKind::header},
                              {"m", CurrentKind::objectiveC},
                              {"mm", CurrentKind::objectiveC},
                              {"swift", CurrentKind::swift},
                              {"xib", CurrentKind::interface},
                              {"storyboard", CurrentKind::interface},
                              {"jpg", CurrentKind::image},
                              {"jpeg", CurrentKind::image},
                              {"png", CurrentKind::image},
                              {"gif", CurrentKind::image},
                              {"tif", CurrentKind::image},
                              {"tiff", CurrentKind::image},
                              {"heic", CurrentKind::image},
                              {"webp", CurrentKind::image},
                              {"svg", CurrentKind::image},
                              {"icns", CurrentKind::image}};
  return table;
}

bool isInAssetCatalogue(std::string_view location) {
  const auto folders = pathComponents(parentLocation(location));
  return std::any_of(folders.begin(), folders.end(),
                     [](std::string_view folder) { return locationExtension(folder) == "xcassets"; });
}

}  // namespace

CurrentKind currentKind(std::string_view location) {
  const std::string extension = locationExtension(location);
  const auto found = kindTable().find(extension);
  if (found != kindTable().end()) return found->second;
  return extension == "pdf" && isInAssetCatalogue(location) ? CurrentKind::image : CurrentKind::other;
}

}  // namespace quillmeter
