#pragma once

#include <QLabel>

namespace quillmeter {

/// A label of one line for a figure: it takes a smaller font when its text would not fit, so that no digit of
/// a large number is ever cut off. A large number never widens the page.
class FigureLabel final : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  /// The font the text is drawn in at the label's present width: its own, or a smaller one.
  [[nodiscard]] QFont fittingFont() const;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillmeter
