#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <array>

#include "export/CsvText.h"
#include "export/Export.h"
#include "export/FakeReportChart.h"
#include "helpers/ProjectFixture.h"

/// The two exports over projects of many files. `peak_MiB` is the process's greatest memory use so far, so
/// run one benchmark at a time (--benchmark_filter) to read it.
namespace quillmeter {
namespace {

FileList files(std::int64_t count, std::size_t nameLength) {
  constexpr std::array<const char*, 8> kExtensions = {"m", "h", "c", "mm", "cpp", "png", "xib", "m"};
  FileList result;
  for (std::int64_t number = 0; number < count; ++number) {
    // Names in an order of their own, as in a project.
    std::string name = std::to_string(number * 7919 % 1000003);
    name.insert(0, nameLength > name.size() ? nameLength - name.size() : 0, 'N');
    name.append(".").append(kExtensions[static_cast<std::size_t>(number) % kExtensions.size()]);
    result.push_back(testing::record(
        {.name = name, .size = number * 97, .lines = number % 3000, .linesWithoutSpaces = number % 2000}));
  }
  return result;
}

ReportSource sourceOf(FileList list) {
  ReportSource source;
  source.project = testing::projectWith(std::move(list));
  source.overviewTexts = {"12,345", "678", "90"};
  source.chart = std::make_shared<testing::FakeReportChart>();
  return source;
}

void reportPeak(benchmark::State& state) {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  state.counters["peak_MiB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
}

/// One rendering, into memory.
void renderReport(benchmark::State& state) {
  const ReportSource source = sourceOf(files(state.range(0), static_cast<std::size_t>(state.range(1))));
  const auto selected = reportFiles(*source.project, classicKinds().allGroups());
  std::int32_t pages = 0;
  for (auto _ : state) {
    PDFExporter exporter(source);
    benchmark::DoNotOptimize(exporter.renderForFiles(selected));
    pages = exporter.currentPageNo();
  }
  state.counters["pages"] = pages;
  reportPeak(state);
}
BENCHMARK(renderReport)
    ->ArgNames({"files", "name"})
    ->Args({0, 16})
    ->Args({5000, 16})
    ->Args({10000, 16})
    ->Args({20000, 16})
    ->Args({22000, 16})
    ->Args({40000, 16})
    ->Args({20000, 250})
    ->Unit(benchmark::kMillisecond);

/// What the Export tab does: choosing, sorting, and the two renderings written to a file.
void exportPdfAsTheTabDoes(benchmark::State& state) {
  const testing::TemporaryFolder folder;
  const ReportSource source = sourceOf(files(state.range(0), 16));
  for (auto _ : state)
    benchmark::DoNotOptimize(exportPdf(source, classicKinds().allGroups(), folder / "report.pdf"));
  reportPeak(state);
}
BENCHMARK(exportPdfAsTheTabDoes)->ArgName("files")->Arg(20000)->Arg(22000)->Unit(benchmark::kMillisecond);

void chooseAndWriteCsv(benchmark::State& state) {
  const FileList list = files(state.range(0), 16);
  for (auto _ : state)
    benchmark::DoNotOptimize(csvText(filesToExport(list, classicKinds().allGroups(), classicKinds())));
  reportPeak(state);
}
BENCHMARK(chooseAndWriteCsv)->ArgName("files")->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillmeter
