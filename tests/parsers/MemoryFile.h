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

  void setLongestRead(std::size_t value) { longestRead_ = value; }
  void setInterruptReads(bool value) { interruptReads_ = value; }
  void setFailAt(std::size_t value) { failAt_ = value; }

 private:
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& /*file*/) const override {
    return FileStatus{FileStatus::Type::regular, content_.size()};
  }

  [[nodiscard]] Result<Descriptor> doOpen(const std::string& /*path*/) const override {
    position_ = 0;
    return FileSystem::real().open("/dev/null");
  }

  [[nodiscard]] Result<std::size_t> doRead(int /*descriptor*/, std::span<char> buffer) const override {
    interrupted_ = interruptReads_ && !interrupted_;
    if (interrupted_) return DiskError{EINTR};
    if (failAt_ && position_ >= *failAt_) return DiskError{EIO};
    std::size_t count = std::min({buffer.size(), content_.size() - position_, longestRead_});
    if (failAt_) count = std::min(count, *failAt_ - position_);
    std::memcpy(buffer.data(), content_.data() + position_, count);
    position_ += count;
    return count;
  }

  std::string_view content_;
  mutable std::size_t position_ = 0;
  mutable bool interrupted_ = false;
  std::size_t longestRead_ = static_cast<std::size_t>(-1);
  bool interruptReads_ = false;
  std::optional<std::size_t> failAt_;
};

}  // namespace quillmeter::testing
