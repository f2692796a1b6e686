#include "export/Export.h"

#include "analysis/MeasuredProject.h"
#include "export/CsvText.h"
#include "support/AtomicFile.h"

namespace quillmeter {

std::optional<std::string> exportCsv(const MeasuredProject& project, const FileGroups& groups,
                                     const std::string& path) {
  return writeFileAtomically(path, csvText(filesToExport(project.files(), groups, project.kinds())));
}

std::optional<std::string> exportPdf(const ReportSource& source, const FileGroups& groups,
                                     const std::string& path) {
  const PDFExporter::ReportFiles files = reportFiles(*source.project, groups);
  PDFExporter::create(source)->renderForFilesAtPath(files, path);
  const auto second = PDFExporter::create(source);
  second->renderForFilesAtPath(files, path);
  return second->error();
}

PDFExporter::ReportFiles reportFiles(const MeasuredProject& project, const FileGroups& groups) {
  PDFExporter::ReportFiles result;
  for (const ExportedFile& exported : filesToExport(project.files(), groups, project.kinds()))
    result.push_back(exported.file);
  return result;
}

}  // namespace quillmeter
