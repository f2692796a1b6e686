#include "xcode/Description.h"

#include <new>
#include <optional>
#include <utility>

#include "files/ReadingFiles.h"
#include "support/Paths.h"

namespace quillmeter {
namespace {

std::string faultText(const PropertyListFault& fault) {
  return "project.pbxproj:" + std::to_string(fault.line) + ": " + fault.expected;
}

/// What keeps the file at `path` from being read at all; empty when nothing does.
std::string whyUnreadable(const FileSystem& fileSystem, const std::string& path) {
  const auto status = fileSystem.status(path);
  if (!status) return "expected a file, but there is none";
  if (status->type != FileStatus::Type::regular) return "expected a file, but it is none";
  if (status->size > PropertyList::kMaximumSize) return "expected at most 1 GiB";
  return {};
}

}  // namespace

std::variant<ObjectGraph, std::string> readDescription(const FileSystem& fileSystem,
                                                       const std::string& bundle) {
  const std::string path = joinedPath(bundle, "project.pbxproj");
  if (const std::string reason = whyUnreadable(fileSystem, path); !reason.empty())
    return faultText({1, reason});
  auto text = readWholeFile(fileSystem, path);
  if (!text) return faultText({1, "expected a file that can be read"});
  try {
    auto graph = ObjectGraph::read(*std::move(text));
    if (const auto* fault = std::get_if<PropertyListFault>(&graph)) return faultText(*fault);
    return std::get<ObjectGraph>(std::move(graph));
  } catch (const std::bad_alloc&) {
    return faultText({1, "expected a description that fits into memory"});
  }
}

}  // namespace quillmeter
