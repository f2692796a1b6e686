#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <string>
#include <string_view>

namespace quillmeter {

/// What writing a file asks of the system, as the calls that the functions are named after: -1 with errno on
/// failure. A call that a signal interrupts is made again. A test overrides some of the virtual functions to
/// play full disks, interruptions and file systems that lack something. Stateless.
class WritingSystem {
 public:
  virtual ~WritingSystem() = default;

  [[nodiscard]] int status(const std::string& path, struct stat& status) const;
  [[nodiscard]] int statusOfOpen(int descriptor, struct stat& status) const;
  [[nodiscard]] ssize_t readLink(const std::string& path, char* target, std::size_t size) const;
  /// Whether the process may write to the file at `path`: 0, or -1.
  [[nodiscard]] int accessForWriting(const std::string& path) const;

  /// Makes a file that has no name in `folder` until `link` gives it one; -1 where the file system cannot.
  [[nodiscard]] int openUnnamed(const std::string& folder, mode_t mode) const;
  [[nodiscard]] int openNew(const std::string& path, mode_t mode) const;
  /// Claims an open file for as long as it is open; -1 when another process has.
  [[nodiscard]] int lock(int descriptor) const;
  [[nodiscard]] int setOwner(int descriptor, uid_t owner, gid_t group) const;
  [[nodiscard]] int setMode(int descriptor, mode_t mode) const;
  [[nodiscard]] ssize_t write(int descriptor, std::string_view bytes) const;
  [[nodiscard]] int sync(int descriptor) const;
  [[nodiscard]] int link(int descriptor, const std::string& path) const;
  [[nodiscard]] int rename(const std::string& from, const std::string& to) const;
  int remove(const std::string& path) const;

  /// The disk itself.
  [[nodiscard]] static const WritingSystem& real();

 protected:
  [[nodiscard]] virtual int doStatus(const std::string& path, struct stat& status) const;
  [[nodiscard]] virtual int doStatusOfOpen(int descriptor, struct stat& status) const;
  [[nodiscard]] virtual ssize_t doReadLink(const std::string& path, char* target, std::size_t size) const;
  [[nodiscard]] virtual int doAccessForWriting(const std::string& path) const;
  [[nodiscard]] virtual int doOpenUnnamed(const std::string& folder, mode_t mode) const;
  [[nodiscard]] virtual int doOpenNew(const std::string& path, mode_t mode) const;
  [[nodiscard]] virtual int doLock(int descriptor) const;
  [[nodiscard]] virtual int doSetOwner(int descriptor, uid_t owner, gid_t group) const;
  [[nodiscard]] virtual int doSetMode(int descriptor, mode_t mode) const;
  [[nodiscard]] virtual ssize_t doWrite(int descriptor, std::string_view bytes) const;
  [[nodiscard]] virtual int doSync(int descriptor) const;
  [[nodiscard]] virtual int doLink(int descriptor, const std::string& path) const;
  [[nodiscard]] virtual int doRename(const std::string& from, const std::string& to) const;
  [[nodiscard]] virtual int doRemove(const std::string& path) const;
};

}  // namespace quillmeter
