#pragma once

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

  void write(std::string_view text);

  /// Completes the output. Gives a message for the user when it could not be written, nothing on success.
  [[nodiscard]] std::optional<std::string> finish();

 private:
  void flush();

  std::string name_;
  std::unique_ptr<AtomicFile> file_;
  std::string buffer_;
  int error_ = 0;
};

}  // namespace quillmeter
