#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <string>
#include <string_view>

namespace quillmeter {

/// What writing a file asks of the system. The functions here do it, as the calls that they are named after:
/// -1 with errno on failure. A test overrides some of them to play full disks, interruptions and file systems
/// that lack something. Stateless.
class WritingSystem {
 public:
  virtual ~WritingSystem() = default;

  [[nodiscard]] virtual int status(const std::string& path, struct stat& status) const;
  [[nodiscard]] virtual int statusOfOpen(int descriptor, struct stat& status) const;
  [[nodiscard]] virtual ssize_t readLink(const std::string& path, char* target, std::size_t size) const;
  /// Whether the process may write to the file at `path`: 0, or -1.
  [[nodiscard]] virtual int accessForWriting(const std::string& path) const;

  /// Makes a file that has no name in `folder` until `link` gives it one; -1 where the file system cannot.
  [[nodiscard]] virtual int openUnnamed(const std::string& folder, mode_t mode) const;
  [[nodiscard]] virtual int openNew(const std::string& path, mode_t mode) const;
  /// Claims an open file for as long as it is open; -1 when another process has.
  [[nodiscard]] virtual int lock(int descriptor) const;
  [[nodiscard]] virtual int setOwner(int descriptor, uid_t owner, gid_t group) const;
  [[nodiscard]] virtual int setMode(int descriptor, mode_t mode) const;
  [[nodiscard]] virtual ssize_t write(int descriptor, std::string_view bytes) const;
  [[nodiscard]] virtual int sync(int descriptor) const;
  [[nodiscard]] virtual int link(int descriptor, const std::string& path) const;
  [[nodiscard]] virtual int rename(const std::string& from, const std::string& to) const;
  virtual int remove(const std::string& path) const;

  /// The disk itself.
  [[nodiscard]] static const WritingSystem& real();
};

}  // namespace quillmeter
