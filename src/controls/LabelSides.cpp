#include "controls/LabelSides.h"

#include <QEvent>
#include <QLabel>

namespace quillmeter {
namespace {

void alignLabels(const QWidget& page) {
  const bool isMirrored = page.layoutDirection() == Qt::RightToLeft;
  const Qt::Alignment side = Qt::AlignAbsolute | (isMirrored ? Qt::AlignRight : Qt::AlignLeft);
  for (QLabel* const label : page.findChildren<QLabel*>())
    label->setAlignment(side | (label->alignment() & Qt::AlignVertical_Mask));
}

/// Aligns the labels anew when the direction of reading changes.
class LabelSides final : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::LayoutDirectionChange) alignLabels(*static_cast<QWidget*>(watched));
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

void keepLabelsWhereReadingBegins(QWidget* page) {
  page->installEventFilter(new LabelSides(page));
  alignLabels(*page);
}

}  // namespace quillmeter
