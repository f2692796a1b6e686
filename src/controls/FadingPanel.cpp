#include "controls/FadingPanel.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>

namespace quillmeter {
namespace {

constexpr int kFadeMilliseconds = 300;

}  // namespace

FadingPanel::FadingPanel(QWidget* parent)
    : QFrame(parent),
      effect_(new QGraphicsOpacityEffect(this)),
      fade_(new QPropertyAnimation(effect_, "opacity", this)) {
  effect_->setOpacity(1);
  setGraphicsEffect(effect_);
  fade_->setDuration(kFadeMilliseconds);
  connect(fade_, &QPropertyAnimation::finished, this, [this] {
    if (alphaValue_ <= 0) Q_EMIT fadedOut();
  });
}

double FadingPanel::shownAlpha() const {
  return effect_->opacity();
}

void FadingPanel::setAlphaValue(double alpha) {
  fade_->stop();
  alphaValue_ = alpha;
  effect_->setOpacity(alpha);
}

void FadingPanel::animateAlphaValue(double alpha) {
  fade_->stop();
  alphaValue_ = alpha;
  fade_->setStartValue(effect_->opacity());
  fade_->setEndValue(alpha);
  fade_->start();
}

}  // namespace quillmeter
