#include "export/Export.h"

#include "analysis/MeasuredProject.h"
#include "export/CsvText.h"
#include "support/AtomicFile.h"

namespace quillmeter {

std::optional<std::string> exportCsv(const MeasuredProject& project, const ExportKinds& kinds,
                                     const std::string& path) {
  return writeFileAtomically(path, csvText(filesToExport(project.files(), kinds)));
}

std::optional<std::string> exportPdf(const ReportSource& source, const ExportKinds& kinds,
                                     const std::string& path) {
  const PDFExporter::ReportFiles files = reportFiles(source.project->files(), kinds);
  PDFExporter::create(source)->renderForFilesAtPath(files, path);
  const auto second = PDFExporter::create(source);
  second->renderForFilesAtPath(files, path);
  return second->error();
}

PDFExporter::ReportFiles reportFiles(const FileList& files, const ExportKinds& kinds) {
  PDFExporter::ReportFiles result;
  for (const ExportedFile& exported : filesToExport(files, kinds))
    result.push_back(exported.file);
  return result;
}

}  // namespace quillmeter
