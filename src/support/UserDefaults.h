#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quillmeter {

/// What the program remembers between launches, behind an interface so that logic needs no toolkit and tests
/// no file. A key that was never set, or whose stored value is not of the asked type, reads as absent.
/// Setting never fails visibly: an unwritable store keeps the value for this launch only.
class UserDefaults {
 public:
  virtual ~UserDefaults() = default;
  [[nodiscard]] virtual std::optional<bool> boolForKey(const std::string& key) const = 0;
  [[nodiscard]] virtual std::optional<std::int64_t> integerForKey(const std::string& key) const = 0;
  virtual void setBool(const std::string& key, bool value) = 0;
  virtual void setInteger(const std::string& key, std::int64_t value) = 0;
  /// Writes what was set to the disk now.
  virtual void synchronize() = 0;
};

}  // namespace quillmeter
