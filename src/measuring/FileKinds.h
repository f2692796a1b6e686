#pragma once

#include <array>
#include <span>
#include <string_view>

/// Which extensions make which kind of file. A file's kind is decided by its lower-cased extension alone.
namespace quillmeter {

inline constexpr std::array<std::string_view, 7> acceptedCodeFileFormats = {"c", "cpp", "h",  "hh",
                                                                            "m", "mm",  "pch"};
inline constexpr std::array<std::string_view, 4> acceptedImagesFormats = {"jpg", "png", "tiff", "icns"};
inline constexpr std::array<std::string_view, 3> kImageFormatsWithoutIcons = {"jpg", "png", "tiff"};
inline constexpr std::array<std::string_view, 1> acceptedOtherFormats = {"xib"};
inline constexpr std::array<std::string_view, 4> kFormatsForRegex = {"c", "cpp", "m", "mm"};

/// Whether `extension` is, exactly and case-sensitively, one of `formats`.
[[nodiscard]] bool isOneOf(std::string_view extension, std::span<const std::string_view> formats);

enum class FileKind { code, image, interface, none };

/// The kind that a lower-cased extension stands for.
[[nodiscard]] FileKind fileKind(std::string_view lowerCasedExtension);

/// The kind of a file by any text that ends with its name: goes by the text after the last ".", lower-cased.
[[nodiscard]] FileKind fileKindOfPath(std::string_view path);

}  // namespace quillmeter
