#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::HasSubstr;
using testing::readFile;
using testing::runTool;
using ::testing::StartsWith;
using testing::TemporaryFolder;

TEST(ReportCommand, WritesAPageToAFileOrToStandardOutput) {
  const TemporaryFolder folder;
  folder.file("a.m", "int a;\n");
  testing::writeProject(folder, {"a.m"});
  const std::string page = folder / "page.html";
  EXPECT_EQ(runTool({"report", "--html", page, folder.path()}).status, 0);
  const std::string output = runTool({"report", "--html", "-", folder.path()}).output;
  EXPECT_THAT(output, StartsWith("<!DOCTYPE html>"));
  EXPECT_EQ(readFile(page), output);
}

TEST(ReportCommand, LeavesAnOldPageWholeWhenNothingCouldBeMeasured) {
  const TemporaryFolder folder;
  const std::string page = folder.file("page.html", "old");
  EXPECT_EQ(runTool({"report", "--html", page, folder.path()}).status, 3);
  EXPECT_EQ(readFile(page), "old");
}

TEST(ReportCommand, NeedsAFile) {
  const auto result = runTool({"report", "/"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.errors, HasSubstr("--html is missing"));
}

}  // namespace
}  // namespace quillmeter
