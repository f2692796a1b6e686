/// Reading projects by the current rules.
///
///   quillmeter_xcode_benchmark              a made-up description of a million objects, about 100 MB:
///   parsed,
///                                           and resolved with nothing of it on disk; a tenth of it beside,
///                                           for the growth. Time of the processor, and peak memory.
///   quillmeter_xcode_benchmark BUNDLE       a real project beside a floor that lists the same folders and
///                                           opens, reads and closes the same files without looking at them

#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <string>
#include <variant>
#include <vector>

#include "files/ReadingFiles.h"
#include "support/Paths.h"
#include "xcode/CurrentProject.h"
#include "xcode/DiskView.h"
#include "xcode/ObjectGraph.h"
#include "xcode/ProjectFiles.h"
#include "xcode/ProjectTargets.h"

namespace {

using namespace quillmeter;

/// Of the processor, which tells more than the clock where others use the machine too.
double processorSeconds() {
  struct timespec time {};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double peakMebibytes() {
  struct rusage usage {};
  ::getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// The identifier of an object, as long as those of Xcode.
std::string identifier(char letter, std::size_t number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%c%023zX", letter, number);
  return text.data();
}

/// A description much as Xcode writes it: files in groups of a hundred, all of them built.
std::string description(std::size_t objects) {
  const std::size_t files = objects / 2;
  constexpr std::size_t groupSize = 100;
  std::string text = "// !$*UTF8*$!\n{\n\tarchiveVersion = 1;\n\tobjects = {\n";
  std::string phase;
  std::string groups;
  for (std::size_t i = 0; i < files; ++i) {
    const std::string name = "View" + std::to_string(i) + ".swift";
    const std::string reference = identifier('A', i);
    const std::string built = identifier('B', i);
    text += "\t\t" + built + " = {isa = PBXBuildFile; fileRef = " + reference + "; };\n";
    text += "\t\t" + reference + " /* " + name + " */ = {isa = PBXFileReference; path = " + name + "; };\n";
    phase += built + ",\n";
    if (i % groupSize == 0) groups += identifier('C', i) + ",\n";
  }
  for (std::size_t first = 0; first < files; first += groupSize) {
    text += "\t\t" + identifier('C', first) + " = {isa = PBXGroup; children = (\n";
    for (std::size_t i = first; i < std::min(first + groupSize, files); ++i)
      text += identifier('A', i) + ",\n";
    text += "\t\t\t); path = Group" + std::to_string(first) + "; sourceTree = \"<group>\"; };\n";
  }
  text += "\t\tphase = {isa = PBXSourcesBuildPhase; files = (\n" + phase + "); };\n";
  text += "\t\ttarget = {isa = PBXNativeTarget; name = App; buildPhases = (phase, ); };\n";
  text += "\t\tmain = {isa = PBXGroup; children = (" + groups + "); sourceTree = \"<group>\"; };\n";
  text += "\t\troot = {isa = PBXProject; mainGroup = main; targets = (target, ); };\n";
  return text + "\t};\n\trootObject = root /* Project object */;\n}\n";
}

void readDescriptionOf(std::size_t objects) {
  std::string text = description(objects);
  const double megabytes = static_cast<double>(text.size()) / 1e6;
  const double start = processorSeconds();
  const auto read = ObjectGraph::read(std::move(text));
  const double parsed = processorSeconds();
  const auto& graph = std::get<ObjectGraph>(read);
  DiskView disk(FileSystem::real());
  const ProjectFiles files = projectFilesOf(graph, "/nonexistent/app", disk);
  const double followed = processorSeconds();
  const auto targets = projectTargetsOf(graph, files);
  const double end = processorSeconds();
  std::printf(
      "%8zu objects  %6.1f MB  parsed %.3f s  references %.3f s (%zu missing)  targets %.3f s"
      "  in all %.3f s of the processor  peak %.0f MiB\n",
      graph.size(), megabytes, parsed - start, followed - parsed, files.missing.size(), end - followed,
      end - start, peakMebibytes());
}

void list(const std::string& path) {
  DIR* folder = ::opendir(path.c_str());
  if (folder == nullptr) return;
  while (::readdir(folder) != nullptr) {
  }
  ::closedir(folder);
}

void readThrough(const std::string& path) {
  static std::array<char, 1U << 16U> block;
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  while (::read(file, block.data(), block.size()) > 0) {
  }
  ::close(file);
}

/// What the floor does: the folders that a read lists, and the files that it opens.
struct Floor {
  std::vector<std::string> folders;
  std::vector<std::string> files;

  void run() const {
    for (const std::string& folder : folders)
      list(folder);
    for (const std::string& file : files)
      readThrough(file);
  }
};

Floor floorOf(const std::string& bundle, const CurrentProject& project) {
  Floor floor;
  floor.files.push_back(bundle + "/project.pbxproj");
  for (const auto& file : project.files())
    if (file->noWords()) floor.files.push_back(*file->filePath());
  const auto description = readWholeFile(FileSystem::real(), floor.files.front(), std::uint64_t{1} << 30);
  const auto read = ObjectGraph::read(*description);
  DiskView disk(FileSystem::real());
  static_cast<void>(projectFilesOf(std::get<ObjectGraph>(read), project.projectFolder(), disk));
  floor.folders = disk.listedFolders();
  return floor;
}

/// Seconds on the clock, and of the processor (all threads).
struct Times {
  double wall = 0;
  double processor = 0;
};

template <class Action>
Times timesOf(Action action) {
  const auto begin = std::chrono::steady_clock::now();
  const double start = processorSeconds();
  action();
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(),
          processorSeconds() - start};
}

void printRatio(const char* what, const std::vector<Times>& ours, const std::vector<Times>& theirs,
                double Times::*clock) {
  const auto sorted = [clock](const std::vector<Times>& times) {
    std::vector<double> values;
    for (const Times& time : times)
      values.push_back(time.*clock * 1e3);
    std::sort(values.begin(), values.end());
    return values;
  };
  const auto mine = sorted(ours);
  const auto other = sorted(theirs);
  const std::size_t middle = mine.size() / 2;
  std::printf(
      "  %-9s median %.2f ms beside %.2f ms   ratio %.2f      least %.2f ms beside %.2f ms   ratio %.2f\n",
      what, mine[middle], other[middle], mine[middle] / other[middle], mine.front(), other.front(),
      mine.front() / other.front());
}

void compareWithFloor(const std::string& bundle) {
  constexpr int runs = 61;
  const auto readProject = [&] {
    CurrentProject project;
    project.parseFileAtPathAndDelegate(bundle, nullptr);
  };
  CurrentProject project;
  project.parseFileAtPathAndDelegate(bundle, nullptr);
  const Floor floor = floorOf(bundle, project);
  std::vector<Times> ours;
  std::vector<Times> theirs;
  for (int i = 0; i < runs; ++i) {
    ours.push_back(timesOf(readProject));
    theirs.push_back(timesOf([&] { floor.run(); }));
  }
  std::printf("%s: %zu records, %zu folders listed, %zu files read\n", bundle.c_str(), project.files().size(),
              floor.folders.size(), floor.files.size());
  printRatio("wall", ours, theirs, &Times::wall);
  printRatio("processor", ours, theirs, &Times::processor);
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    compareWithFloor(std::string(withoutTrailingSlashes(argv[i])));
  if (argc > 1) return 0;
  readDescriptionOf(100'000);
  readDescriptionOf(1'000'000);
  return 0;
}
