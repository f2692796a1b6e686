#include "charts/AccessibleChart.h"

#include <utility>

#include "charts/DrawingCanvasView.h"
#include "controls/AccessibleLeaf.h"

namespace quillmeter {
namespace {

/// A bar or slice. Its value is a text and not a range, which tools would offer to change. It asks the canvas
/// each time, so it is right as long as its chart keeps it.
class AccessibleChartPart final : public AccessibleLeaf {
 public:
  AccessibleChartPart(const AccessibleChart& chart, std::size_t number) : chart_(chart), number_(number) {}

  [[nodiscard]] std::size_t number() const { return number_; }

  void* interface_cast(QAccessible::InterfaceType type) override;
  [[nodiscard]] bool isValid() const override {
    return chart_.isValid() && number_ < canvas().parts().size();
  }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(&canvas());
  }
  [[nodiscard]] QString text(QAccessible::Text which) const override;
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override {
    return canvas().showsBars() ? QAccessible::PushButton : QAccessible::StaticText;
  }
  [[nodiscard]] QAccessible::State state() const override;

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  [[nodiscard]] DrawingCanvasView& canvas() const { return *chart_.canvas(); }
  [[nodiscard]] const ChartPart& part() const { return canvas().parts().at(number_); }

  const AccessibleChart& chart_;
  std::size_t number_;
};

void* AccessibleChartPart::interface_cast(QAccessible::InterfaceType type) {
  const bool canBePressed = type == QAccessible::ActionInterface && isValid() && canvas().showsBars();
  return canBePressed ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QString AccessibleChartPart::text(QAccessible::Text which) const {
  if (which == QAccessible::Name) return QString::fromStdString(part().name);
  const bool isValue = which == QAccessible::Value || which == QAccessible::Description;
  return isValue ? QString::fromStdString(part().value) : QString();
}

QRect AccessibleChartPart::rect() const {
  return canvas().partRect(number_).translated(canvas().mapToGlobal(QPoint()));
}

QAccessible::State AccessibleChartPart::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.readOnly = true;
  state.invisible = !canvas().isVisible();
  state.focusable = canvas().showsBars();
  state.focused = state.focusable && canvas().hasFocus() && canvas().currentBar() == number_;
  return state;
}

QStringList AccessibleChartPart::actionNames() const {
  return canvas().showsBars() ? QStringList{pressAction()} : QStringList{};
}

void AccessibleChartPart::doAction(const QString& name) {
  if (name == pressAction()) canvas().pressBar(number_);
}

QAccessibleInterface* chartFor(const QString& /*className*/, QObject* object) {
  auto* const canvas = qobject_cast<DrawingCanvasView*>(object);
  return canvas != nullptr ? new AccessibleChart(canvas) : nullptr;
}

}  // namespace

AccessibleChart::AccessibleChart(DrawingCanvasView* canvas) : QAccessibleWidget(canvas, QAccessible::Chart) {}

AccessibleChart::~AccessibleChart() {
  forgetParts();
}

void AccessibleChart::install() {
  QAccessible::installFactory(chartFor);
}

void AccessibleChart::partsChanged(DrawingCanvasView& canvas) {
  if (!QAccessible::isActive()) return;
  auto* const chart = dynamic_cast<AccessibleChart*>(QAccessible::queryAccessibleInterface(&canvas));
  if (chart == nullptr) return;
  chart->forgetParts();
  for (int index = 0; index < chart->childCount(); ++index) {
    QAccessibleEvent created(chart->child(index), QAccessible::ObjectCreated);
    QAccessible::updateAccessibility(&created);
  }
}

DrawingCanvasView* AccessibleChart::canvas() const {
  return static_cast<DrawingCanvasView*>(widget());
}

void AccessibleChart::forgetParts() {
  for (const QAccessible::Id part : std::exchange(parts_, {}))
    QAccessible::deleteAccessibleInterface(part);
}

int AccessibleChart::childCount() const {
  return static_cast<int>(canvas()->parts().size());
}

QAccessibleInterface* AccessibleChart::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  while (parts_.size() <= index) {
    auto* const part = new AccessibleChartPart(*this, static_cast<std::size_t>(parts_.size()));
    parts_ << QAccessible::registerAccessibleInterface(part);
  }
  return QAccessible::accessibleInterface(parts_[index]);
}

int AccessibleChart::indexOfChild(const QAccessibleInterface* child) const {
  const auto* const part = dynamic_cast<const AccessibleChartPart*>(child);
  return part == nullptr ? -1 : static_cast<int>(part->number());
}

QAccessibleInterface* AccessibleChart::childAt(int x, int y) const {
  const QPoint point = canvas()->mapFromGlobal(QPoint(x, y));
  for (int index = 0; index < childCount(); ++index) {
    if (canvas()->partRect(static_cast<std::size_t>(index)).contains(point)) return child(index);
  }
  return nullptr;
}

QAccessibleInterface* AccessibleChart::focusChild() const {
  const auto bar = canvas()->currentBar();
  return bar && canvas()->hasFocus() ? child(static_cast<int>(*bar)) : nullptr;
}

QAccessible::State AccessibleChart::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  return state;
}

}  // namespace quillmeter
