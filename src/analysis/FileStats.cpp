#include "analysis/FileStats.h"

#include <array>
#include <span>

#include "analysis/FileKinds.h"
#include "analysis/FileSystem.h"
#include "analysis/TextMeasurement.h"
#include "support/Paths.h"

namespace quillmeter {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 16;

/// The counts of a text file; absent when it cannot be read to its end or is not UTF-8.
std::optional<TextCounts> measuredFile(const FileSystem& fileSystem, const std::string& path) {
  const Descriptor file = fileSystem.open(path);
  if (!file) return std::nullopt;
  std::array<char, kBlockSize> block;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the reads
  TextMeasurement measurement;
  for (;;) {
    const auto count = readBlock(fileSystem, file.value(), block);
    if (!count) return std::nullopt;
    measurement.add(std::span(block).first(*count));
    if (*count < block.size()) return measurement.finish();
  }
}

Number number(std::uint64_t value) {
  return Number(static_cast<std::int64_t>(value));
}

}  // namespace

std::shared_ptr<FileObject> fileStats(const FileSystem& fileSystem, const std::string& path) {
  const auto status = fileSystem.status(path);
  if (!status) return nullptr;
  auto file = std::make_shared<FileObject>();
  const std::string_view name = lastPathComponent(path);
  file->setFilePath(path);
  file->setFileName(std::string(name));
  file->setFileSize(Number(status->size));
  file->setNoLinesTotal(Number(0));
  file->setNoLinesWithoutSpaces(Number(0));
  const FileKind kind = fileKindOfPath(name);
  if (kind != FileKind::code && kind != FileKind::interface) return file;

  const TextCounts counts = status->type == FileStatus::Type::regular
                                ? measuredFile(fileSystem, path).value_or(TextCounts{})
                                : TextCounts{};
  file->setNoLinesTotal(number(counts.noLinesTotal));
  file->setNoLinesWithoutSpaces(number(counts.noLinesWithoutSpaces));
  file->setNoLinesComments(number(counts.noLinesComments));
  file->setNoWords(number(counts.noWords));
  file->setNoCharactersWithoutSpaces(number(counts.noCharactersWithoutSpaces));
  file->setNoCharactersTotal(number(counts.noCharactersTotal));
  return file;
}

}  // namespace quillmeter
