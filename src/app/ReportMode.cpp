#include "app/ReportMode.h"

#include <unistd.h>

#include <QApplication>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/MemoryFailure.h"
#include "export/Export.h"
#include "overview/OverviewFigures.h"
#include "stats/CanvasReportChart.h"
#include "support/CommandConfinement.h"
#include "support/ExitStatus.h"
#include "support/MemoryGuard.h"
#include "support/NumberFormat.h"
#include "support/Text.h"
#include "support/WriteAll.h"
#include "xcode/CurrentKinds.h"
#include "xcode/ProjectReaders.h"

namespace quillmeter {
namespace {

constexpr int kArguments = 6;

/// What the toolkit and the libraries below it take to start.
constexpr std::size_t kRoom = std::size_t{64} << 20;

/// What the toolkit says of its surroundings (no run-time folder, no theme) helps nobody on a build server.
void hearToolkit(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
  if (isLostThread(message)) endForWantOfMemory();
}

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
std::optional<std::string> writeToStandardOutput(const std::string& document) {
  const auto error = writeAll(STDOUT_FILENO, document);
  if (error) return "cannot write standard output: " + *error;
  return std::nullopt;
}

int wrongUsage() {
  return failed(kWrongUsage, "usage: quillmeter --report FILE KINDS RULES BUNDLE");
}

int report(const std::string& file, const FileGroups& groups, ProjectRules rules, const std::string& bundle) {
  confineToOutputs({file});
  const std::shared_ptr<ProjectReader> project = projectReader(rules);
  try {
    project->parseFileAtPathAndDelegate(bundle, nullptr);
  } catch (const TooFewDescriptors& failure) {
    return failed(kNothingMeasured, failure.what());
  }
  if (!project->findings().error.empty()) return failed(kNothingMeasured, project->findings().error);
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
  // A report without the words or figures that there was no memory for would look like one.
  endWhenMemoryRunsOut(endForWantOfMemory);
  // What the toolkit has no memory for, a font say, it does without, and does not tell.
  if (!isThereRoomFor(kRoom)) endForWantOfMemory();
  const auto rules = argc == kArguments ? rulesNamed(argv[4]) : std::nullopt;
  if (!rules) return wrongUsage();
  const auto groups = fileGroupsNamed(argv[3], kindsBy(*rules));
  if (!groups) return wrongUsage();
  qInstallMessageHandler(hearToolkit);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int toolkitArguments = 1;
  const QApplication application(toolkitArguments, argv);
  return report(argv[2], *groups, *rules, argv[5]);
}

}  // namespace quillmeter
