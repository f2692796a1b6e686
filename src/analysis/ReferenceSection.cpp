#include "analysis/ReferenceSection.h"

#include <algorithm>
#include <array>

#include "measuring/FileKinds.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

/// Piece 0 of `text` split at every `separator`.
std::string_view firstPiece(std::string_view text, std::string_view separator) {
  return text.substr(0, text.find(separator));
}

/// Piece 1 of `text` split at every `separator`; absent when there is only one piece.
std::optional<std::string_view> secondPiece(std::string_view text, std::string_view separator) {
  const std::size_t found = text.find(separator);
  if (found == std::string_view::npos) return std::nullopt;
  return firstPiece(text.substr(found + separator.size()), separator);
}

}  // namespace

std::optional<std::string_view> referenceSection(std::string_view project) {
  constexpr std::string_view begin = "/* Begin PBXFileReference section */";
  constexpr std::string_view end = "/* End PBXFileReference section */";
  const std::size_t first = project.find(begin);
  if (first == std::string_view::npos) return std::nullopt;
  project.remove_prefix(first + begin.size());
  const std::size_t last = project.find(end);
  if (last == std::string_view::npos) return std::nullopt;
  return trimmed(project.substr(0, last));
}

namespace {

std::optional<std::string> pathOfAnyKind(std::string_view line) {
  const auto entries = secondPiece(line, "*/ = {");
  if (!entries) return std::nullopt;
  const auto value = secondPiece(trimmed(firstPiece(*entries, "}")), "path =");
  if (!value) return std::nullopt;
  std::string path(trimmed(firstPiece(*value, ";")));
  if (path.starts_with('"')) std::erase(path, '"');
  return path;
}

}  // namespace

std::optional<std::string> referencedPath(std::string_view line, const FileKindTable& kinds) {
  auto path = pathOfAnyKind(line);
  if (path && kinds.kindOfPath(*path) == FileKind::none) path.reset();
  return path;
}

std::optional<std::string> extensionOfOtherReference(std::string_view line) {
  const auto path = pathOfAnyKind(line);
  return path ? std::optional(lowerCased(pathExtension(*path))) : std::nullopt;
}

bool refersToFolders(std::string_view project) {
  constexpr std::array<std::string_view, 3> words = {
      "PBXFileSystemSynchronizedRootGroup", "XCLocalSwiftPackageReference", "lastKnownFileType = folder;"};
  return std::any_of(words.begin(), words.end(), [project](std::string_view word) {
    return project.find(word) != std::string_view::npos;
  });
}

std::string referenceIdentifier(std::string_view line) {
  line = trimmed(line);
  return std::string(line.substr(0, line.find_first_of(" \t/=")));
}

}  // namespace quillmeter
