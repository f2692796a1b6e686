#pragma once

#include <string_view>

namespace quillmeter {

/// The kinds of files that a project of today is made of. The first four are source code.
enum class CurrentKind { cSource, header, objectiveC, swift, interface, image, other };

/// The kind of the file at a location, by its extension; a "pdf" is an image inside an asset catalogue only.
[[nodiscard]] CurrentKind currentKind(std::string_view location);

/// Whether the text of such files is counted; of images only the size is known.
[[nodiscard]] constexpr bool isMeasuredInFull(CurrentKind kind) {
  return kind != CurrentKind::image && kind != CurrentKind::other;
}

}  // namespace quillmeter
