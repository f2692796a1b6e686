#pragma once

namespace quillmeter {

/// Decides when a pop-up that fades is open and when it is hidden. A fade out ends in a hiding that was
/// planned at its beginning; whoever opens or closes the pop-up meanwhile makes that plan void. A plain
/// value.
class PopupState {
 public:
  /// Names what was planned when the pop-up closed.
  using Hiding = unsigned;

  [[nodiscard]] bool isOpen() const { return isOpen_; }
  void open();
  [[nodiscard]] Hiding close();
  /// Whether nothing has happened to the pop-up since.
  [[nodiscard]] bool mayHide(Hiding planned) const { return !isOpen_ && planned == changes_; }

 private:
  bool isOpen_ = false;
  unsigned changes_ = 0;
};

}  // namespace quillmeter
