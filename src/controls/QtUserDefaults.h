#pragma once

#include <QSettings>
#include <QString>

#include "support/UserDefaults.h"

namespace quillmeter {

/// User defaults in an INI file of the user's. A file that is missing, unreadable or garbage reads as empty;
/// one that cannot be written keeps what was set for as long as this object lives.
class QtUserDefaults final : public UserDefaults {
 public:
  /// The application's own file: Quillmeter/Quillmeter.ini in the user's configuration folder.
  QtUserDefaults();
  /// The file at `path`.
  explicit QtUserDefaults(const QString& path);

  [[nodiscard]] std::optional<bool> boolForKey(const std::string& key) const override;
  [[nodiscard]] std::optional<std::int64_t> integerForKey(const std::string& key) const override;
  void setBool(const std::string& key, bool value) override;
  void setInteger(const std::string& key, std::int64_t value) override;
  void synchronize() override;

 private:
  [[nodiscard]] std::optional<QString> textForKey(const std::string& key) const;

  QSettings settings_;
};

}  // namespace quillmeter
