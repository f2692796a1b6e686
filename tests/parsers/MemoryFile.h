#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "files/FileSystem.h"

namespace quillmeter::testing {

/// A file system in which every path leads to one file with the content given. Its reads can be made short,
/// interrupted (every second call) or failing.
class MemoryFile final : public FileSystem {
 public:
  explicit MemoryFile(std::string_view content) : content_(content) {}

  [[nodiscard]] std::optional<FileStatus> status(const std::string& /*path*/) const override {
    return FileStatus{FileStatus::Type::regular, content_.size()};
  }

  [[nodiscard]] Descriptor open(const std::string& /*path*/) const override {
    position_ = 0;
    return FileSystem::open("/dev/null");
  }

  [[nodiscard]] ssize_t read(int /*descriptor*/, std::span<char> buffer) const override {
    interrupted_ = interruptReads_ && !interrupted_;
    if (interrupted_) {
      errno = EINTR;
      return -1;
    }
    if (failAt_ && position_ >= *failAt_) {
      errno = EIO;
      return -1;
    }
    std::size_t count = std::min({buffer.size(), content_.size() - position_, longestRead_});
    if (failAt_) count = std::min(count, *failAt_ - position_);
    std::memcpy(buffer.data(), content_.data() + position_, count);
    position_ += count;
    return static_cast<ssize_t>(count);
  }

  void setLongestRead(std::size_t value) { longestRead_ = value; }
  void setInterruptReads(bool value) { interruptReads_ = value; }
  void setFailAt(std::size_t value) { failAt_ = value; }

 private:
  std::string_view content_;
  mutable std::size_t position_ = 0;
  mutable bool interrupted_ = false;
  std::size_t longestRead_ = static_cast<std::size_t>(-1);
  bool interruptReads_ = false;
  std::optional<std::size_t> failAt_;
};

}  // namespace quillmeter::testing
