#pragma once

#include <optional>
#include <string>

#include "export/ExportSelection.h"
#include "export/PDFExporter.h"

/// An export as a whole: choosing the files, making the text or the report and writing it. Each gives the
/// system's message when the file could not be written (it is then as it was before), nothing on success, and
/// throws std::bad_alloc when memory runs out; the file is then as it was or whole.
namespace quillmeter {

[[nodiscard]] std::optional<std::string> exportCsv(const MeasuredProject& project, const FileGroups& groups,
                                                   const std::string& path);

/// Renders the report twice, the second one replacing the first, as this export has always done.
[[nodiscard]] std::optional<std::string> exportPdf(const ReportSource& source, const FileGroups& groups,
                                                   const std::string& path);

/// The files of a report: the records of what `filesToExport` gives.
[[nodiscard]] PDFExporter::ReportFiles reportFiles(const MeasuredProject& project, const FileGroups& groups);

}  // namespace quillmeter
