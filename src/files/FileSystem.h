#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/Result.h"

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
  /// Closes it; leaves errno as it was.
  void reset();

 private:
  int value_ = -1;
};

struct FileStatus {
  enum class Type { regular, folder, other };
  Type type = Type::other;
  std::uint64_t size = 0;  ///< in bytes
};

/// What a folder's list says of an entry, without following a link.
enum class EntryType : std::uint8_t {
  regular,
  folder,
  link,
  other,
  unknown,  ///< the list of this file system does not say; `entryType` does
};

/// The entries of a folder as far as they have been listed, without "." and "..".
class FolderListing {
 public:
  struct Entry {
    std::uint64_t nameOffset;
    std::uint16_t nameLength;
    EntryType type;
  };

  void reserve(std::size_t moreEntries, std::size_t moreNameBytes);
  void add(std::string_view name, EntryType type);
  /// Puts the entries into ascending byte order of their names.
  void sort();

  [[nodiscard]] std::string_view name(const Entry& entry) const {
    return std::string_view(names_).substr(entry.nameOffset, entry.nameLength);
  }
  [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
  [[nodiscard]] std::vector<Entry>& entries() { return entries_; }
  /// All names, each followed by a NUL.
  [[nodiscard]] const std::string& names() const { return names_; }

 private:
  std::string names_;
  std::vector<Entry> entries_;
};

/// What the engine asks of the disk: the only way to it. Each call gives the error that it failed with; a
/// call that a signal interrupts is made again here and nowhere else. Paths may be longer than the system's
/// limit for one call; nothing is at one that holds a zero byte.
///
/// A call is one request (some more for a very long path), so that a read can be given up between two of
/// them; what takes several is put together below. The private functions do the work; a test overrides some
/// of them to play short reads, failing disks and files that vanish. Stateless, so one object may serve many
/// threads.
class FileSystem {
 public:
  enum class Links { follow, refuse };

  virtual ~FileSystem() = default;

  /// Type and size of the item at `path`, through links.
  [[nodiscard]] Result<FileStatus> status(const std::string& path) const;
  /// The same for what is called `name` in an open folder: shorter work than by path where many files of one
  /// folder are asked for.
  [[nodiscard]] Result<FileStatus> statusInFolder(const Descriptor& folder, const std::string& name) const;
  /// The same for an open file.
  [[nodiscard]] Result<FileStatus> statusOfOpen(const Descriptor& file) const;
  /// Opens a folder for `statusInFolder`, which does not need the right to list it.
  [[nodiscard]] Result<Descriptor> openFolder(const std::string& path) const;

  /// Opens a folder for `listSome`. `links` is about the last component.
  [[nodiscard]] Result<Descriptor> openListing(const std::string& path, Links links) const;
  /// The same for a folder, and no link to one, called `name` (ended by a NUL) in a folder opened so.
  [[nodiscard]] Result<Descriptor> openListingIn(const Descriptor& parent, const char* name) const;
  /// Adds the next entries of an open folder to `listing`, in no order. False at the end.
  [[nodiscard]] Result<bool> listSome(const Descriptor& folder, FolderListing& listing) const;
  /// The type of an entry of an open folder whose list does not say it.
  [[nodiscard]] Result<EntryType> entryType(const Descriptor& folder, const char* name) const;

  /// Opens a file for reading; never waits for a writer.
  [[nodiscard]] Result<Descriptor> open(const std::string& path) const;
  /// Reads up to `buffer.size()` bytes as read(2) does: 0 at the end.
  [[nodiscard]] Result<std::size_t> read(int descriptor, std::span<char> buffer) const;
  /// Whether an open file is one that the kernel makes up while it is read (/proc, /sys and the like): such a
  /// "regular file" may have no size and no end.
  [[nodiscard]] Result<bool> isMadeByKernel(const Descriptor& file) const;

  /// The absolute path of what is at `path`, without links, "." and ".." on the way.
  [[nodiscard]] Result<std::string> realPath(const std::string& path) const;

  /// The disk itself.
  [[nodiscard]] static const FileSystem& real();

 private:
  [[nodiscard]] virtual Result<FileStatus> doStatus(const std::string& path) const;
  [[nodiscard]] virtual Result<FileStatus> doStatusInFolder(const Descriptor& folder,
                                                            const std::string& name) const;
  [[nodiscard]] virtual Result<FileStatus> doStatusOfOpen(const Descriptor& file) const;
  [[nodiscard]] virtual Result<Descriptor> doOpenFolder(const std::string& path) const;
  [[nodiscard]] virtual Result<Descriptor> doOpenListing(const std::string& path, Links links) const;
  [[nodiscard]] virtual Result<Descriptor> doOpenListingIn(const Descriptor& parent, const char* name) const;
  [[nodiscard]] virtual Result<bool> doListSome(const Descriptor& folder, FolderListing& listing) const;
  [[nodiscard]] virtual Result<EntryType> doEntryType(const Descriptor& folder, const char* name) const;
  [[nodiscard]] virtual Result<Descriptor> doOpen(const std::string& path) const;
  [[nodiscard]] virtual Result<std::size_t> doRead(int descriptor, std::span<char> buffer) const;
  [[nodiscard]] virtual Result<bool> doIsMadeByKernel(const Descriptor& file) const;
  [[nodiscard]] virtual Result<std::string> doRealPath(const std::string& path) const;
};

}  // namespace quillmeter
