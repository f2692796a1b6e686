#include "page/MeasurementPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::projectWith;
using testing::record;
using ::testing::StartsWith;

TEST(MeasurementPage, ShowsFiguresChartsAndFiles) {
  const std::string page = measurementPage(*projectWith(
      {record({.name = "a.m", .size = 2048, .lines = 1500}), record({.name = "v.xib", .lines = 7})}));
  EXPECT_THAT(page, StartsWith("<!DOCTYPE html>"));
  EXPECT_THAT(page, EndsWith("</html>\n"));
  EXPECT_THAT(page, HasSubstr("<data id=\"lines\" value=\"1500\">"));
  EXPECT_THAT(page, HasSubstr("<td>a.m</td><td>Code</td><td data-v=\"2048\">2 KB</td><td data-v=\"1500\">"));
  EXPECT_THAT(page, HasSubstr("<td>v.xib</td><td>Interface</td>"));
  EXPECT_THAT(page, HasSubstr("<li>a.m, 1500 lines</li>"));
  EXPECT_THAT(page, HasSubstr("This project has no image files"));
}

TEST(MeasurementPage, ChartsShowTheFifteenLargestFiles) {
  FileList files;
  for (int lines = 1; lines <= 16; ++lines)
    files.push_back(record({.name = "f" + std::to_string(lines) + ".m", .lines = lines}));
  const std::string page = measurementPage(*projectWith(files));
  EXPECT_THAT(page, HasSubstr("<ol><li>f16.m, 16 lines</li>"));
  EXPECT_THAT(page, HasSubstr("<li>f2.m, 2 lines</li></ol>"));
  EXPECT_THAT(page, Not(HasSubstr("<li>f1.m")));
}

TEST(MeasurementPage, ShowsADashForWhatIsAbsent) {
  const std::string page =
      measurementPage(*projectWith({record({.name = "a.png", .size = 3, .lines = 0, .words = -1})}));
  EXPECT_THAT(page, HasSubstr("<td data-v=\"0\">0</td>"));
  EXPECT_THAT(page, HasSubstr("<td>\u2013</td>"));
}

TEST(MeasurementPage, LetsTheBrowserLoadNothing) {
  EXPECT_THAT(measurementPage(*projectWith({})), HasSubstr("default-src 'none'"));
}

TEST(MeasurementPage, NoNameBreaksOut) {
  const std::string page =
      measurementPage(*projectWith({record({.name = "</title><script>x.m"})}, "</style><script>"));
  EXPECT_THAT(page, Not(HasSubstr("<script>x.m")));
  EXPECT_THAT(page, HasSubstr("&lt;/style&gt;&lt;script&gt;"));
}

TEST(MeasurementPage, TheSameProjectGivesTheSamePage) {
  const auto project = projectWith({record({.name = "a.m", .lines = 3})});
  EXPECT_EQ(measurementPage(*project), measurementPage(*project));
}

}  // namespace
}  // namespace quillmeter
