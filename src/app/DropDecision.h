#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// What the drop area answers to a drag and to a drop, apart from any window. Reads folders on the disk.
namespace quillmeter {

/// Bits of a drag operation mask.
inline constexpr std::uint32_t kNoDragOperation = 0;
inline constexpr std::uint32_t kGenericDragOperation = 4;

struct DragOffer {
  bool offersGeneric = false;  ///< the source would let the receiver take its data as it likes
  std::optional<std::string>
      fileName;  ///< the first dragged file's path in bytes; absent when no files are dragged
};

enum class DropCallback { none, draggingEntered, draggingInvalid };

struct DragAnswer {
  DropCallback callback = DropCallback::none;
  std::uint32_t operation = kNoDragOperation;
};

/// A drag has come over the drop area. Only a folder that directly holds a project is valid; anything else is
/// shown as invalid, yet not refused, so that the drag's end still reaches the drop area.
[[nodiscard]] DragAnswer draggingEnteredAnswer(const DragOffer& offer);

struct DropAnswer {
  bool taken = false;
  std::optional<std::string> selectedFolder;  ///< the folder to open
};

/// A drag has been dropped on the drop area.
[[nodiscard]] DropAnswer performDragOperationAnswer(const DragOffer& offer);

}  // namespace quillmeter
