#include "export/PDFExporter.h"

#include <algorithm>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "measuring/FileObject.h"
#include "support/AtomicFile.h"
#include "support/NumberFormat.h"
#include "support/Paths.h"

/// The report's content: its order, its groups and the texts of its cells. PDFExporterDrawing.cpp draws them.
namespace quillmeter {

std::unique_ptr<PDFExporter> PDFExporter::create(ReportSource source) {
  return std::make_unique<PDFExporter>(std::move(source));
}

PDFExporter::PDFExporter(ReportSource source)
    : source_(std::move(source)),
      groups_(source_.project->kinds()),
      columnTitles_{"File types", "Lines of code", "SLOC", "Size"} {}

void PDFExporter::renderForFilesAtPath(const ReportFiles& files, const std::string& path) {
  setFiles(sortFilesArray(files));
  contentSize_ = 0;
  MyCreatePDFFile(path);
}

std::string PDFExporter::renderForFiles(const ReportFiles& files) {
  setFiles(sortFilesArray(files));
  contentSize_ = 0;
  return drawnDocument();
}

void PDFExporter::MyCreatePDFFile(const std::string& path) {
  error_ = writeFileAtomically(path, drawnDocument());
}

void PDFExporter::setFiles(ReportFiles files) {
  files_ = std::move(files);
  // A group's row is drawn again on each of its pages; summing once keeps the time linear in the files.
  groupSums_.clear();
  for (const auto& group : groups_.order())
    groupSums_.push_back(sumsOf(files_, group));
}

PDFExporter::GroupSums PDFExporter::sumsOf(ReportFiles const& files,
                                           std::span<const std::string_view> group) {
  GroupSums sums;
  for (const auto& file : files) {
    if (!isOneOf(pathExtension(file->fileName().value_or("")), group)) continue;
    sums.lines = wrappingSum(sums.lines, integerValue(file->noLinesTotal()));
    sums.linesWithoutSpaces =
        wrappingSum(sums.linesWithoutSpaces, integerValue(file->noLinesWithoutSpaces()));
    sums.size = wrappingSum(sums.size, integerValue(file->fileSize()));
  }
  return sums;
}

PDFExporter::ReportFiles PDFExporter::sortFilesArray(const ReportFiles& files) const {
  ReportFiles sorted;
  sorted.reserve(files.size());
  for (const auto& group : groups_.order()) {
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
    std::string_view extension) const {
  return groups_.groupOf(extension);
}

std::array<std::string, 3> PDFExporter::cellValuesForFileType(std::string_view extension) const {
  const auto group = groups_.indexOf(extension);
  const GroupSums sums = group && *group < groupSums_.size() ? groupSums_[*group] : GroupSums{};
  const bool counted = groups_.showsLineCounts(extension);
  return {counted ? std::to_string(sums.lines) : "-", counted ? std::to_string(sums.linesWithoutSpaces) : "-",
          sizeInKilobytes(static_cast<double>(sums.size))};
}

std::array<std::string, 4> PDFExporter::cellValuesForFile(const FileObject& file) const {
  const bool counted = groups_.showsLineCounts(file.getFileExtension().value_or(""));
  return {file.fileName().value_or(""), counted ? std::to_string(integerValue(file.noLinesTotal())) : "-",
          counted ? std::to_string(integerValue(file.noLinesWithoutSpaces())) : "-",
          sizeInKilobytes(static_cast<double>(integerValue(file.fileSize())))};
}

}  // namespace quillmeter
