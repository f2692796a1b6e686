#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "TablesRecords.h"
#include "analysis/ParseProject.h"
#include "files/FolderWalk.h"
#include "tables/CleanUpTable.h"
#include "tables/DetailsTable.h"

/// What the tables cost without a window, and what the clean-up costs on top of walking the folder.
namespace quillmeter {
namespace {

constexpr int kRows = 100000;

FileTable allSources(const FileList& files) {
  return detailsTable(files, classicKinds(), detailsFilter(classicKinds(), 0), true);
}

void rebuildDetails(benchmark::State& state) {
  const FileList files = bench::sourceRecords(kRows);
  for (auto step : state)
    benchmark::DoNotOptimize(allSources(files));
}
BENCHMARK(rebuildDetails)->Unit(benchmark::kMillisecond);

void sortDetails(benchmark::State& state) {
  FileTable table = allSources(bench::sourceRecords(kRows));
  const auto column = static_cast<std::size_t>(state.range(0));
  state.SetLabel(std::string(table.columns()[column].identifier));
  bool ascending = true;
  for (auto step : state) {
    benchmark::DoNotOptimize(table.sort(column, ascending));
    ascending = !ascending;
  }
}
BENCHMARK(sortDetails)->Arg(0)->Arg(2)->Arg(3)->Arg(4)->Arg(9)->Unit(benchmark::kMillisecond);

/// How many of a thousand entries are files of a known kind that no project references.
enum Leftovers : int { few = 1, many = 300 };

/// A folder of a million entries, a tenth of which a project references. Made when first asked for.
class BigFolder {
 public:
  static const BigFolder& get(benchmark::State& state) {
    if (state.range(0) == few) {
      static const BigFolder folder(few);
      return folder;
    }
    static const BigFolder folder(many);
    return folder;
  }
  [[nodiscard]] const ParseProject& project() const { return project_; }
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  explicit BigFolder(int leftovers) {
    std::string pattern = (std::filesystem::temp_directory_path() / "quillmeter-bench-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
    constexpr int folders = 1000;
    constexpr int filesInEach = 999;
    FileList referenced;
    for (int i = 0; i < folders; ++i) {
      const std::string folder = path_ + "/folder" + std::to_string(i);
      std::filesystem::create_directory(folder);
      for (int j = 0; j < filesInEach; ++j) {
        static constexpr const char* known[] = {"m", "h", "png", "c", "xib"};
        static constexpr const char* other[] = {"o", "txt", "strings", "d", "html", "plist"};
        // Spread over the folder: 7 and 999 have no common divisor.
        const int place = j * 7 % filesInEach;
        const char* extension = place < 100 + leftovers ? known[j % 5] : other[j % 6];
        const std::string path = folder + "/SomeController" + std::to_string(j) + "." + extension;
        ::close(::open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
        if (place >= 100) continue;
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
  const BigFolder& folder = BigFolder::get(state);
  for (auto step : state)
    benchmark::DoNotOptimize(FolderWalk(folder.path()).size());
}
BENCHMARK(walkFolder)->Arg(few)->Arg(many)->Unit(benchmark::kMillisecond)->MinTime(3);

void cleanUpFolder(benchmark::State& state) {
  const BigFolder& folder = BigFolder::get(state);
  for (auto step : state) {
    const FileTable table = cleanUpTable(unreferencedFiles(folder.project()), classicKinds());
    state.counters["rows"] = static_cast<double>(table.rows().size());
  }
}
BENCHMARK(cleanUpFolder)->Arg(few)->Arg(many)->Unit(benchmark::kMillisecond)->MinTime(3);

void listFolder(benchmark::State& state) {
  const BigFolder& folder = BigFolder::get(state);
  for (auto step : state)
    benchmark::DoNotOptimize(folder.project().allFilesInFolder());
}
BENCHMARK(listFolder)->Arg(few)->Arg(many)->Unit(benchmark::kMillisecond)->MinTime(3);

}  // namespace
}  // namespace quillmeter
