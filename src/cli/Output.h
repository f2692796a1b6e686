#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillmeter {

class AtomicFile;

/// Where a command writes its result: standard output, or a file that appears whole or not at all (the old
/// one stays when anything fails).
class Output {
 public:
  /// No path, or "-", means standard output.
  explicit Output(const std::optional<std::string>& path);
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void write(std::string_view text) {
    if (text.size() > buffer_.size() - filled_) return writeBeyondBuffer(text);
    std::copy(text.begin(), text.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(filled_));
    filled_ += text.size();
  }

  /// Completes the output. Gives a message for the user when it could not be written, nothing on success.
  [[nodiscard]] std::optional<std::string> finish();

 private:
  void writeBeyondBuffer(std::string_view text);
  void flush();
  void writeOut(std::string_view text);

  std::string name_;
  std::unique_ptr<AtomicFile> file_;
  std::array<char, std::size_t{1} << 16> buffer_{};
  std::size_t filled_ = 0;
  std::optional<std::string> error_;  ///< of standard output
};

}  // namespace quillmeter
