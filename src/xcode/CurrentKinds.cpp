#include "xcode/CurrentKinds.h"

#include "support/Paths.h"

namespace quillmeter {

const FileKindTable& currentKinds() {
  using enum FileGroup;
  static const FileKindTable table(
      {
          {c, FileKind::code, "c", "C and C++ sources", "source", "c/cpp files"},
          {headers, FileKind::code, "headers", "header files", "header", "h/hh files"},
          {objectiveC, FileKind::code, "objc", "Objective-C sources", "source", "m/mm files"},
          {swift, FileKind::code, "swift", "Swift sources", "source", "swift files"},
          {images, FileKind::image, "images", "images", "image", "image files"},
          {interfaceFiles, FileKind::interface, "xib", "interface files", "XIB", "xib files"},
          {storyboards, FileKind::interface, "storyboards", "storyboards", "storyboard", "storyboard files",
           interfaceFiles},
      },
      {
          {.extension = "c", .group = c, .picture = "icon_extension_c"},
          {.extension = "cc", .group = c, .picture = "icon_extension_cpp"},
          {.extension = "cp", .group = c, .picture = "icon_extension_cpp"},
          {.extension = "cpp", .group = c, .picture = "icon_extension_cpp"},
          {.extension = "cxx", .group = c, .picture = "icon_extension_cpp"},
          {.extension = "c++", .group = c, .picture = "icon_extension_cpp"},
          {.extension = "metal", .group = c, .picture = "icon_extension_cpp"},
          {.extension = "h", .group = headers, .picture = "icon_extension_h"},
          {.extension = "hh", .group = headers, .picture = "icon_extension_h"},
          {.extension = "hp", .group = headers, .picture = "icon_extension_h"},
          {.extension = "hpp", .group = headers, .picture = "icon_extension_h"},
          {.extension = "hxx", .group = headers, .picture = "icon_extension_h"},
          {.extension = "h++", .group = headers, .picture = "icon_extension_h"},
          {.extension = "inl", .group = headers, .picture = "icon_extension_h"},
          {.extension = "ipp", .group = headers, .picture = "icon_extension_h"},
          {.extension = "pch", .group = headers, .picture = "icon_extension_h"},
          {.extension = "m", .group = objectiveC, .picture = "icon_extension_m"},
          {.extension = "mm", .group = objectiveC, .picture = "icon_extension_m"},
          {.extension = "swift", .group = swift, .picture = "icon_extension_swift"},
          {.extension = "jpg", .group = images, .picture = "icon_extension_image"},
          {.extension = "jpeg", .group = images, .picture = "icon_extension_image"},
          {.extension = "png", .group = images, .picture = "icon_extension_image"},
          {.extension = "gif", .group = images, .picture = "icon_extension_image"},
          {.extension = "tif", .group = images, .picture = "icon_extension_image"},
          {.extension = "tiff", .group = images, .picture = "icon_extension_image"},
          {.extension = "heic", .group = images, .picture = "icon_extension_image"},
          {.extension = "webp", .group = images, .picture = "icon_extension_image"},
          {.extension = "svg", .group = images, .picture = "icon_extension_image"},
          {.extension = "pdf",
           .group = images,
           .picture = "icon_extension_image",
           .isOnlyInAssetCatalogues = true},
          {.extension = "icns", .group = images, .picture = "icon_extension_icns", .isIconSet = true},
          {.extension = "xib", .group = interfaceFiles, .picture = "icon_extension_xib"},
          {.extension = "storyboard", .group = storyboards, .picture = "icon_extension_xib"},
      });
  return table;
}

const FileKindTable& kindsBy(ProjectRules rules) {
  return rules == ProjectRules::current ? currentKinds() : classicKinds();
}

FileKind currentKind(std::string_view location) {
  if (lastPathComponent(location).find('.') == std::string_view::npos) return FileKind::none;
  return currentKinds().kindOfPath(location);
}

}  // namespace quillmeter
