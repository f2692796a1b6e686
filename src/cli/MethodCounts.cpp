#include "cli/MethodCounts.h"

#include <cerrno>
#include <system_error>

#include "parsers/RegulatorParser.h"

namespace quillmeter {
namespace {

/// More than any source, and far less than the numbers that a file without content can claim.
constexpr std::uint64_t kLargest = std::uint64_t{1} << 30;

/// Another file system, with an eye on what fails: the parsers take a file that they cannot read for an empty
/// one, and one that cannot be read to its end for a short one.
class WatchedFileSystem final : public FileSystem {
 public:
  explicit WatchedFileSystem(const FileSystem& watched) : watched_(watched) {}

  /// The first error number; 0 when all went well.
  [[nodiscard]] int error() const { return error_; }

  [[nodiscard]] std::optional<FileStatus> status(const std::string& path) const override {
    const auto status = watched_.status(path);
    if (!status) note(errno);
    return status;
  }

  [[nodiscard]] Descriptor open(const std::string& path) const override {
    Descriptor file = watched_.open(path);
    if (!file) note(errno);
    return file;
  }

  [[nodiscard]] ssize_t read(int descriptor, std::span<char> buffer) const override {
    const ssize_t count = watched_.read(descriptor, buffer);
    if (count < 0 && errno != EINTR) note(errno);
    return count;
  }

 private:
  void note(int error) const {
    if (error_ == 0) error_ = error;
  }

  const FileSystem& watched_;
  mutable int error_ = 0;
};

std::string messageOf(int error) {
  return std::generic_category().message(error);
}

/// Why the file at `path` is not even tried; nothing when it is.
std::optional<std::string> obstacleTo(const std::string& path, const FileSystem& fileSystem) {
  const Descriptor file = fileSystem.open(path);
  if (!file) return messageOf(errno);
  const auto status = fileSystem.statusOfOpen(file);
  if (!status) return messageOf(errno);
  if (status->type == FileStatus::Type::folder) return messageOf(EISDIR);
  if (status->type != FileStatus::Type::regular) return "Not a regular file";
  if (status->size > kLargest) return messageOf(EFBIG);
  return std::nullopt;
}

}  // namespace

CountedFile countedFile(const std::string& path, const FileSystem& fileSystem) {
  if (const auto obstacle = obstacleTo(path, fileSystem)) return {.counts = {}, .obstacle = obstacle};
  const WatchedFileSystem watched(fileSystem);
  // An Objective-C parser reads one file only.
  RegulatorParser parser(watched);
  const auto stats = parser.parseFile(path);
  if (watched.error() != 0) return {.counts = {}, .obstacle = messageOf(watched.error())};
  if (!stats) return {};
  return {.counts = MethodCounts{stats->noMethods(), stats->noStaticMethods(), stats->noInstanceMethods()},
          .obstacle = {}};
}

}  // namespace quillmeter
