#include "controls/AccessibleWidgets.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QMenu>
#include <optional>

namespace quillmeter {
namespace {

constexpr char kKindProperty[] = "accessibleKind";

QAccessible::Role roleOf(AccessibleKind kind) {
  switch (kind) {
    case AccessibleKind::window:
      return QAccessible::Window;
    case AccessibleKind::dialog:
      return QAccessible::Dialog;
    case AccessibleKind::group:
      return QAccessible::Grouping;
    case AccessibleKind::tabList:
      return QAccessible::PageTabList;
    case AccessibleKind::tab:
      return QAccessible::PageTab;
    case AccessibleKind::popupButton:
      return QAccessible::ButtonMenu;
    case AccessibleKind::choice:
      return QAccessible::RadioButton;
    case AccessibleKind::label:
    case AccessibleKind::silent:
      return QAccessible::StaticText;
    case AccessibleKind::notice:
      return QAccessible::AlertMessage;
  }
  return QAccessible::NoRole;
}

/// A widget of a kind, as assistive technology sees it.
class AccessibleWidget final : public QAccessibleWidget {
 public:
  AccessibleWidget(QWidget* widget, AccessibleKind kind)
      : QAccessibleWidget(widget, roleOf(kind)), kind_(kind) {}

  [[nodiscard]] QString text(QAccessible::Text which) const override;
  [[nodiscard]] QAccessible::State state() const override;
  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;
  [[nodiscard]] int childCount() const override {
    return menu() != nullptr ? 1 : QAccessibleWidget::childCount();
  }
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

 private:
  [[nodiscard]] QAbstractButton* button() const { return qobject_cast<QAbstractButton*>(widget()); }
  /// The open menu of a button, which the toolkit leaves out of the tree.
  [[nodiscard]] QMenu* menu() const;

  AccessibleKind kind_;
};

QString AccessibleWidget::text(QAccessible::Text which) const {
  if (kind_ == AccessibleKind::silent) return {};
  if (which == QAccessible::Description && kind_ == AccessibleKind::label)
    return widget()->accessibleDescription();
  QString known = QAccessibleWidget::text(which);
  if (which != QAccessible::Name || !known.isEmpty()) return known;
  if (button() != nullptr) return button()->text().remove(QLatin1Char('&'));
  const auto* label = qobject_cast<QLabel*>(widget());
  return label != nullptr ? label->text() : QString();
}

QAccessible::State AccessibleWidget::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  const bool isOn = button() != nullptr && button()->isChecked();
  switch (kind_) {
    case AccessibleKind::tab:
      state.selectable = true;
      state.selected = isOn;
      break;
    case AccessibleKind::choice:
      state.checkable = true;
      state.checked = isOn;
      break;
    case AccessibleKind::popupButton:
      state.hasPopup = true;
      state.expandable = true;
      state.expanded = isOn || menu() != nullptr;
      state.collapsed = !state.expanded;
      break;
    case AccessibleKind::label:
      state.readOnly = true;
      break;
    case AccessibleKind::silent:
      state.invisible = true;
      break;
    default:
      break;
  }
  return state;
}

QStringList AccessibleWidget::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (button() != nullptr && button()->isEnabled()) names.prepend(QAccessibleActionInterface::pressAction());
  return names;
}

void AccessibleWidget::doAction(const QString& name) {
  if (button() != nullptr && name == QAccessibleActionInterface::pressAction()) {
    button()->click();
  } else {
    QAccessibleWidget::doAction(name);
  }
}

QMenu* AccessibleWidget::menu() const {
  if (kind_ != AccessibleKind::popupButton) return nullptr;
  auto* const menu = widget()->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
  return menu != nullptr && menu->isVisible() ? menu : nullptr;
}

QAccessibleInterface* AccessibleWidget::child(int index) const {
  if (menu() == nullptr) return QAccessibleWidget::child(index);
  return index == 0 ? QAccessible::queryAccessibleInterface(menu()) : nullptr;
}

int AccessibleWidget::indexOfChild(const QAccessibleInterface* child) const {
  if (menu() == nullptr) return QAccessibleWidget::indexOfChild(child);
  return child != nullptr && child->object() == menu() ? 0 : -1;
}

std::optional<AccessibleKind> kindOf(const QObject& object) {
  const QVariant kind = object.property(kKindProperty);
  return kind.isValid() ? std::optional(static_cast<AccessibleKind>(kind.toInt())) : std::nullopt;
}

QAccessibleInterface* interfaceFor(const QString& /*className*/, QObject* object) {
  auto* const widget = qobject_cast<QWidget*>(object);
  const auto kind = widget != nullptr ? kindOf(*widget) : std::nullopt;
  return kind ? new AccessibleWidget(widget, *kind) : nullptr;
}

}  // namespace

void setAccessibleKind(QWidget* widget, AccessibleKind kind) {
  QAccessible::installFactory(interfaceFor);
  widget->setProperty(kKindProperty, static_cast<int>(kind));
  // The toolkit may have made its own guess already while the widget was set up.
  if (auto* const known = QAccessible::queryAccessibleInterface(widget))
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
}

}  // namespace quillmeter
