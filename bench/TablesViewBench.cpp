#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>

#include "TablesRecords.h"
#include "controls/Theme.h"
#include "tables/DetailsTable.h"
#include "tables/FileTableView.h"

/// What a user waits for in a table of 100 000 rows.
namespace quillmeter {
namespace {

constexpr int kRows = 100000;

std::unique_ptr<FileTableView> shownView(const FileList& files) {
  auto view = std::make_unique<FileTableView>();
  view->setRevealButtonLook(RevealButtonLook::magnifier);
  view->resize(1280, 900);
  view->show();
  view->setTable(detailsTable(files, classicKinds(), detailsFilter(classicKinds(), 0), true));
  QApplication::processEvents();
  return view;
}

void rebuild(benchmark::State& state) {
  const FileList files = bench::sourceRecords(kRows);
  const auto view = shownView(files);
  for (auto step : state) {
    view->setTable(detailsTable(files, classicKinds(), detailsFilter(classicKinds(), 0), true));
    QApplication::processEvents();
  }
}
BENCHMARK(rebuild)->Unit(benchmark::kMillisecond);

void sortByHeader(benchmark::State& state) {
  const auto view = shownView(bench::sourceRecords(kRows));
  const int column = static_cast<int>(state.range(0));
  Qt::SortOrder order = Qt::AscendingOrder;
  for (auto step : state) {
    view->horizontalHeader()->setSortIndicator(column, order);
    QApplication::processEvents();
    order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
  }
}
BENCHMARK(sortByHeader)->Arg(0)->Arg(2)->Arg(3)->Unit(benchmark::kMillisecond);

void sortWithAllRowsSelected(benchmark::State& state) {
  const auto view = shownView(bench::sourceRecords(kRows));
  view->selectAll();
  Qt::SortOrder order = Qt::AscendingOrder;
  for (auto step : state) {
    view->horizontalHeader()->setSortIndicator(2, order);
    QApplication::processEvents();
    order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
  }
}
BENCHMARK(sortWithAllRowsSelected)->Unit(benchmark::kMillisecond);

/// Every frame is a page further, so that no row is painted from what was there before.
void scrollFrame(benchmark::State& state) {
  const auto view = shownView(bench::sourceRecords(kRows));
  QScrollBar& bar = *view->verticalScrollBar();
  QImage frame(view->size(), QImage::Format_ARGB32_Premultiplied);
  for (auto step : state) {
    bar.setValue(bar.value() + bar.pageStep() < bar.maximum() ? bar.value() + bar.pageStep() : 0);
    view->render(&frame);
  }
}
BENCHMARK(scrollFrame)->Unit(benchmark::kMillisecond);

void typeToFind(benchmark::State& state) {
  const auto view = shownView(bench::sourceRecords(kRows));
  for (auto step : state)
    view->keyboardSearch(QStringLiteral("q"));
}
BENCHMARK(typeToFind)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillmeter

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  qApp->setStyleSheet(quillmeter::styleSheetFor(quillmeter::themeFor(QApplication::palette())));
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
