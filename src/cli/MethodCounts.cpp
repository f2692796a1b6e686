#include "cli/MethodCounts.h"

#include <cerrno>
#include <system_error>

#include "files/ReadingFiles.h"
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

  /// The first error; none when all went well.
  [[nodiscard]] DiskError error() const { return error_; }

 private:
  [[nodiscard]] Result<FileStatus> doStatus(const std::string& path) const override {
    return noted(watched_.status(path));
  }
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& file) const override {
    return noted(watched_.statusOfOpen(file));
  }
  [[nodiscard]] Result<Descriptor> doOpen(const std::string& path) const override {
    return noted(watched_.open(path));
  }
  [[nodiscard]] Result<std::size_t> doRead(int descriptor, std::span<char> buffer) const override {
    return noted(watched_.read(descriptor, buffer));
  }
  [[nodiscard]] Result<bool> doIsMadeByKernel(const Descriptor& file) const override {
    return noted(watched_.isMadeByKernel(file));
  }

  template <class Value>
  Result<Value> noted(Result<Value> result) const {
    if (!result && !error_) error_ = result.error();
    return result;
  }

  const FileSystem& watched_;
  mutable DiskError error_;
};

std::string messageOf(int error) {
  return std::generic_category().message(error);
}

/// Why the file at `path` is not even tried; nothing when it is.
std::optional<std::string> obstacleTo(const std::string& path, const FileSystem& fileSystem) {
  const auto file = fileSystem.open(path);
  if (!file) return messageOf(file.error().number);
  const auto status = fileSystem.statusOfOpen(*file);
  if (!status) return messageOf(status.error().number);
  if (status->type == FileStatus::Type::folder) return messageOf(EISDIR);
  if (status->type != FileStatus::Type::regular) return "Not a regular file";
  if (status->size > kLargest) return messageOf(EFBIG);
  // Files that the kernel makes up are refused as in a project; no call fails that could be noted.
  const DiskError refusal = status->size == 0 ? refusalOfKernelFile(fileSystem, *file) : DiskError{};
  if (refusal) return messageOf(refusal.number);
  return std::nullopt;
}

}  // namespace

CountedFile countedFile(const std::string& path, const FileSystem& fileSystem) {
  if (const auto obstacle = obstacleTo(path, fileSystem)) return {.counts = {}, .obstacle = obstacle};
  const WatchedFileSystem watched(fileSystem);
  // An Objective-C parser reads one file only.
  RegulatorParser parser(watched);
  const auto stats = parser.parseFile(path);
  if (watched.error()) return {.counts = {}, .obstacle = messageOf(watched.error().number)};
  if (!stats) return {};
  return {.counts = MethodCounts{stats->noMethods(), stats->noStaticMethods(), stats->noInstanceMethods()},
          .obstacle = {}};
}

}  // namespace quillmeter
