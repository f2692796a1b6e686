#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmeter {

/// A file that appears whole or not at all. Bytes go to a temporary file in the destination's folder;
/// `commit` syncs it and renames it over the destination, which stays as it was until that moment and
/// whenever anything fails. A destination that is a link is followed, so that the link stays and its target
/// is replaced; an existing file keeps its permissions, a new one gets those of the process's umask. An
/// object that is destroyed without `commit` removes its temporary file.
class AtomicFile {
 public:
  explicit AtomicFile(const std::string& path);
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  /// Appends bytes. After a failure this does nothing.
  void write(std::string_view bytes);

  /// Puts the file in place. Says what failed first, mostly in the system's words, or nothing on success.
  [[nodiscard]] std::optional<std::string> commit();

 private:
  void openPart();
  void flush();
  void fail(int errorNumber);
  void fail(const std::string& reason);
  void removeTemporary();

  std::string destination_;
  std::string temporary_;
  std::string buffer_;
  int descriptor_ = -1;
  std::optional<std::string> error_;
};

/// Writes `bytes` as the whole content of the file at `path`, atomically. Gives the system's message when it
/// could not be written, nothing on success.
[[nodiscard]] std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace quillmeter
