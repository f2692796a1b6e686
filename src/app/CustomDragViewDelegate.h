#pragma once

#include <string>

namespace quillmeter {

class CustomDragView;

/// Hears what happens on the drop area. Main thread only.
class CustomDragViewDelegate {
 public:
  virtual ~CustomDragViewDelegate() = default;
  /// A folder that holds a project is over the area.
  virtual void draggingEntered(CustomDragView* view) = 0;
  /// Something that cannot be opened is over the area.
  virtual void draggingInvalid(CustomDragView* view) = 0;
  /// The drag has left the area or has ended, dropped or not.
  virtual void draggingExited(CustomDragView* view) = 0;
  /// A folder that holds a project was dropped. The path is bytes.
  virtual void fileSelected(const std::string& folder) = 0;
};

}  // namespace quillmeter
