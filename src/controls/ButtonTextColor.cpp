#include "controls/ButtonTextColor.h"

#include <QGuiApplication>
#include <QPalette>
#include <QPushButton>
#include <QString>
#include <QVariant>

namespace quillmeter {
namespace {

constexpr auto kColorProperty = "quillmeterTextColor";
constexpr auto kAlternateProperty = "quillmeterAlternateTextColor";
constexpr auto kSheetProperty = "quillmeterTextColorSheet";

/// A style sheet of the button's own is the one means that wins over the windows' sheets. What the button's
/// owner wrote there stays in front of ours.
void applyColors(QPushButton* button) {
  QString sheet;
  const auto addRule = [&sheet](const QString& states, const QVariant& color) {
    if (!color.isValid()) return;
    const QString name = color.value<QColor>().name(QColor::HexArgb);
    for (const QString& state : states.split(QLatin1Char(' '))) {
      sheet += QStringLiteral("QPushButton:enabled%1 { color: %2; }\n").arg(state, name);
    }
  };
  addRule(QString(), button->property(kColorProperty));
  addRule(QStringLiteral(":checked :pressed"), button->property(kAlternateProperty));

  QString whole = button->styleSheet();
  const QString previous = button->property(kSheetProperty).toString();
  if (!previous.isEmpty()) whole.remove(previous);
  button->setProperty(kSheetProperty, sheet);
  button->setStyleSheet(whole + sheet);
}

}  // namespace

QColor textColor(const QPushButton* button) {
  const QVariant color = button->property(kColorProperty);
  if (button->text().isEmpty() || !color.isValid()) {
    return QGuiApplication::palette().color(QPalette::ButtonText);
  }
  return color.value<QColor>();
}

void setTextColor(QPushButton* button, const QColor& color) {
  button->setProperty(kColorProperty, color);
  applyColors(button);
}

void setTextColorAndAlternateColor(QPushButton* button, const QColor& color, const QColor& alternateColor) {
  button->setProperty(kAlternateProperty, alternateColor);
  setTextColor(button, color);
}

}  // namespace quillmeter
