#include "measuring/FileKinds.h"

namespace quillmeter {

const FileKindTable& classicKinds() {
  using enum FileGroup;
  static const FileKindTable table(
      {
          {c, FileKind::code, "c", "C and C++ sources", "source", "c/cpp files"},
          {headers, FileKind::code, "headers", "header files", "header", "h/hh files"},
          {objectiveC, FileKind::code, "objc", "Objective-C sources", "source", "m/mm files"},
          {images, FileKind::image, "images", "images", "image", "image files"},
          {interfaceFiles, FileKind::interface, "xib", "interface files", "XIB", "xib files"},
      },
      {
          {.extension = "c", .group = c, .picture = "icon_extension_c", .hasMethods = true},
          {.extension = "cpp", .group = c, .picture = "icon_extension_cpp", .hasMethods = true},
          {.extension = "h", .group = headers, .picture = "icon_extension_h"},
          {.extension = "hh", .group = headers, .picture = "icon_extension_h"},
          {.extension = "m", .group = objectiveC, .picture = "icon_extension_m", .hasMethods = true},
          // Reports have always shown dashes for the lines of such a file.
          {.extension = "mm",
           .group = objectiveC,
           .picture = "icon_extension_m",
           .hasMethods = true,
           .hasNoReportLines = true},
          {.extension = "pch", .group = headers, .picture = "icon_extension_h"},
          {.extension = "jpg", .group = images, .picture = "icon_extension_image"},
          {.extension = "png", .group = images, .picture = "icon_extension_image", .isFirstOfItsGroup = true},
          {.extension = "tiff", .group = images, .picture = "icon_extension_image"},
          {.extension = "icns", .group = images, .picture = "icon_extension_icns", .isIconSet = true},
          {.extension = "xib", .group = interfaceFiles, .picture = "icon_extension_xib"},
          // The compiled ones have a place in the filter of interface files and nowhere else.
          {.extension = "nib", .group = interfaceFiles, .picture = kOtherPicture, .isOnlyListed = true},
      });
  return table;
}

}  // namespace quillmeter
