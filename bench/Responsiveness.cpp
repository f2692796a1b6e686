#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "app/AppDelegate.h"
#include "app/MakeServices.h"
#include "app/OpenPanel.h"
#include "app/ProjectRead.h"
#include "helpers/ProjectFixture.h"
#include "stats/StatsWindowController.h"
#include "ui_AppDelegate.h"
#include "xcode/ProjectReaders.h"

namespace {

using quillmeter::testing::TemporaryFolder;

/// How long the main thread was deaf at a stretch: the longest time between two turns of its loop.
class Heartbeat {
 public:
  Heartbeat() {
    QObject::connect(&timer_, &QTimer::timeout, [this] { beat(); });
    timer_.start(0);
    sinceLast_.start();
  }
  void beat() { longest_ = std::max(longest_, sinceLast_.nsecsElapsed()), sinceLast_.restart(); }
  [[nodiscard]] double longestMilliseconds() const { return static_cast<double>(longest_) / 1e6; }

 private:
  QTimer timer_;
  QElapsedTimer sinceLast_;
  qint64 longest_ = 0;
};

std::string projectOf(const TemporaryFolder& folder, int files) {
  std::string text;
  for (int line = 0; line < 100; ++line)
    text += "int value = compute(1, 2);  // with a comment\n";
  std::vector<std::string> names;
  for (int file = 0; file < files; ++file) {
    names.push_back("source" + std::to_string(file) + ".c");
    folder.file(names.back(), text);
  }
  quillmeter::testing::writeProject(folder, names);
  return folder.path();
}

/// From the drop to the overview on screen.
double openProject(const std::string& project) {
  quillmeter::AppDelegate delegate(quillmeter::makeServices(), std::make_unique<quillmeter::QtOpenPanel>());
  delegate.applicationDidFinishLaunching();
  delegate.fileSelected(project);
  while (delegate.controllerWindow() == nullptr && delegate.parserProject() == nullptr) {
    QApplication::processEvents(QEventLoop::AllEvents, 1);
    if (delegate.outlets().indicatorProgress->isVisible()) break;
  }
  Heartbeat heartbeat;
  while (delegate.controllerWindow() == nullptr)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QElapsedTimer settle;
  settle.start();
  while (settle.elapsed() < 1000)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  return heartbeat.longestMilliseconds();
}

double reportProgress(int reports) {
  quillmeter::ProjectRead read(
      quillmeter::projectReader(quillmeter::ProjectRules::classic),
      [reports](quillmeter::ProjectRead& running) {
        for (int report = 1; report <= reports; ++report) {
          running.delegate()->progressParsingProject(static_cast<double>(report) / reports);
        }
      });
  bool ended = false;
  QObject::connect(&read, &quillmeter::ProjectRead::ended, [&ended] { ended = true; });
  Heartbeat heartbeat;
  read.start();
  while (!ended)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  heartbeat.beat();
  return heartbeat.longestMilliseconds();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const TemporaryFolder folder;
  std::printf("100 000 reports of progress: the interface was deaf for %.1f ms at most\n",
              reportProgress(100'000));
  std::printf("a project of 10 000 files, from the started message to the overview: %.1f ms at most\n",
              openProject(projectOf(folder, 10'000)));
  return 0;
}
