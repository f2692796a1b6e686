#include "export/CaptionLabel.h"

#include <QAbstractButton>
#include <QMouseEvent>

#include "controls/AccessibleWidgets.h"

namespace quillmeter {

void CaptionLabel::setButton(QAbstractButton* button) {
  button_ = button;
  setAccessibleKind(this, AccessibleKind::silent);
}

void CaptionLabel::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(event->button() == Qt::LeftButton);
}

void CaptionLabel::mouseReleaseEvent(QMouseEvent* event) {
  const bool isClick = event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
  if (isClick && button_ != nullptr) button_->click();
}

}  // namespace quillmeter
