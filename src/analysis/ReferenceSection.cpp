#include "analysis/ReferenceSection.h"

#include <algorithm>

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

std::optional<std::string> referencedPathOfAnyKind(std::string_view line) {
  const auto entries = secondPiece(line, "*/ = {");
  if (!entries) return std::nullopt;
  const auto value = secondPiece(trimmed(firstPiece(*entries, "}")), "path =");
  if (!value) return std::nullopt;
  std::string path(trimmed(firstPiece(*value, ";")));
  if (path.starts_with('"')) std::erase(path, '"');
  return path;
}

std::optional<std::string> referencedPath(std::string_view line, const FileKindTable& kinds) {
  auto path = referencedPathOfAnyKind(line);
  if (path && kinds.kindOfPath(*path) == FileKind::none) path.reset();
  return path;
}

bool isFolderReference(std::string_view line) {
  return findPiece(line, "FileType = folder;") != std::string_view::npos;
}

bool hasOtherFolders(std::string_view project) {
  return findPiece(project, "PBXFileSystemSynchronizedRootGroup") != std::string_view::npos ||
         findPiece(project, "XCLocalSwiftPackageReference") != std::string_view::npos;
}

std::string referenceIdentifier(std::string_view line) {
  line = trimmed(line);
  return std::string(line.substr(0, line.find_first_of(" \t/=")));
}

}  // namespace quillmeter
