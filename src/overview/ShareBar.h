#pragma once

#include <QWidget>

#include "overview/LineShares.h"

namespace quillmeter {

/// A bar that is divided as the lines are: code, comments, empty lines, from where reading begins. What is
/// missing to a whole stays bare.
class ShareBar final : public QWidget {
  Q_OBJECT

 public:
  explicit ShareBar(QWidget* parent = nullptr);

  void setShares(const std::array<double, kLineKinds>& shares);
  [[nodiscard]] const std::array<double, kLineKinds>& shares() const { return shares_; }
  [[nodiscard]] QSize sizeHint() const override;

  /// The colour of a kind; that of the chart of code lines.
  [[nodiscard]] static QColor colorOf(std::size_t kind);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::array<double, kLineKinds> shares_{};
};

/// The small box beside a kind's name in the bar's legend.
class ShareSwatch final : public QWidget {
  Q_OBJECT

 public:
  explicit ShareSwatch(QWidget* parent = nullptr);

  void setColor(const QColor& color);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor color_;
};

}  // namespace quillmeter
