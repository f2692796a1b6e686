#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/WritingSystem.h"

namespace quillmeter {

/// A file that appears whole or not at all. Bytes go to a temporary file in the destination's folder, which
/// has no name where the file system allows that, so that nothing is left of a process that is killed.
/// `commit` syncs it and renames it over the destination, which stays as it was until that moment and
/// whenever anything fails. A destination that is a link is followed, so that the link stays and its target
/// is replaced; a new file gets the permissions of the process's umask, an existing one keeps its own, and
/// its owner and group where the system allows. One that the process may not write to is refused, as are
/// devices and pipes. Temporary files that killed processes left in the folder are removed; so is the
/// object's own when it is destroyed without `commit`.
class AtomicFile {
 public:
  /// `system` must outlive the object.
  explicit AtomicFile(const std::string& path, const WritingSystem& system = WritingSystem::real());
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  /// Appends bytes. After a failure this does nothing.
  void write(std::string_view bytes);

  /// Puts the file in place. Says what failed first, mostly in the system's words, or nothing on success.
  [[nodiscard]] std::optional<std::string> commit();

 private:
  void open();
  void openPart(const std::string& folder, mode_t mode);
  [[nodiscard]] bool wasTakenForLeftover() const;
  void keepOwnerAndMode(const struct stat& old);
  void nameUnnamed();
  void flush();
  void fail(int errorNumber);
  void fail(const std::string& reason);
  void removeTemporary();

  const WritingSystem& system_;
  std::string destination_;
  std::string temporary_;  ///< its path; empty while it has no name
  std::string buffer_;
  int descriptor_ = -1;
  std::optional<std::string> error_;
};

/// The folder that an output to `path` is written in: where its chain of links ends. Empty for a loop.
[[nodiscard]] std::string folderOfOutput(const std::string& path);

/// Writes `bytes` as the whole content of the file at `path`, atomically. Gives the system's message when it
/// could not be written, nothing on success.
[[nodiscard]] std::optional<std::string> writeFileAtomically(
    const std::string& path, std::string_view bytes, const WritingSystem& system = WritingSystem::real());

}  // namespace quillmeter
