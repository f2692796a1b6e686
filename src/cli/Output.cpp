#include "cli/Output.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "support/AtomicFile.h"

namespace quillmeter {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

}  // namespace

Output::Output(const std::optional<std::string>& path)
    : name_(path && *path != "-" ? *path : "standard output"),
      file_(path && *path != "-" ? std::make_unique<AtomicFile>(*path) : nullptr) {}

Output::~Output() = default;

void Output::write(std::string_view text) {
  if (file_) return file_->write(text);
  buffer_.append(text);
  if (buffer_.size() >= kBufferSize) flush();
}

void Output::flush() {
  std::string_view rest = buffer_;
  while (!rest.empty() && error_ == 0) {
    const ssize_t written = ::write(STDOUT_FILENO, rest.data(), rest.size());
    if (written >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      error_ = errno;
    }
  }
  buffer_.clear();
}

std::optional<std::string> Output::finish() {
  std::optional<std::string> reason;
  if (file_) {
    reason = file_->commit();
  } else {
    flush();
    if (error_ != 0) reason = std::generic_category().message(error_);
  }
  if (!reason) return std::nullopt;
  return "cannot write " + name_ + ": " + *reason;
}

}  // namespace quillmeter
