#pragma once

#include <cerrno>
#include <optional>
#include <utility>

namespace quillmeter {

/// Why a call to the disk failed: an errno value, 0 for "it did not", and what it means to a reader.
struct DiskError {
  enum class Kind {
    none,
    missing,         ///< nothing is there: no such entry, or a link that leads nowhere
    noPermission,    ///< it may not be looked at
    fewDescriptors,  ///< this process or the system has too many files open
    stopped,         ///< whoever asked has given up
    other,           ///< the disk itself
  };

  int number = 0;

  [[nodiscard]] Kind kind() const;
  [[nodiscard]] explicit operator bool() const { return number != 0; }
  bool operator==(const DiskError&) const = default;
};

/// What a call to the disk gave: a value, or the error that it failed with.
template <class Value>
class [[nodiscard]] Result {
 public:
  Result(Value value)
      : value_(std::move(value)) {}           // NOLINT(google-explicit-constructor): either is a result
  Result(DiskError error) : error_(error) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] explicit operator bool() const { return value_.has_value(); }
  [[nodiscard]] const Value& operator*() const& { return *value_; }
  [[nodiscard]] Value& operator*() & { return *value_; }
  [[nodiscard]] Value&& operator*() && { return *std::move(value_); }
  [[nodiscard]] const Value* operator->() const { return &*value_; }
  [[nodiscard]] Value* operator->() { return &*value_; }
  /// No error when there is a value.
  [[nodiscard]] DiskError error() const { return error_; }

 private:
  std::optional<Value> value_;
  DiskError error_;
};

/// Whether a signal ended the call before it could do anything.
template <class Value>
[[nodiscard]] bool wasInterrupted(const Result<Value>& result) {
  return result.error().number == EINTR;
}

}  // namespace quillmeter
