#include "tables/TypeIcon.h"

#include <array>
#include <utility>

namespace quillmeter {

std::string_view typeIconName(std::string_view extension) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 12> icons{{
      {"c", "icon_extension_c"},
      {"cpp", "icon_extension_cpp"},
      {"xib", "icon_extension_xib"},
      {"icns", "icon_extension_icns"},
      {"h", "icon_extension_h"},
      {"hh", "icon_extension_h"},
      {"pch", "icon_extension_h"},
      {"m", "icon_extension_m"},
      {"mm", "icon_extension_m"},
      {"jpg", "icon_extension_image"},
      {"png", "icon_extension_image"},
      {"tiff", "icon_extension_image"},
  }};
  for (const auto& [known, name] : icons) {
    if (extension == known) return name;
  }
  return "icon_extension_other";
}

}  // namespace quillmeter
