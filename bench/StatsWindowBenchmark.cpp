#include <benchmark/benchmark.h>

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <string>

#include "helpers/FakeServices.h"
#include "helpers/ProjectFixture.h"
#include "stats/FakeStatsHost.h"
#include "stats/StatsWindowController.h"

/// How long the interface is held up between the end of a read and the overview on screen, for a project of
/// 10 000 files. "longest_ms" is the longest stretch in which no event is handled: making the window, showing
/// it, or one round of events until it is painted. It is to stay below 50.
namespace quillmeter {
namespace {

using Clock = std::chrono::steady_clock;

std::shared_ptr<ParseProject> projectOf(int files) {
  FileList list;
  list.reserve(static_cast<std::size_t>(files));
  const std::vector<std::string> extensions{"m", "h", "cpp", "png", "xib"};
  for (int number = 0; number < files; ++number) {
    const std::string& extension = extensions.at(static_cast<std::size_t>(number) % extensions.size());
    list.push_back(testing::record({.name = "File" + std::to_string(number * 7919 % files) + "." + extension,
                                    .size = 1000 + number,
                                    .lines = number % 900,
                                    .linesWithoutSpaces = number % 700,
                                    .comments = number % 90}));
  }
  return testing::projectWith(std::move(list));
}

double milliseconds(Clock::duration duration) {
  return std::chrono::duration<double, std::milli>(duration).count();
}

void showStatistics(benchmark::State& state) {
  testing::FakeStatsHost host(projectOf(static_cast<int>(state.range(0))));
  const testing::FakeServices services;
  double longest = 0.0;
  double creating = 0.0;
  for ([[maybe_unused]] auto iteration : state) {
    auto mark = Clock::now();
    const auto stretch = [&mark, &longest] {
      const double passed = milliseconds(Clock::now() - mark);
      longest = std::max(longest, passed);
      mark = Clock::now();
      return passed;
    };
    // As the application does: made and shown in one go.
    const auto window = StatsWindowController::create(host, services.services());
    creating = std::max(creating, milliseconds(Clock::now() - mark));
    window->show();
    stretch();
    for (int round = 0; round < 5; ++round) {
      QApplication::processEvents();
      stretch();
    }
    state.PauseTiming();
    window->closeWithoutAsking();
    state.ResumeTiming();
  }
  state.counters["longest_ms"] = longest;
  state.counters["creating_ms"] = creating;
}

}  // namespace
}  // namespace quillmeter

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  benchmark::RegisterBenchmark("StatsWindow/show", quillmeter::showStatistics)
      ->Arg(100)
      ->Arg(10000)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(20);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
