#pragma once

#include <QLabel>

namespace quillmeter {

/// A label of one line that shortens its text in the middle when there is no room for it, so that the
/// beginning and the extension of a file name stay readable. `text` keeps the whole text.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillmeter
