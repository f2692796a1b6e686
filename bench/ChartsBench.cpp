#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <memory>
#include <string>

#include "analysis/ParseProject.h"
#include "charts/ChartValues.h"
#include "charts/ChartsHost.h"
#include "charts/ChartsViewController.h"
#include "charts/GrowIn.h"
#include "helpers/FakeServices.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

QApplication& application() {
  static int argc = 1;
  static char name[] = "charts_bench";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication instance(argc, argv);
  return instance;
}

/// A project of `count` files of which most are sources, in no order of size.
std::shared_ptr<ParseProject> largeProject(std::int64_t count) {
  constexpr const char* extensions[] = {".m", ".h", ".cpp", ".M", ".xib", ".png", ".H", ".mm"};
  FileList files;
  std::uint64_t state = 1;
  for (std::int64_t i = 0; i < count; ++i) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    testing::RecordValues values;
    values.name = "SomeRatherUsualFileName" + std::to_string(i) + extensions[i % 8];
    values.size = static_cast<std::int64_t>(state >> 40U);
    values.lines = static_cast<std::int64_t>(state >> 52U);
    files.push_back(testing::record(values));
  }
  return testing::projectWith(std::move(files));
}

void paintInto(benchmark::State& state, DrawingCanvasView& canvas, qreal scale) {
  QImage image(QSize(660, 540) * scale, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  for (auto _ : state) {
    QPainter painter(&image);
    painter.fillRect(QRectF(0, 0, 660, 540), Qt::white);
    canvas.paintOn(painter, QSizeF(660, 540));
  }
}

/// A full repaint of fifteen bars; the argument is the scale.
void RepaintBars(benchmark::State& state) {
  application();
  DrawingCanvasView canvas;
  FileList files;
  for (int i = 0; i < 15; ++i) {
    files.push_back(testing::record({.name = "File.m", .lines = 1000 - 40 * i}));
  }
  canvas.setGraphType(graphTypeOf(ChartKind::sourceFilesBars));
  canvas.setShouldDrawAverageLine(true);
  canvas.setMaxNumberOfLines(1000);
  canvas.setAverageNumberOfLines(720);
  canvas.setArrayValues(files);
  paintInto(state, canvas, static_cast<qreal>(state.range(0)));
}
BENCHMARK(RepaintBars)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

/// A full repaint of a pie at its full size; the argument is the scale.
void RepaintPie(benchmark::State& state) {
  application();
  DrawingCanvasView canvas;
  canvas.setGraphType(graphTypeOf(ChartKind::codeLinesPie));
  canvas.setCIRCLE_RADIUS(pieRadius(0));
  canvas.setPieChart1Perc1(0.6);
  canvas.setPieChart1Perc2(0.25);
  paintInto(state, canvas, static_cast<qreal>(state.range(0)));
}
BENCHMARK(RepaintPie)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

/// Choosing the chart of source files: what blocks the interface until the grow-in is scheduled. The argument
/// is the number of files of the project.
void SwitchToBarChart(benchmark::State& state) {
  application();
  class Host final : public ChartsHost {
   public:
    explicit Host(std::int64_t count) : project_(largeProject(count)) {}
    [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project_; }
    [[nodiscard]] SourceTotals sourceTotals() const override { return {100, 10, 20}; }

   private:
    std::shared_ptr<ParseProject> project_;
  };
  Host host(state.range(0));
  const testing::FakeServices fakes;
  const auto controller = ChartsViewController::create(host, fakes.services());
  const auto* button = controller->findChild<QPushButton*>(QStringLiteral("btnFilter3"));
  for (auto _ : state)
    controller->tapSelectedFilter(button);
}
BENCHMARK(SwitchToBarChart)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillmeter
