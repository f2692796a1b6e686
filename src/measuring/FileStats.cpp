#include "measuring/FileStats.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <span>

#include "files/ReadingFiles.h"
#include "measuring/FileKinds.h"
#include "measuring/TextMeasurement.h"
#include "support/Paths.h"

namespace quillmeter {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 16;

/// From this size on a file is looked at twice: a file that the kernel makes up may claim any size.
constexpr std::uint64_t kSuspiciousSize = std::uint64_t{1} << 30;

/// The counts of an open text file of `size` bytes; all 0 when it is not UTF-8. It is read up to its size and
/// no further, which saves asking for what is not there. A file system that knows no sizes says 0: there the
/// file is read to its end, if that comes before `kLargestText` bytes.
Result<TextCounts> countsOf(const FileSystem& fileSystem, const Descriptor& file, std::uint64_t size) {
  if (size >= kSuspiciousSize) {
    if (const DiskError refusal = refusalOfKernelFile(fileSystem, file)) return refusal;
  }
  std::array<char, kBlockSize> block;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the reads
  TextMeasurement measurement;
  for (std::uint64_t read = 0;;) {
    const std::uint64_t left = size > 0 ? size - read : block.size();
    const auto wanted = std::span(block).first(std::min<std::uint64_t>(left, block.size()));
    const auto count = readBlock(fileSystem, file.value(), wanted);
    if (!count) return count.error();
    if (size == 0 && read == 0 && *count > 0) {
      if (const DiskError refusal = refusalOfKernelFile(fileSystem, file)) return refusal;
    }
    measurement.add(wanted.first(*count));
    read += *count;
    if (*count < wanted.size() || read == size) return measurement.finish().value_or(TextCounts{});
    if (size == 0 && read > kLargestText) return DiskError{EFBIG};
  }
}

Number number(std::uint64_t value) {
  return Number(static_cast<std::int64_t>(value));
}

bool isMeasured(const FileKindTable& kinds, const std::string& path) {
  const FileKind kind = kinds.kindOfPath(lastPathComponent(path));
  return kind == FileKind::code || kind == FileKind::interface;
}

/// A record that carries its size and no text.
std::shared_ptr<FileObject> sizedFile(const std::string& path, const FileStatus& status) {
  auto file = std::make_shared<FileObject>();
  file->setFilePath(path);
  file->setFileName(std::string(lastPathComponent(path)));
  file->setFileSize(Number(status.size));
  file->setNoLinesTotal(Number(0));
  file->setNoLinesWithoutSpaces(Number(0));
  return file;
}

std::shared_ptr<FileObject> measuredRecord(const std::string& path, const FileStatus& status,
                                           const TextCounts& counts) {
  auto file = sizedFile(path, status);
  file->setNoLinesTotal(number(counts.noLinesTotal));
  file->setNoLinesWithoutSpaces(number(counts.noLinesWithoutSpaces));
  file->setNoLinesComments(number(counts.noLinesComments));
  file->setNoWords(number(counts.noWords));
  file->setNoCharactersWithoutSpaces(number(counts.noCharactersWithoutSpaces));
  file->setNoCharactersTotal(number(counts.noCharactersTotal));
  return file;
}

/// The record of an item whose attributes could not be read.
std::shared_ptr<FileObject> recordWithoutSize(const std::string& path) {
  auto file = measuredRecord(path, {}, {});
  file->setFileSize(std::nullopt);
  return file;
}

/// What is known of an item that may not be opened, or could not be.
MeasuredFile unread(const std::string& path, const FileStatus& status, DiskError error) {
  return {measuredRecord(path, status, {}), error};
}

MeasuredFile statusOnly(const FileSystem& fileSystem, const std::string& path) {
  const auto status = fileSystem.status(path);
  if (!status) return {nullptr, status.error()};
  return {sizedFile(path, *status), {}};
}

/// A text file that could not be opened, for `error`.
MeasuredFile unopened(const FileSystem& fileSystem, const std::string& path, DiskError error) {
  const auto status = fileSystem.status(path);
  if (!status) return {nullptr, status.error()};
  // What is no regular file is never read, so that is no failure.
  const bool isRegular = status->type == FileStatus::Type::regular;
  return unread(path, *status, isRegular ? error : DiskError{});
}

MeasuredFile opened(const FileSystem& fileSystem, const std::string& path, const Descriptor& file) {
  const auto status = fileSystem.statusOfOpen(file);
  if (!status) return {recordWithoutSize(path), status.error()};
  if (status->type != FileStatus::Type::regular) return unread(path, *status, {});
  const auto counts = countsOf(fileSystem, file, status->size);
  if (!counts) return unread(path, *status, counts.error());
  return {measuredRecord(path, *status, *counts), {}};
}

}  // namespace

MeasuredFile measuredFile(const FileSystem& fileSystem, const FileKindTable& kinds, const std::string& path,
                          Beforehand beforehand) {
  if (!isMeasured(kinds, path)) return statusOnly(fileSystem, path);
  if (beforehand == Beforehand::nothing) {
    // A device or a FIFO must not even be opened.
    const auto status = fileSystem.status(path);
    if (!status) return {nullptr, status.error()};
    if (status->type != FileStatus::Type::regular) return unread(path, *status, {});
  }
  const auto file = fileSystem.open(path);
  return file ? opened(fileSystem, path, *file) : unopened(fileSystem, path, file.error());
}

std::shared_ptr<FileObject> fileStats(const FileSystem& fileSystem, const FileKindTable& kinds,
                                      const std::string& path) {
  return measuredFile(fileSystem, kinds, path, Beforehand::nothing).file;
}

}  // namespace quillmeter
