#pragma once

#include <QAccessible>

namespace quillmeter {

/// A part of a widget as assistive technology sees it, that is no object of the toolkit and has nothing in
/// it: what such a part does not have.
class AccessibleLeaf : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  [[nodiscard]] QObject* object() const final { return nullptr; }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const final { return nullptr; }
  [[nodiscard]] int childCount() const final { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const final { return -1; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const final { return nullptr; }
  void setText(QAccessible::Text /*which*/, const QString& /*text*/) final {}
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const final { return {}; }
};

}  // namespace quillmeter
