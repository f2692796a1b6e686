#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <QApplication>
#include <QPixmapCache>
#include <QWindow>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "app/AppDelegate.h"
#include "app/OpenPanel.h"
#include "helpers/FakeServices.h"
#include "helpers/QtWaiting.h"
#include "stats/StatsWindowController.h"

/// What only shows after the application has opened and closed thousands of projects. QUILLMETER_LOAD_WINDOWS
/// says how many.
namespace quillmeter {
namespace {

using namespace std::chrono_literals;

/// Nobody asks for it here.
class NoOpenPanel final : public OpenPanel {
 public:
  std::optional<std::string> runModal(QWidget* /*parent*/, const std::string& /*folder*/) override {
    return std::nullopt;
  }
};

/// What is not to grow.
struct Holdings {
  std::ptrdiff_t descriptors;
  qsizetype widgets;
  qsizetype topLevelWidgets;
  qsizetype windows;
  qsizetype objects;  ///< of the application: what is left in its trees
  long memory;        ///< KiB that were asked for and not given back
  long resident;      ///< KiB
};

class WindowLoad : public ::testing::Test {
 protected:
  WindowLoad() : delegate(std::make_unique<AppDelegate>(fakes.services(), std::make_unique<NoOpenPanel>())) {
    delegate->applicationDidFinishLaunching();
  }

  /// One project: opened as by a drop, each of its pages shown, closed as by its user.
  void openAndClose(int time) {
    const bool isCurrent = time % 2 == 1;
    delegate->startWithRules(isCurrent ? ProjectRules::current : ProjectRules::classic);
    delegate->fileSelected(isCurrent ? QUILLMETER_SOURCE_DIR "/samples/Weather"
                                     : QUILLMETER_SOURCE_DIR "/samples/Notebook");
    fakes.delayedCalls->advance(500ms);
    ASSERT_TRUE(testing::waitFor([&] { return delegate->controllerWindow() != nullptr; }));
    StatsWindowController* const window = delegate->controllerWindow();
    for (const auto show : {&StatsWindowController::tapDetailsTab, &StatsWindowController::tapChartsTab,
                            &StatsWindowController::tapExportTab, &StatsWindowController::tapCleanUpTool}) {
      (window->*show)();
      QCoreApplication::processEvents();
    }
    fakes.alerts->answers = {0};
    window->tapCloseTab();
    ASSERT_EQ(delegate->controllerWindow(), nullptr);
    fakes.delayedCalls->advance(5s);  // the reminder counts
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // What the services note for tests grows; that is not the application's.
    fakes.delayedCalls->delays.clear();
    fakes.alerts->shown.clear();
    fakes.alerts->answers.clear();
  }

  [[nodiscard]] Holdings holdings() const {
    QPixmapCache::clear();  // which has a limit of its own, ten megabytes
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    const auto heap = ::mallinfo2();
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return {std::distance(begin(descriptors), end(descriptors)),
            QApplication::allWidgets().size(),
            QApplication::topLevelWidgets().size(),
            QGuiApplication::allWindows().size(),
            delegate->findChildren<QObject*>().size() + qApp->findChildren<QObject*>().size(),
            static_cast<long>((heap.uordblks + heap.hblkhd) / 1024),
            pages * ::sysconf(_SC_PAGESIZE) / 1024};
  }

  testing::FakeServices fakes;
  std::unique_ptr<AppDelegate> delegate;
};

TEST_F(WindowLoad, ProjectsOpenedAndClosedLeaveMemoryDescriptorsAndWindowsAsTheyWere) {
  const char* const text = std::getenv("QUILLMETER_LOAD_WINDOWS");
  const int times = text == nullptr ? 60 : std::atoi(text);
  const int before = 20;  // what the toolkit, its caches and the threads' heaps keep
  for (int time = 0; time < before; ++time)
    openAndClose(time);
  const Holdings first = holdings();
  for (int time = 0; time < times; ++time)
    openAndClose(time);
  const Holdings last = holdings();
  std::printf(
      "[   LOAD   ] %d opens, %ld KiB in use, %ld more than after the first %d; %ld KiB resident, %ld more\n",
      times, last.memory, last.memory - first.memory, before, last.resident, last.resident - first.resident);
  EXPECT_EQ(last.descriptors, first.descriptors);
  EXPECT_EQ(last.widgets, first.widgets);
  EXPECT_EQ(last.topLevelWidgets, first.topLevelWidgets);
  EXPECT_EQ(last.windows, first.windows);
  EXPECT_EQ(last.objects, first.objects);
  // Pictures that the toolkit keeps for each window would be half a KiB an opening and more.
  EXPECT_LT(last.memory - first.memory, 64 + times / 8);
}

}  // namespace
}  // namespace quillmeter
