#include "controls/ChoicePopup.h"

#include <QApplication>
#include <QEvent>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <utility>

#include "controls/FadingPanel.h"
#include "controls/OutsideInput.h"
#include "controls/Theme.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kFade{300};

}  // namespace

ChoicePopup::ChoicePopup(QPushButton& button, FadingPanel& panel, std::vector<QPushButton*> choices,
                         std::shared_ptr<DelayedCalls> delayedCalls, QObject* parent)
    : QObject(parent),
      button_(button),
      panel_(panel),
      choices_(std::move(choices)),
      delayedCalls_(std::move(delayedCalls)),
      outside_(new OutsideInput(panel, {&button}, this)) {
  for (QPushButton* const choice : choices_)
    choice->installEventFilter(this);
  connect(outside_, &OutsideInput::dismissed, this, &ChoicePopup::dismissed);
  panel_.setAlphaValue(0);
  panel_.hide();
}

void ChoicePopup::tap(std::size_t current) {
  const bool opens = !isOpen();
  if (opens) {
    open(current);
  } else {
    close();
  }
  button_.setChecked(opens);
  // Disabled only now that the keyboard has left it: the toolkit would send the keyboard on to some other
  // control.
  button_.setEnabled(false);
  delayedCalls_->performAfterDelay(this, kFade, [this] { enableButton(); });
}

void ChoicePopup::open(std::size_t current) {
  state_.open();
  place();
  panel_.show();
  panel_.raise();
  panel_.animateAlphaValue(1.0);
  mark(current);
  chosenByMouse_ = false;
  choices_.at(current)->setFocus();
  outside_->watch(true);
}

void ChoicePopup::close() {
  outside_->watch(false);
  // The panel itself keeps the keyboard until it is hidden, unless somebody takes it.
  if (hasFocus()) panel_.setFocus();
  panel_.animateAlphaValue(0.0);
  hideAfterFade(state_.close());
}

void ChoicePopup::closeAfterChoice() {
  close();
  button_.setChecked(false);
}

void ChoicePopup::closeAtOnce() {
  outside_->watch(false);
  panel_.setAlphaValue(0.0);
  hideAfterFade(state_.close());
  button_.setChecked(false);
}

void ChoicePopup::hideAfterFade(PopupState::Hiding hiding) {
  delayedCalls_->performAfterDelay(this, kFade, [this, hiding] {
    if (state_.mayHide(hiding)) makeHidden();
  });
}

void ChoicePopup::makeHidden() {
  if (hasFocus()) {
    button_.setEnabled(true);
    button_.setFocus();
  }
  panel_.hide();
}

void ChoicePopup::enableButton() {
  button_.setEnabled(true);
}

void ChoicePopup::mark(std::size_t current) {
  for (std::size_t i = 0; i < choices_.size(); ++i)
    choices_[i]->setChecked(i == current);
}

bool ChoicePopup::hasFocus() const {
  const QWidget* const focused = QApplication::focusWidget();
  return focused != nullptr && (focused == &button_ || focused == &panel_ || panel_.isAncestorOf(focused));
}

void ChoicePopup::place() {
  panel_.adjustSize();
  const QWidget& page = *panel_.parentWidget();
  const QPoint below = button_.mapTo(&page, QPoint(0, button_.height() + kSpace));
  const bool isMirrored = button_.layoutDirection() == Qt::RightToLeft;
  const int x = isMirrored ? below.x() : below.x() + button_.width() - panel_.width();
  panel_.move(std::clamp(x, 0, std::max(0, page.width() - panel_.width())), below.y());
}

bool ChoicePopup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) chosenByMouse_ = true;
  if (event->type() == QEvent::KeyPress) chosenByMouse_ = false;
  return QObject::eventFilter(watched, event);
}

}  // namespace quillmeter
