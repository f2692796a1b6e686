#include "cli/Output.h"

#include <unistd.h>

#include "support/AtomicFile.h"
#include "support/WriteAll.h"

namespace quillmeter {
Output::Output(const std::optional<std::string>& path)
    : name_(path && *path != "-" ? *path : "standard output"),
      file_(path && *path != "-" ? std::make_unique<AtomicFile>(*path) : nullptr) {}

Output::~Output() = default;

void Output::writeBeyondBuffer(std::string_view text) {
  flush();
  if (text.size() > buffer_.size()) return writeOut(text);
  write(text);
}

void Output::flush() {
  writeOut(std::string_view(buffer_.data(), filled_));
  filled_ = 0;
}

void Output::writeOut(std::string_view text) {
  if (file_) return file_->write(text);
  if (!error_) error_ = writeAll(STDOUT_FILENO, text);
}

std::optional<std::string> Output::finish() {
  flush();
  const std::optional<std::string> reason = file_ ? file_->commit() : error_;
  if (!reason) return std::nullopt;
  return "cannot write " + name_ + ": " + *reason;
}

}  // namespace quillmeter
