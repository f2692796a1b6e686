#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <string>

#include "cli/RunTool.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using nlohmann::json;
using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;
using testing::ToolSurroundings;

/// A C source, an Objective-C source and a header.
class MethodsCommand : public ::testing::Test {
 protected:
  MethodsCommand() {
    folder.file("sum.c", "int sum(int a, int b) {\n}\nstatic int twice(int a) {\n}\nint main(void) {\n}\n");
    folder.file("Shape.m", "- (void)draw {\n}\n+ (id)shape {\n}\nstatic int sides(int a) {\n}\n");
    folder.file("Shape.h", "- (void)draw;\n");
  }

  ToolResult run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "methods");
    return runTool(arguments, ToolSurroundings{.folder = folder.path()});
  }

  TemporaryFolder folder;
};

json countsOf(const std::string& path, int methods, int staticOnes, int instanceOnes) {
  return {{"filePath", path},
          {"noMethods", methods},
          {"noStaticMethods", staticOnes},
          {"noInstanceMethods", instanceOnes}};
}

json noCountsOf(const std::string& path) {
  return {{"filePath", path},
          {"noMethods", nullptr},
          {"noStaticMethods", nullptr},
          {"noInstanceMethods", nullptr}};
}

json files(const std::vector<json>& entries) {
  return {{"files", entries}};
}

TEST_F(MethodsCommand, ShowsTheCountsOfEachFileAndTheirSum) {
  const ToolResult result = run({"sum.c", "Shape.m", "Shape.h"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output,
            "Instance    Static   Methods  File\n"
            "       2         1         3  sum.c\n"
            "       1         2         3  Shape.m\n"
            "       -         -         -  Shape.h\n"
            "       3         3         6  in sum\n");
  EXPECT_EQ(run({"--format", "table", "sum.c", "Shape.m", "Shape.h"}).output, result.output);
}

TEST_F(MethodsCommand, WritesJsonInTheOrderOfItsArguments) {
  const ToolResult result = run({"--format", "json", "sum.c", "Shape.h", "Shape.m", "sum.c"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(json::parse(result.output), files({countsOf("sum.c", 3, 1, 2), noCountsOf("Shape.h"),
                                               countsOf("Shape.m", 3, 2, 1), countsOf("sum.c", 3, 1, 2)}));
  EXPECT_TRUE(result.output.ends_with("}\n"));
}

TEST_F(MethodsCommand, GivesAnotherObjectiveCFileCountsOfItsOwn) {
  folder.file("Circle.m", "- (void)draw {\n}\n");
  EXPECT_EQ(json::parse(run({"--format=json", "Shape.m", "Circle.m"}).output),
            files({countsOf("Shape.m", 3, 2, 1), countsOf("Circle.m", 1, 0, 1)}));
}

TEST_F(MethodsCommand, SaysWhichFilesCannotBeOpenedAndGoesOn) {
  const ToolResult result = run({"--format", "json", "absent.m", "absent.c", "sum.c"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors,
            "quillmeter-cli: absent.m: No such file or directory\n"
            "quillmeter-cli: absent.c: No such file or directory\n");
  EXPECT_EQ(json::parse(result.output),
            files({noCountsOf("absent.m"), noCountsOf("absent.c"), countsOf("sum.c", 3, 1, 2)}));
}

TEST_F(MethodsCommand, ShowsAFileThatCannotBeOpenedInTheTable) {
  const ToolResult result = run({"absent.m"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.output,
            "Instance    Static   Methods  File\n"
            "       -         -         -  absent.m\n"
            "       0         0         0  in sum\n");
}

TEST_F(MethodsCommand, TakesNoFolderForAFile) {
  folder.folder("folder.m");
  const ToolResult result = run({"--format", "json", "folder.m"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors, "quillmeter-cli: folder.m: Is a directory\n");
  EXPECT_EQ(json::parse(result.output), files({noCountsOf("folder.m")}));
}

TEST_F(MethodsCommand, TakesNoFileThatTheKernelMakesUpForAnEmptyOne) {
  ASSERT_EQ(::symlink("/proc/self/status", (folder / "made.m").c_str()), 0);
  folder.file("empty.m", "");
  const ToolResult result = run({"--format", "json", "made.m", "empty.m"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors, "quillmeter-cli: made.m: Operation not permitted\n");
  EXPECT_EQ(json::parse(result.output), files({noCountsOf("made.m"), countsOf("empty.m", 0, 0, 0)}));
}

TEST_F(MethodsCommand, DoesNotWaitForAPipe) {
  ASSERT_EQ(::mkfifo((folder / "pipe.c").c_str(), 0600), 0);
  const ToolResult result = run({"pipe.c"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors, "quillmeter-cli: pipe.c: Not a regular file\n");
}

TEST_F(MethodsCommand, CountsNothingInAFileThatIsNotUtf8) {
  folder.file("latin.c", "/* \xe9 */\nint main(void) {\n}\n");
  const ToolResult result = run({"--format", "json", "latin.c"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(json::parse(result.output), files({countsOf("latin.c", 0, 0, 0)}));
}

TEST_F(MethodsCommand, KeepsNamesThatAreNotUtf8) {
  folder.file("caf\xe9.c", "int main(void) {\n}\n");
  const ToolResult result = run({"--format", "json", "caf\xe9.c"});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.output.find(R"("caf\udce9.c")"), std::string::npos) << result.output;
  EXPECT_NE(run({"caf\xe9.c"}).output.find("1  caf\xe9.c\n"), std::string::npos);
}

TEST_F(MethodsCommand, NoNameBreaksALine) {
  folder.file("two\nlines\x1B[31m.c", "int main(void) {\n}\n");
  const ToolResult result = run({"two\nlines\x1B[31m.c", "no\nfile.c"});
  EXPECT_NE(result.output.find("1  two lines [31m.c\n"), std::string::npos) << result.output;
  EXPECT_NE(result.output.find("-  no file.c\n"), std::string::npos) << result.output;
  EXPECT_EQ(result.errors, "quillmeter-cli: no file.c: No such file or directory\n");
}

TEST_F(MethodsCommand, NeedsAFileAndAFormatThatExists) {
  EXPECT_EQ(run({}).status, 2);
  EXPECT_EQ(run({"--format", "csv", "sum.c"}).status, 2);
  EXPECT_EQ(run({"--all", "sum.c"}).status, 2);
}

TEST_F(MethodsCommand, ReportsAnOutputThatCannotBeWritten) {
  const ToolResult result =
      runTool({"methods", "sum.c"}, ToolSurroundings{.folder = folder.path(), .standardOutput = "/dev/full"});
  EXPECT_EQ(result.status, 4);
  EXPECT_EQ(result.errors, "quillmeter-cli: cannot write standard output: No space left on device\n");
}

TEST_F(MethodsCommand, ExplainsItself) {
  const ToolResult result = run({"--help"});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.output.find("FILE"), std::string::npos);
  EXPECT_NE(result.output.find("--format"), std::string::npos);
}

}  // namespace
}  // namespace quillmeter
