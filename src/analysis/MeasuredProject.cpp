#include "analysis/MeasuredProject.h"

#include <algorithm>

#include "measuring/FileKinds.h"

namespace quillmeter {

bool MeasuredProject::fileIsOfTypeAndFile(std::span<const std::string_view> extensions,
                                          const FileObject& file) {
  const auto extension = file.getFileExtension();
  return extension && isOneOf(*extension, extensions);
}

bool MeasuredProject::isSourceFileType(const FileObject& file) const {
  return fileIsOfTypeAndFile(acceptedCodeFileFormats, file);
}
bool MeasuredProject::isXIBFileType(const FileObject& file) const {
  return fileIsOfTypeAndFile(acceptedOtherFormats, file);
}
bool MeasuredProject::isImageFileType(const FileObject& file) const {
  return fileIsOfTypeAndFile(acceptedImagesFormats, file);
}
bool MeasuredProject::isImageFileTypeWithoutICNS(const FileObject& file) const {
  return fileIsOfTypeAndFile(kImageFormatsWithoutIcons, file);
}
bool MeasuredProject::isSourceFileForRegex(const FileObject& file) const {
  return fileIsOfTypeAndFile(kFormatsForRegex, file);
}

std::size_t MeasuredProject::countOfKind(std::span<const std::string_view> extensions) const {
  return static_cast<std::size_t>(std::count_if(files().begin(), files().end(), [&](const auto& file) {
    return fileIsOfTypeAndFile(extensions, *file);
  }));
}

std::size_t MeasuredProject::getNumberCodeFiles() const {
  return countOfKind(acceptedCodeFileFormats);
}
std::size_t MeasuredProject::getNumberImageFiles() const {
  return countOfKind(acceptedImagesFormats);
}
std::size_t MeasuredProject::getNumberXIBFiles() const {
  return countOfKind(acceptedOtherFormats);
}

const FileList& MeasuredProject::files() const {
  static const FileList none;
  return arrayFiles_ ? *arrayFiles_ : none;
}

}  // namespace quillmeter
