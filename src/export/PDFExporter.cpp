#include "export/PDFExporter.h"

#include <algorithm>
#include <utility>

#include "export/ReportGroups.h"
#include "measuring/FileKinds.h"
#include "measuring/FileObject.h"
#include "support/AtomicFile.h"
#include "support/NumberFormat.h"
#include "support/Paths.h"

/// The report's content: its order, its groups and the texts of its cells. PDFExporterDrawing.cpp draws them.
namespace quillmeter {
namespace {

/// A sum that wraps around instead of overflowing: sizes may be any number.
std::int64_t sum(std::int64_t left, std::int64_t right) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) + static_cast<std::uint64_t>(right));
}

}  // namespace

std::unique_ptr<PDFExporter> PDFExporter::create(ReportSource source) {
  return std::make_unique<PDFExporter>(std::move(source));
}

PDFExporter::PDFExporter(ReportSource source)
    : source_(std::move(source)), columnTitles_{"File types", "Lines of code", "SLOC", "Size"} {}

void PDFExporter::renderForFilesAtPath(const ReportFiles& files, const std::string& path) {
  setFiles(sortFilesArray(files));
  contentSize_ = 0;
  MyCreatePDFFile(path);
}

std::optional<std::string> PDFExporter::renderForFiles(const ReportFiles& files) {
  setFiles(sortFilesArray(files));
  contentSize_ = 0;
  return drawnDocument();
}

void PDFExporter::MyCreatePDFFile(const std::string& path) {
  const auto document = drawnDocument();
  error_ = document ? writeFileAtomically(path, *document) : "the document does not fit into memory";
}

void PDFExporter::setFiles(ReportFiles files) {
  files_ = std::move(files);
  // A group's row is drawn again on each of its pages; summing once keeps the time linear in the files.
  groupSums_.clear();
  for (const auto& group : reportOrder())
    groupSums_.push_back(sumsOf(files_, group));
}

PDFExporter::GroupSums PDFExporter::sumsOf(ReportFiles const& files,
                                           std::span<const std::string_view> group) {
  GroupSums sums;
  for (const auto& file : files) {
    if (!isOneOf(pathExtension(file->fileName().value_or("")), group)) continue;
    sums.lines = sum(sums.lines, integerValue(file->noLinesTotal()));
    sums.linesWithoutSpaces = sum(sums.linesWithoutSpaces, integerValue(file->noLinesWithoutSpaces()));
    sums.size = sum(sums.size, integerValue(file->fileSize()));
  }
  return sums;
}

PDFExporter::ReportFiles PDFExporter::sortFilesArray(const ReportFiles& files) {
  ReportFiles sorted;
  sorted.reserve(files.size());
  for (const auto& group : reportOrder()) {
    const ReportFiles ofGroup = getFilesForExtensionTypesFromArray(group, files);
    sorted.insert(sorted.end(), ofGroup.begin(), ofGroup.end());
  }
  return sorted;
}

PDFExporter::ReportFiles PDFExporter::getFilesForExtensionTypesFromArray(
    std::span<const std::string_view> extensions, const ReportFiles& files) {
  ReportFiles result;
  for (const auto& file : files) {
    const auto extension = file ? file->getFileExtension() : std::nullopt;
    if (!extension) continue;
    const auto times = std::count(extensions.begin(), extensions.end(), *extension);
    result.insert(result.end(), static_cast<std::size_t>(times), file);
  }
  return result;
}

std::optional<std::span<const std::string_view>> PDFExporter::getArrayRangeBasedOnExtension(
    std::string_view extension) {
  return reportGroup(extension);
}

std::array<std::string, 3> PDFExporter::cellValuesForFileType(std::string_view extension) const {
  const auto& order = reportOrder();
  const auto group = std::find_if(
      order.begin(), order.end(),
      [extension](const ReportExtensions& extensions) { return isOneOf(extension, extensions); });
  const auto index = static_cast<std::size_t>(group - order.begin());
  const GroupSums sums = index < groupSums_.size() ? groupSums_[index] : GroupSums{};
  const bool counted = showsLineCounts(extension);
  return {counted ? std::to_string(sums.lines) : "-", counted ? std::to_string(sums.linesWithoutSpaces) : "-",
          sizeInKilobytes(static_cast<double>(sums.size))};
}

std::array<std::string, 4> PDFExporter::cellValuesForFile(const FileObject& file) {
  const bool counted = showsLineCounts(file.getFileExtension().value_or(""));
  return {file.fileName().value_or(""), counted ? std::to_string(integerValue(file.noLinesTotal())) : "-",
          counted ? std::to_string(integerValue(file.noLinesWithoutSpaces())) : "-",
          sizeInKilobytes(static_cast<double>(integerValue(file.fileSize())))};
}

}  // namespace quillmeter
