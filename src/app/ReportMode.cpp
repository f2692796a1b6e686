#include "app/ReportMode.h"

#include <unistd.h>

#include <QApplication>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/ParseProject.h"
#include "export/Export.h"
#include "overview/OverviewFigures.h"
#include "stats/CanvasReportChart.h"
#include "support/AtomicFile.h"
#include "support/Confinement.h"
#include "support/NumberFormat.h"
#include "support/Text.h"
#include "support/WriteAll.h"

namespace quillmeter {
namespace {

constexpr int kSuccess = 0;
constexpr int kWrongUsage = 2;
constexpr int kNothingMeasured = 3;
constexpr int kOutputFailed = 4;
constexpr int kArguments = 5;

int failed(int status, const std::string& message) {
  std::fprintf(stderr, "quillmeter: %s\n", onOneLine(message).c_str());
  return status;
}

ReportSource sourceOf(const std::shared_ptr<const MeasuredProject>& project) {
  const OverviewFigureTexts texts = overviewFigureTexts(overviewFigures(*project), overviewFormatter());
  ReportSource source;
  source.project = project;
  source.overviewTexts = {texts.lblSizeMetrics[6], texts.lblSizeMetrics[7], texts.lblSizeMetrics[8]};
  source.chart = std::make_shared<CanvasReportChart>();
  return source;
}

/// Why the bytes could not be written to standard output; nothing on success.
std::optional<std::string> writeToStandardOutput(const std::optional<std::string>& document) {
  if (!document) return "the document does not fit into memory";
  const auto error = writeAll(STDOUT_FILENO, *document);
  if (error) return "cannot write standard output: " + *error;
  return std::nullopt;
}

int report(const std::string& file, const FileGroups& groups, const std::string& bundle) {
  confineThread(file == "-" ? std::vector<std::string>() : std::vector{folderOfOutput(file)});
  const auto project = std::make_shared<ParseProject>();
  try {
    project->parseFileAtPathAndDelegate(bundle, nullptr);
  } catch (const TooFewDescriptors& failure) {
    return failed(kNothingMeasured, failure.what());
  }
  if (project->files().empty()) return failed(kNothingMeasured, "nothing to report in " + bundle);
  const auto files = reportFiles(*project, groups);
  const auto exporter = PDFExporter::create(sourceOf(project));
  if (file == "-") {
    const auto error = writeToStandardOutput(exporter->renderForFiles(files));
    return error ? failed(kOutputFailed, *error) : kSuccess;
  }
  exporter->renderForFilesAtPath(files, file);
  if (!exporter->error()) return kSuccess;
  return failed(kOutputFailed, "cannot write " + file + ": " + *exporter->error());
}

}  // namespace

std::optional<int> runReportMode(int argc, char** argv) {
  if (argc < 2 || std::string_view(argv[1]) != "--report") return std::nullopt;
  const auto groups = argc == kArguments ? fileGroupsNamed(argv[3], classicKinds()) : std::nullopt;
  if (!groups) return failed(kWrongUsage, "usage: quillmeter --report FILE KINDS BUNDLE");
  // What the toolkit says of its surroundings (no run-time folder, no theme) helps nobody on a build server.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int toolkitArguments = 1;
  const QApplication application(toolkitArguments, argv);
  return report(argv[2], *groups, argv[4]);
}

}  // namespace quillmeter
