#include "analysis/MeasuredProject.h"

#include <algorithm>

namespace quillmeter {

bool MeasuredProject::fileIsOfTypeAndFile(std::span<const std::string_view> extensions,
                                          const FileObject& file) {
  const auto extension = file.getFileExtension();
  return extension && isOneOf(*extension, extensions);
}

bool MeasuredProject::isSourceFileType(const FileObject& file) const {
  return kinds_.kind(file) == FileKind::code;
}
bool MeasuredProject::isXIBFileType(const FileObject& file) const {
  return kinds_.kind(file) == FileKind::interface;
}
bool MeasuredProject::isImageFileType(const FileObject& file) const {
  return kinds_.kind(file) == FileKind::image;
}
bool MeasuredProject::isImageFileTypeWithoutICNS(const FileObject& file) const {
  const FileKindEntry* entry = kinds_.find(file);
  return kinds_.kindOf(entry) == FileKind::image && !entry->isIconSet;
}
bool MeasuredProject::isSourceFileForRegex(const FileObject& file) const {
  const FileKindEntry* entry = kinds_.find(file);
  return entry != nullptr && entry->hasMethods;
}

std::size_t MeasuredProject::countOfKind(FileKind kind) const {
  return static_cast<std::size_t>(std::count_if(
      files().begin(), files().end(), [&](const auto& file) { return kinds_.kind(*file) == kind; }));
}

std::size_t MeasuredProject::getNumberCodeFiles() const {
  return countOfKind(FileKind::code);
}
std::size_t MeasuredProject::getNumberImageFiles() const {
  return countOfKind(FileKind::image);
}
std::size_t MeasuredProject::getNumberXIBFiles() const {
  return countOfKind(FileKind::interface);
}

const FileList& MeasuredProject::files() const {
  static const FileList none;
  return arrayFiles_ ? *arrayFiles_ : none;
}

}  // namespace quillmeter
