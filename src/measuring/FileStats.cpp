#include "measuring/FileStats.h"

#include <algorithm>
#include <array>
#include <span>

#include "files/FileSystem.h"
#include "measuring/FileKinds.h"
#include "measuring/TextMeasurement.h"
#include "support/Paths.h"

namespace quillmeter {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 16;

/// The counts of an open text file of `size` bytes (0 when that is not known); all 0 when it cannot be read
/// to its end or is not UTF-8.
TextCounts countsOf(const FileSystem& fileSystem, const Descriptor& file, std::uint64_t size) {
  if (!file) return {};
  std::array<char, kBlockSize> block;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the reads
  TextMeasurement measurement;
  for (std::uint64_t read = 0;;) {
    // A file that fits is read up to its size and no further, which saves asking for what is not there.
    const std::uint64_t left = size > read ? size - read : block.size();
    const auto wanted = std::span(block).first(std::min<std::uint64_t>(left, block.size()));
    const auto count = readBlock(fileSystem, file.value(), wanted);
    if (!count) return {};
    measurement.add(wanted.first(*count));
    read += *count;
    if (*count < wanted.size() || read == size) return measurement.finish().value_or(TextCounts{});
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

std::shared_ptr<FileObject> measuredFile(const std::string& path, const FileStatus& status,
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

}  // namespace

std::shared_ptr<FileObject> fileStats(const FileSystem& fileSystem, const FileKindTable& kinds,
                                      const std::string& path) {
  const auto status = fileSystem.status(path);
  if (!status) return nullptr;
  if (!isMeasured(kinds, path)) return sizedFile(path, *status);
  if (status->type != FileStatus::Type::regular) return measuredFile(path, *status, {});
  return measuredFile(path, *status, countsOf(fileSystem, fileSystem.open(path), status->size));
}

std::shared_ptr<FileObject> regularFileStats(const FileSystem& fileSystem, const FileKindTable& kinds,
                                             const std::string& path) {
  if (!isMeasured(kinds, path)) return fileStats(fileSystem, kinds, path);
  const Descriptor file = fileSystem.open(path);
  const auto status = file ? fileSystem.statusOfOpen(file) : std::nullopt;
  if (!status || status->type != FileStatus::Type::regular) return fileStats(fileSystem, kinds, path);
  return measuredFile(path, *status, countsOf(fileSystem, file, status->size));
}

}  // namespace quillmeter
