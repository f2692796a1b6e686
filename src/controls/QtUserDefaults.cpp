#include "controls/QtUserDefaults.h"

#include <QVariant>

namespace quillmeter {

QtUserDefaults::QtUserDefaults()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Quillmeter"),
                QStringLiteral("Quillmeter")) {
  settings_.setFallbacksEnabled(false);
}

QtUserDefaults::QtUserDefaults(const QString& path) : settings_(path, QSettings::IniFormat) {}

/// A value comes back from the file as text, and as what was set until then; its text is the same.
std::optional<QString> QtUserDefaults::textForKey(const std::string& key) const {
  const QVariant value = settings_.value(QString::fromStdString(key));
  if (!value.isValid() || !value.canConvert<QString>()) return std::nullopt;
  return value.toString();
}

std::optional<bool> QtUserDefaults::boolForKey(const std::string& key) const {
  const std::optional<QString> text = textForKey(key);
  if (text == QStringLiteral("true")) return true;
  if (text == QStringLiteral("false")) return false;
  return std::nullopt;
}

std::optional<std::int64_t> QtUserDefaults::integerForKey(const std::string& key) const {
  const std::optional<QString> text = textForKey(key);
  bool isNumber = false;
  const qlonglong value = text.value_or(QString()).toLongLong(&isNumber);
  return isNumber ? std::optional<std::int64_t>(value) : std::nullopt;
}

void QtUserDefaults::setBool(const std::string& key, bool value) {
  settings_.setValue(QString::fromStdString(key), value);
}

void QtUserDefaults::setInteger(const std::string& key, std::int64_t value) {
  settings_.setValue(QString::fromStdString(key), static_cast<qlonglong>(value));
}

void QtUserDefaults::synchronize() {
  settings_.sync();
}

}  // namespace quillmeter
