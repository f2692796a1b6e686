#pragma once

#include <QLabel>
#include <QPointer>

class QAbstractButton;

namespace quillmeter {

/// A caption beside a check box or below it: a click on it is a click on the box. Assistive technology reads
/// it as the box's description.
class CaptionLabel final : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  void setButton(QAbstractButton* button);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QPointer<QAbstractButton> button_;
};

}  // namespace quillmeter
