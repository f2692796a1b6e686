#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "controls/PopupState.h"
#include "controls/Services.h"

class QPushButton;

namespace quillmeter {

class FadingPanel;
class OutsideInput;

/// A panel of choices that fades in below its button and out again. It takes the keyboard along: into the
/// panel, and back to the button when nobody took it meanwhile. Escape and a press elsewhere are reported, so
/// that the owner closes it as the button does. It owns none of the widgets, which outlive it. Main thread
/// only.
class ChoicePopup final : public QObject {
  Q_OBJECT

 public:
  ChoicePopup(QPushButton& button, FadingPanel& panel, std::vector<QPushButton*> choices,
              std::shared_ptr<DelayedCalls> delayedCalls, QObject* parent);

  /// Opens the panel with the choice `current` marked, or closes it; the button is disabled during the fade.
  void tap(std::size_t current);
  /// Turns exactly one choice on.
  void mark(std::size_t current);
  /// Fades the panel out after a choice.
  void closeAfterChoice();
  /// Closes the panel without a fade.
  void closeAtOnce();
  /// The ends of the fades.
  void makeHidden();
  void enableButton();
  /// Puts the panel below the button, where it lies whenever it is open.
  void place();

  [[nodiscard]] bool isOpen() const { return state_.isOpen(); }
  /// Whether the choice was pressed with the mouse; the keyboard and assistive technology want to go on with
  /// the result.
  [[nodiscard]] bool wasChosenByMouse() const { return chosenByMouse_; }

 Q_SIGNALS:
  void dismissed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void open(std::size_t current);
  void close();
  void hideAfterFade(PopupState::Hiding hiding);
  [[nodiscard]] bool hasFocus() const;

  QPushButton& button_;
  FadingPanel& panel_;
  std::vector<QPushButton*> choices_;
  std::shared_ptr<DelayedCalls> delayedCalls_;
  OutsideInput* outside_;
  PopupState state_;
  bool chosenByMouse_ = false;
};

}  // namespace quillmeter
