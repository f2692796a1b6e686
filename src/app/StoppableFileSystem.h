#pragma once

#include <atomic>

#include "files/FileSystem.h"

namespace quillmeter {

/// The disk, until it is stopped; from then on nothing can be found or read any more. This is how a read that
/// nobody waits for is brought to a quick end: its project finds every remaining file missing. May be stopped
/// from any thread.
class StoppableFileSystem final : public FileSystem {
 public:
  void stop() { stopped_ = true; }
  [[nodiscard]] bool isStopped() const { return stopped_; }

  [[nodiscard]] std::optional<FileStatus> status(const std::string& path) const override;
  [[nodiscard]] std::optional<std::vector<std::string>> listFolder(const std::string& path) const override;
  [[nodiscard]] Descriptor open(const std::string& path) const override;
  [[nodiscard]] ssize_t read(int descriptor, std::span<char> buffer) const override;

 private:
  std::atomic<bool> stopped_ = false;
};

}  // namespace quillmeter
