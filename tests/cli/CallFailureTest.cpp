#include <gtest/gtest.h>
#include <sched.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/ForkedTool.h"
#include "export/Export.h"
#include "helpers/FailingCalls.h"
#include "helpers/ProjectFixture.h"
#include "xcode/ProjectReaders.h"

/// Each call that a command makes of the system fails in turn, with each error that it can fail with.
namespace quillmeter {
namespace {

using testing::ForkedRun;
using testing::readFile;
using testing::TemporaryFolder;

const std::string kWeather = QUILLMETER_SOURCE_DIR "/samples/Weather";

/// What a run tells of its calls.
struct Calls {
  std::array<unsigned char, 4096> kinds;
  std::size_t count;
  bool failed;
};

/// The PDF report of the project in the working folder, without its chart, as the application makes it.
int exportPdfHere(const std::string& path) {
  const std::shared_ptr<ProjectReader> project = projectReader(ProjectRules::classic);
  try {
    project->parseFileAtPathAndDelegate("./App.xcodeproj", nullptr);
  } catch (const TooFewDescriptors& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 3;
  }
  const auto& faults = project->faults();
  if (faults.count > 0) std::fprintf(stderr, "%s: %d\n", faults.firstPath.c_str(), faults.firstError.number);
  if (project->files().empty()) {
    std::fprintf(stderr, "nothing to report\n");
    return 3;
  }
  ReportSource source;
  source.project = project;
  source.time = {};
  source.locale = "en";
  source.timeZone = "UTC";
  const auto error = exportPdf(
      source, FileGroups{FileGroup::c, FileGroup::headers, FileGroup::objectiveC, FileGroup::images}, path);
  if (error) std::fprintf(stderr, "%s\n", error->c_str());
  return error ? 4 : 0;
}

bool isComplete(const std::string& path, const std::string& text) {
  if (path.ends_with(".pdf")) return text.starts_with("%PDF-") && text.ends_with("%%EOF\n");
  if (path.ends_with(".json")) return text.starts_with("{") && text.ends_with("}\n");
  if (path.ends_with(".html")) return text.ends_with("</html>\n");
  // Each line has as many fields as the first.
  const auto fields = [](std::string_view line) { return std::count(line.begin(), line.end(), ','); };
  const auto first = fields(std::string_view(text).substr(0, text.find('\n')));
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    if (fields(std::string_view(text).substr(at, end - at)) != first) return false;
    at = end + 1;
  }
  return first > 0;
}

/// What is not there is left out without a word.
bool meansMissing(int error) {
  return DiskError{error}.kind() == DiskError::Kind::missing;
}

class CallFailure : public ::testing::TestWithParam<std::vector<std::string>> {
 protected:
  CallFailure() {
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(static_cast<std::size_t>(::sched_getcpu()), &one);
    ::sched_setaffinity(0, sizeof(one), &one);  // the same calls in the same order, mostly
    folder.file("one/project/a.m", "// one\nint  a;\n- (void)draw {\n}\nint f(int a) {\n}\n");
    folder.file("one/project/Sub/b.h", std::string(1500, '\n'));
    folder.file("one/project/Sub/Über.png", "1234");
    folder.file("one/project/Sub/Other/left.c", "int x;\n");
    folder.file("one/above.c", "int x;\n");
    ::symlink("Sub/b.h", (folder / "one/project/linked.h").c_str());
    folder.file("one/project/App.xcodeproj/project.pbxproj",
                testing::projectText({"a.m", "b.h", "linked.h", "Über.png", "../above.c", "gone.m"}));
    std::filesystem::current_path(folder / "one/project");
    const ForkedRun before = testing::runForked([] {
      return testing::runToolHere(testing::commandLine({"measure", "--format", "json", "."}));
    });
    folder.file("one/project/before.json", before.output);
    const auto name = std::find_if(GetParam().begin(), GetParam().end(),
                                   [](const std::string& argument) { return argument.starts_with("out."); });
    if (name != GetParam().end()) output = *name;
  }
  ~CallFailure() override { std::filesystem::current_path("/"); }

  [[nodiscard]] ForkedRun run(const testing::FailingCall& failing) {
    if (!output.empty()) folder.file("one/project/" + output, "old");
    return testing::runForked([&] {
      testing::failCall(failing);
      const int status = GetParam().front() == "pdf" ? exportPdfHere("out.pdf")
                                                     : testing::runToolHere(testing::commandLine(GetParam()));
      const auto noted = testing::callsNoted();
      std::copy(noted.begin(), noted.end(), calls->kinds.begin());
      calls->count = noted.size();
      calls->failed = testing::hasCallFailed();
      return status;
    });
  }
  [[nodiscard]] std::string written() const { return output.empty() ? "" : readFile(output); }

  void expectTruth(const ForkedRun& result, int error, const std::string& what) {
    SCOPED_TRACE(what + ", " + std::strerror(error) + ", status " + std::to_string(result.status) + ": " +
                 result.errors);
    ASSERT_GE(result.status, 0) << "crashed or hung";
    EXPECT_TRUE(result.status == 0 || result.status == 3 || result.status == 4);
    const std::string now = written();
    if (result.status == 0 && result.errors.empty() && !meansMissing(error)) {
      EXPECT_EQ(result.output, whole.output) << "figures that are not right, without a word";
      EXPECT_EQ(now, wholeWritten) << "figures that are not right, without a word";
    }
    if (error == EINTR) {
      EXPECT_EQ(result.status, 0) << "an interrupted call is made again";
      EXPECT_EQ(result.errors, whole.errors);
    }
    EXPECT_TRUE(result.status == 0 || !result.errors.empty()) << "a failure without a word";
    EXPECT_TRUE(result.status != 4 || output.empty() || now == "old" || now == wholeWritten) << now;
    EXPECT_TRUE(now == "old" || output.empty() || isComplete(output, now)) << now;
    if (GetParam().front() != "cleanup") return;
    std::istringstream lines(result.output);
    for (std::string line; std::getline(lines, line);) {
      const std::string path = line.substr(std::min(line.find('/'), line.size()));
      EXPECT_NE(whole.output.find(path + (path.empty() ? "" : "\n")), std::string::npos)
          << "referenced: " << path;
    }
  }

  TemporaryFolder folder{std::filesystem::exists("/dev/shm") ? std::filesystem::path("/dev/shm")
                                                             : std::filesystem::temp_directory_path()};
  std::string output;  ///< the file that the command writes; empty for standard output
  testing::Shared<Calls> calls;
  ForkedRun whole;
  std::string wholeWritten;
};

TEST_P(CallFailure, WithAnyErrorIsToldOrDoesNoHarm) {
  whole = run({});
  ASSERT_EQ(whole.status, 0) << whole.errors;
  wholeWritten = written();
  ASSERT_EQ(output.empty(), wholeWritten.empty());
  const std::vector<unsigned char> kinds(calls->kinds.begin(),
                                         calls->kinds.begin() + static_cast<long>(calls->count));
  ASSERT_GT(kinds.size(), 9U);
  int runs = 0;
  for (std::size_t number = 0; number < kinds.size(); ++number) {
    for (const int error : testing::errorsOfCall(kinds[number])) {
      // A right that is missing and a thing that is not there stay so; the other errors come and go.
      const bool stays = meansMissing(error) || error == EACCES;
      const ForkedRun result = run({static_cast<long>(number), error, stays});
      expectTruth(result, error,
                  "call " + std::to_string(number) + " of kind " + std::to_string(kinds[number]));
      ++runs;
    }
  }
  std::printf("[  FAULTS  ] %d runs, each of %zu calls failing with each of its errors\n", runs,
              kinds.size());
}

INSTANTIATE_TEST_SUITE_P(
    Commands, CallFailure,
    ::testing::Values(std::vector<std::string>{"measure", "--format", "csv", "."},
                      std::vector<std::string>{"measure", kWeather},
                      std::vector<std::string>{"measure", "--format", "json", "-o", "out.json", "."},
                      std::vector<std::string>{"measure", "--rules", "current", "-o", "out.json", "--format",
                                               "json", kWeather},
                      std::vector<std::string>{"cleanup", "."},
                      std::vector<std::string>{"cleanup", "--rules", "current", kWeather},
                      std::vector<std::string>{"export", "--csv", "out.csv", "."},
                      std::vector<std::string>{"report", "--html", "out.html", "."},
                      std::vector<std::string>{"compare", "--format", "json", "-o", "out.json", ".", "."},
                      std::vector<std::string>{"compare", "before.json", "before.json"},
                      std::vector<std::string>{"methods", "a.m", "Sub/Other/left.c"},
                      std::vector<std::string>{"pdf", "out.pdf"}),
    [](const auto& given) {
      std::string name;
      for (const std::string& argument : given.param) {
        if (argument == kWeather) continue;
        for (const char letter : argument)
          name += std::isalnum(static_cast<unsigned char>(letter)) != 0 ? std::string(1, letter) : "";
      }
      return name;
    });

}  // namespace
}  // namespace quillmeter
