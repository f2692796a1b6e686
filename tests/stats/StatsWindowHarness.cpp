#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <string>

#include "analysis/ParseProject.h"
#include "controls/ApplicationTheme.h"
#include "helpers/FakeServices.h"
#include "helpers/ProjectFixture.h"
#include "stats/StatsHost.h"
#include "stats/StatsWindowController.h"

/// Shows the statistics window of a made-up project, to be looked at:
/// statistics_window_harness [usual|empty|huge|long] [tab 1-4] [dark].
namespace quillmeter::testing {
namespace {

class HarnessHost final : public StatsHost {
 public:
  explicit HarnessHost(std::shared_ptr<const MeasuredProject> project) : project_(std::move(project)) {}
  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project_; }
  void showBackMainWindow() override { QCoreApplication::quit(); }
  [[nodiscard]] std::string rulesOffer() const override { return {}; }
  void measureBy(ProjectRules /*rules*/) override {}
  void quitApplication() override { QCoreApplication::quit(); }

 private:
  std::shared_ptr<const MeasuredProject> project_;
};

std::shared_ptr<ParseProject> usualProject(const std::string& title) {
  FileList files;
  const std::vector<std::string> extensions{"m",   "h",   "m",   "h",    "cpp", "mm",
                                            "png", "xib", "jpg", "icns", "c"};
  for (int number = 0; number < 120; ++number) {
    const std::string& extension = extensions.at(static_cast<std::size_t>(number) % extensions.size());
    const std::int64_t lines = extension == "png" || extension == "jpg" ? 0 : 40 + number * 37 % 700;
    files.push_back(record({.name = "Controller" + std::to_string(number) + "." + extension,
                            .size = 900 + number * 331 % 40000,
                            .lines = lines,
                            .linesWithoutSpaces = lines * 8 / 10,
                            .comments = lines / 6,
                            .words = lines * 5,
                            .characters = lines * 31}));
  }
  return projectWith(std::move(files), title);
}

std::shared_ptr<ParseProject> projectNamed(const std::string& kind) {
  if (kind == "empty") return projectWith({}, "Empty");
  if (kind == "long") {
    std::string title = "Enterprise Customer Relationship Suite – the long-running 2011 rewrite, ";
    while (title.size() < 120)
      title += "second edition ";
    return usualProject(title.substr(0, 122));
  }
  if (kind == "huge") {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    return projectWith({record({.name = "a.m", .size = most, .lines = most, .linesWithoutSpaces = most}),
                        record({.name = "b.m", .lines = most, .comments = most})},
                       "Huge");
  }
  return usualProject("Quill");
}

int run(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  const std::string kind = argc > 1 ? argv[1] : "usual";
  const int tab = argc > 2 ? std::atoi(argv[2]) : 1;
  if (argc > 3) {
    QPalette palette(QColor(0x2B, 0x2F, 0x33));
    palette.setColor(QPalette::Base, QColor(0x20, 0x24, 0x28));
    QApplication::setPalette(palette);
  }
  HarnessHost host(projectNamed(kind));
  const FakeServices services;
  const ApplicationTheme theme;
  const auto window = StatsWindowController::create(host, services.services());
  window->show();
  if (tab == 2) window->tapDetailsTab();
  if (tab == 3) window->tapChartsTab();
  if (tab == 4) window->tapExportTab();
  if (tab == 5) window->tapCleanUpTool();
  services.delayedCalls->advance(std::chrono::milliseconds(3500));
  return QApplication::exec();
}

}  // namespace
}  // namespace quillmeter::testing

int main(int argc, char** argv) {
  return quillmeter::testing::run(argc, argv);
}
