#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace quillmeter {

/// An open file or folder that closes itself. Negative means not open.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int value) : value_(value) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept;

  [[nodiscard]] int value() const { return value_; }
  [[nodiscard]] explicit operator bool() const { return value_ >= 0; }
  void reset();

 private:
  int value_ = -1;
};

struct FileStatus {
  enum class Type { regular, folder, other };
  Type type = Type::other;
  std::uint64_t size = 0;  ///< in bytes
};

/// What the engine asks of the disk. The functions here do it; a test overrides some of them to play short
/// reads, interrupted calls and files that vanish. Paths may be longer than the system's limit for one call.
/// Stateless, so one object may serve many threads.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Type and size of the item at `path`, through links; absent when nothing is there (or a link leads
  /// nowhere).
  [[nodiscard]] virtual std::optional<FileStatus> status(const std::string& path) const;

  /// The same for what is called `name` in an open folder: shorter work than by path where many files of one
  /// folder are asked for.
  [[nodiscard]] virtual std::optional<FileStatus> statusInFolder(const Descriptor& folder,
                                                                 const std::string& name) const;

  /// Opens a folder for `statusInFolder`, which does not need the right to list it; not open when that fails.
  [[nodiscard]] virtual Descriptor openFolder(const std::string& path) const;

  /// The same as `status` for an open file.
  [[nodiscard]] virtual std::optional<FileStatus> statusOfOpen(const Descriptor& file) const;

  /// The names directly inside a folder, without "." and "..", in ascending byte order; absent when it cannot
  /// be read.
  [[nodiscard]] virtual std::optional<std::vector<std::string>> listFolder(const std::string& path) const;

  /// Opens a file for reading; not open when that fails.
  [[nodiscard]] virtual Descriptor open(const std::string& path) const;

  /// Reads up to `buffer.size()` bytes as read(2) does: 0 at the end, -1 with errno on failure.
  [[nodiscard]] virtual ssize_t read(int descriptor, std::span<char> buffer) const;

  /// An existing absolute path without links, "." and ".." on the way; absent when there is none.
  [[nodiscard]] virtual std::optional<std::string> realPath(const std::string& path) const;

  /// The disk itself.
  [[nodiscard]] static const FileSystem& real();
};

/// open(2) for a path of any length; -1 with errno on failure.
[[nodiscard]] int openPath(const std::string& path, int flags);

/// Fills `buffer` from the file as far as it goes, through short reads and interruptions. Gives the bytes
/// read (0 at the end of the file), or nothing on a failure.
[[nodiscard]] std::optional<std::size_t> readBlock(const FileSystem& fileSystem, int descriptor,
                                                   std::span<char> buffer);

/// The whole content of a regular file; absent when it is none, cannot be read or does not fit into memory.
[[nodiscard]] std::optional<std::string> readWholeFile(const FileSystem& fileSystem, const std::string& path);

}  // namespace quillmeter
