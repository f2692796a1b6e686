#include "measuring/FileKinds.h"

#include <algorithm>

#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {

bool isOneOf(std::string_view extension, std::span<const std::string_view> formats) {
  return std::find(formats.begin(), formats.end(), extension) != formats.end();
}

FileKind fileKind(std::string_view lowerCasedExtension) {
  if (isOneOf(lowerCasedExtension, acceptedCodeFileFormats)) return FileKind::code;
  if (isOneOf(lowerCasedExtension, acceptedImagesFormats)) return FileKind::image;
  return isOneOf(lowerCasedExtension, acceptedOtherFormats) ? FileKind::interface : FileKind::none;
}

FileKind fileKindOfPath(std::string_view path) {
  const std::string_view extension = textAfterLastDot(path);
  // Lower-casing makes no text shorter than a third of it, so a long one is of no kind and needs no copy.
  constexpr std::size_t longestKnown = 4;
  if (extension.size() > 3 * longestKnown) return FileKind::none;
  return fileKind(lowerCased(extension));
}

}  // namespace quillmeter
