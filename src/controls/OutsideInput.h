#pragma once

#include <QList>
#include <QObject>
#include <QWidget>

namespace quillmeter {

/// Notices, while it watches, what makes a panel inside a window go away: Escape anywhere in that window, and
/// a press of a mouse button anywhere but on the panel and its partners. Escape goes no further then; a press
/// does what it does everywhere. Main thread only.
class OutsideInput final : public QObject {
  Q_OBJECT

 public:
  /// `partners` are widgets that see to the panel themselves, such as the button that opens it.
  OutsideInput(QWidget& panel, QList<const QWidget*> partners, QObject* parent);

  void watch(bool watches);

 Q_SIGNALS:
  void dismissed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool isInside(QPoint globalPoint) const;

  QWidget& panel_;
  QList<const QWidget*> partners_;
  bool watches_ = false;
};

}  // namespace quillmeter
