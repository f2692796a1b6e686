#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "TablesRecords.h"
#include "analysis/FolderWalk.h"
#include "analysis/ParseProject.h"
#include "stats/CleanUpTable.h"
#include "stats/DetailsTable.h"

/// What the tables cost without a window, and what the clean-up costs on top of walking the folder.
namespace quillmeter {
namespace {

constexpr int kRows = 100000;

void rebuildDetails(benchmark::State& state) {
  const FileList files = bench::sourceRecords(kRows);
  for (auto step : state)
    benchmark::DoNotOptimize(detailsTable(files, 0, true));
}
BENCHMARK(rebuildDetails)->Unit(benchmark::kMillisecond);

void sortDetails(benchmark::State& state) {
  FileTable table = detailsTable(bench::sourceRecords(kRows), 0, true);
  const auto column = static_cast<std::size_t>(state.range(0));
  state.SetLabel(std::string(table.columns()[column].identifier()));
  bool ascending = true;
  for (auto step : state) {
    benchmark::DoNotOptimize(table.sort(column, ascending));
    ascending = !ascending;
  }
}
BENCHMARK(sortDetails)->Arg(0)->Arg(2)->Arg(3)->Arg(4)->Arg(9)->Unit(benchmark::kMillisecond);

/// A folder of a million entries, a tenth of which a project references. With `--benchmark_filter` for
/// another benchmark it is never made. The share of files of a known kind is that of a large source tree.
class BigFolder {
 public:
  static const BigFolder& get() {
    static const BigFolder folder;
    return folder;
  }
  [[nodiscard]] const ParseProject& project() const { return project_; }
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  BigFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quillmeter-bench-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
    constexpr int folders = 1000;
    constexpr int filesInEach = 999;
    FileList referenced;
    for (int i = 0; i < folders; ++i) {
      const std::string folder = path_ + "/folder" + std::to_string(i);
      std::filesystem::create_directory(folder);
      for (int j = 0; j < filesInEach; ++j) {
        // Four of ten are sources, images or interface files; one of ten is referenced.
        static constexpr const char* extensions[] = {"o",   "m", "txt",  "h", "strings",
                                                     "png", "d", "html", "c", "plist"};
        const std::string path = folder + "/SomeController" + std::to_string(j) + "." + extensions[j % 10];
        ::close(::open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
        if (j % 10 != 3) continue;
        auto file = std::make_shared<FileObject>();
        file->setFilePath(path);
        referenced.push_back(std::move(file));
      }
    }
    project_.setInitialPath(path_ + "/Big.xcodeproj");
    project_.setArrayFiles(std::move(referenced));
  }
  ~BigFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string path_;
  ParseProject project_;
};

void walkFolder(benchmark::State& state) {
  const BigFolder& folder = BigFolder::get();
  for (auto step : state)
    benchmark::DoNotOptimize(FolderWalk(folder.path()).size());
}
BENCHMARK(walkFolder)->Unit(benchmark::kMillisecond)->MinTime(5);

void listFolder(benchmark::State& state) {
  const BigFolder& folder = BigFolder::get();
  for (auto step : state)
    benchmark::DoNotOptimize(folder.project().allFilesInFolder());
}
BENCHMARK(listFolder)->Unit(benchmark::kMillisecond)->MinTime(5);

void cleanUpFolder(benchmark::State& state) {
  const BigFolder& folder = BigFolder::get();
  for (auto step : state) {
    const FileTable table = cleanUpTable(folder.project().allFilesInFolder(), folder.project().files());
    state.counters["rows"] = static_cast<double>(table.rows().size());
  }
}
BENCHMARK(cleanUpFolder)->Unit(benchmark::kMillisecond)->MinTime(5);

}  // namespace
}  // namespace quillmeter
