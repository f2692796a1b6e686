#include "cli/Output.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "support/AtomicFile.h"

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
  while (!text.empty() && error_ == 0) {
    const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      error_ = errno;
    }
  }
}

std::optional<std::string> Output::finish() {
  flush();
  std::optional<std::string> reason;
  if (file_) reason = file_->commit();
  if (error_ != 0) reason = std::generic_category().message(error_);
  if (!reason) return std::nullopt;
  return "cannot write " + name_ + ": " + *reason;
}

}  // namespace quillmeter
