#include <gmock/gmock.h>

#include <array>
#include <cmath>

#include "export/FakeReportChart.h"
#include "export/PDFExporter.h"
#include "export/PdfReading.h"
#include "helpers/ProjectFixture.h"
#include "helpers/TemporaryFolder.h"
#include "support/Addresses.h"

/// Reports as their readers see them: rendered, and read back with other tools.
namespace quillmeter {
namespace {

using ::testing::AllOf;
using testing::FakeReportChart;
using ::testing::HasSubstr;
using testing::lineAt;
using ::testing::Not;
using testing::pdfContents;
using testing::pdfInfo;
using testing::pdfObjects;
using testing::PdfWord;
using testing::pdfWords;
using testing::record;
using ::testing::SizeIs;

constexpr double kFirstRow = 708;  // base lines of the first page's table
constexpr double kRow = 40;

class PDFReport : public ::testing::Test {
 protected:
  /// Renders `files` as a project's, once, and gives the report's path.
  std::string render(const FileList& files, const std::string& title = "Fixture") {
    ReportSource source;
    source.project = testing::projectWith(files, title);
    source.overviewTexts = {"1,234", "56", "7"};
    source.chart = chart;
    source.time = std::chrono::system_clock::time_point(std::chrono::seconds(1767225600));
    source.locale = "en_US";
    source.timeZone = "UTC";
    PDFExporter exporter(source);
    const std::string path = folder / "report.pdf";
    exporter.renderForFilesAtPath({files.begin(), files.end()}, path);
    EXPECT_EQ(exporter.error(), std::nullopt);
    pages = exporter.currentPageNo();
    const auto check = testing::run("qpdf --check " + testing::quoted(path));
    EXPECT_EQ(check.status, 0) << check.output;
    return path;
  }

  static FileList sources(int count) {
    FileList files;
    for (int number = 1; number <= count; ++number)
      files.push_back(record({.name = "f" + std::to_string(number) + ".c", .size = 1024, .lines = number}));
    return files;
  }

  testing::TemporaryFolder folder;
  std::shared_ptr<FakeReportChart> chart = std::make_shared<FakeReportChart>();
  int pages = 0;
};

/// The first word `text` of a page; fails when there is none.
PdfWord wordOn(const std::vector<PdfWord>& words, int page, const std::string& text) {
  for (const PdfWord& word : words) {
    if (word.page == page && word.text == text) return word;
  }
  ADD_FAILURE() << "no word " << text << " on page " << page;
  return {};
}

int count(const std::string& text, const std::string& piece) {
  int times = 0;
  for (std::size_t at = 0; (at = text.find(piece, at)) != std::string::npos; at += piece.size())
    ++times;
  return times;
}

TEST_F(PDFReport, ProjectWithoutFilesIsOnePageWithTitleChartAndFooter) {
  const std::string path = render({});
  EXPECT_EQ(pages, 1);
  EXPECT_EQ(pdfInfo(path, "Pages"), "1");
  EXPECT_EQ(pdfInfo(path, "Page size"), "1344 x 1454 pts");
  const auto words = pdfWords(path);
  EXPECT_EQ(lineAt(words, 1, 1346), "Project statistics report Fixture");
  EXPECT_EQ(lineAt(words, 1, 71), "Page 1");
  for (const PdfWord& word : words)
    EXPECT_NE(word.text, "SLOC");
  EXPECT_THAT(chart->requests, SizeIs(1));
  EXPECT_TRUE(std::isnan(chart->requests[0].pieChart2Perc1));
  EXPECT_TRUE(std::isnan(chart->requests[0].pieChart2Perc2));
}

TEST_F(PDFReport, DocumentNamesItself) {
  const std::string path = render({});
  EXPECT_EQ(pdfInfo(path, "Title"), "Statistics Report");
  EXPECT_EQ(pdfInfo(path, "Subject"), "Statistics Report");
  EXPECT_EQ(pdfInfo(path, "Author"), "Quillmeter");
  EXPECT_EQ(pdfInfo(path, "Creator"), "Quillmeter");
  EXPECT_THAT(pdfObjects(path),
              AllOf(HasSubstr("/BaseFont /Helvetica\n"), HasSubstr("/BaseFont /Helvetica-Bold\n"),
                    HasSubstr("/Encoding /MacRomanEncoding")));
}

TEST_F(PDFReport, DocumentTellsItsLanguageAndAgeAndAsksToShowItsTitle) {
  const std::string path = render({});
  const std::string objects = pdfObjects(path);
  EXPECT_EQ(count(objects, "/Lang (en)\n"), 1);
  EXPECT_EQ(count(objects, "/DisplayDocTitle true\n"), 1);
  EXPECT_EQ(count(objects, "/CreationDate (D:20260101000000Z"), 1);
  EXPECT_EQ(pdfInfo(path, "PDF version"), "1.4");
}

TEST_F(PDFReport, EveryPageIsBegunWithTheMediaBox) {
  ReportSource source;
  source.project = testing::projectWith({}, "Fixture");
  PDFExporter exporter(source);
  EXPECT_EQ(exporter.pageDictionary().mediaBox.width, 0);
  const FileList files = sources(15);
  ASSERT_NE(exporter.renderForFiles({files.begin(), files.end()}), "");
  const PdfRect& box = exporter.pageDictionary().mediaBox;
  EXPECT_EQ((std::array{box.x, box.y, box.width, box.height}), (std::array{0.0, 0.0, 1344.0, 1454.0}));

  const std::string objects = pdfObjects(render(files));
  EXPECT_EQ(count(objects, "/MediaBox [\n    0\n    0\n    1344\n    1454\n  ]"), 2);
}

TEST_F(PDFReport, TitleBlockStandsAtTheTop) {
  const auto words = pdfWords(render({}, "My project"));
  const PdfWord title = wordOn(words, 1, "Project");
  EXPECT_DOUBLE_EQ(title.x, 75);
  EXPECT_NEAR(title.baseline, 1346, 0.01);
  EXPECT_NEAR(title.size, 36, 0.01);
  const PdfWord date = wordOn(words, 1, "Jan");
  EXPECT_DOUBLE_EQ(date.x, 75);
  EXPECT_NEAR(date.baseline, 1309, 0.01);
  EXPECT_NEAR(date.size, 20, 0.01);
  EXPECT_EQ(lineAt(words, 1, 1309), "Jan 01, 2026 12:00 AM");
  const PdfWord project = wordOn(words, 1, "project");
  EXPECT_NEAR(project.right, 1269 - 9, 1);  // ten letters: nine points of letter spacing
  EXPECT_NEAR(project.baseline, 1346, 0.01);
}

TEST_F(PDFReport, TotalsAreTheOverviewsAndCentred) {
  const auto words = pdfWords(render({}));
  EXPECT_EQ(lineAt(words, 1, 1118), "TOTAL NUMBER OF CODE FILES");
  EXPECT_EQ(lineAt(words, 1, 1077), "1,234");
  EXPECT_EQ(lineAt(words, 1, 1028), "TOTAL NUMBER OF IMAGE FILES");
  EXPECT_EQ(lineAt(words, 1, 987), "56");
  EXPECT_EQ(lineAt(words, 1, 938), "TOTAL NUMBER OF XIB FILES");
  EXPECT_EQ(lineAt(words, 1, 897), "7");
  const PdfWord value = wordOn(words, 1, "1,234");
  EXPECT_NEAR(value.size, 30, 0.01);
  EXPECT_NEAR((value.x + value.right) / 2, 283.5 - 2, 1);
}

TEST_F(PDFReport, FrameAndChartHaveTheirPlace) {
  const std::string path = render(sources(1));
  const std::string page = pdfContents(path).at(0);
  EXPECT_THAT(page, HasSubstr("0.2 0.2 0.2 RG"));
  EXPECT_THAT(page, HasSubstr("75 839 1194 370 re\nS"));
  EXPECT_THAT(page, HasSubstr("800 0 0 370 622 829 cm"));
  EXPECT_LT(page.find("75 839 1194 370 re"), page.find("622 829 cm"));
  EXPECT_THAT(pdfObjects(path), AllOf(HasSubstr("/CA 0.5"), HasSubstr("/SMask ")));
  EXPECT_EQ(count(testing::run("pdfimages -list " + testing::quoted(path)).output, "2400  1110"), 2);
}

TEST_F(PDFReport, ChartLeavesTheFrameVisible) {
  const std::string path = render({});
  const std::string picture = folder / "page";
  ASSERT_EQ(
      testing::run("pdftoppm -r 72 -singlefile " + testing::quoted(path) + " " + testing::quoted(picture))
          .status,
      0);
  const std::string pixels = testing::readFile(picture + ".ppm");
  const std::string header = "P6\n1344 1454\n255\n";
  ASSERT_EQ(pixels.substr(0, header.size()), header);
  const auto red = [&](int x, int yFromBottom) {
    const auto at = static_cast<std::size_t>((1454 - yFromBottom) * 1344 + x) * 3;
    return static_cast<unsigned char>(pixels.at(header.size() + at));
  };
  const auto green = [&](int x, int yFromBottom) {
    const auto at = static_cast<std::size_t>((1454 - yFromBottom) * 1344 + x) * 3;
    return static_cast<unsigned char>(pixels.at(header.size() + at + 1));
  };
  const auto darkestAround = [&](int x, int y) {
    return std::min({red(x, y - 1), red(x, y), red(x, y + 1)});
  };
  EXPECT_LT(darkestAround(700, 839), 240);  // the frame's lower line, inside the chart's rectangle
  EXPECT_LT(darkestAround(1200, 839), 240);
  EXPECT_GT(red(1022, 1014), 250);  // the chart's centre, red
  EXPECT_LT(green(1022, 1014), 5);
  EXPECT_EQ(green(640, 900), 255);  // the page beside the chart, white
}

TEST_F(PDFReport, ChartShowsTheWholeProjectsShares) {
  render({record({.name = "a.c"}), record({.name = "b.m"}), record({.name = "c.xib"}),
          record({.name = "d.png"})});
  ASSERT_THAT(chart->requests, SizeIs(1));
  const ReportChartRequest& request = chart->requests[0];
  EXPECT_EQ(request.circleRadius, 150);
  EXPECT_EQ(request.width, 800);
  EXPECT_EQ(request.height, 370);
  EXPECT_EQ(request.pieChart2Perc1, 0.5);
  EXPECT_EQ(request.pieChart2Perc2, 0.25);
}

TEST_F(PDFReport, WithoutAPainterTheChartIsLeftOut) {
  chart = nullptr;
  const std::string path = render(sources(1));
  EXPECT_THAT(pdfContents(path).at(0), AllOf(Not(HasSubstr(" Do")), HasSubstr("75 839 1194 370 re")));
}

TEST_F(PDFReport, FirstGroupStandsUnderTheChart) {
  const std::string path =
      render({record({.name = "a.c", .size = 1536, .lines = 12, .linesWithoutSpaces = 10}),
              record({.name = "b.c", .size = 512, .lines = 4, .linesWithoutSpaces = 3})});
  const auto words = pdfWords(path);
  EXPECT_EQ(lineAt(words, 1, 788), "File types Lines of code SLOC Size");
  EXPECT_EQ(lineAt(words, 1, 748), "c/cpp files 16 13 2.0 KB");
  EXPECT_EQ(lineAt(words, 1, 708), "a.c 12 10 1.5 KB");
  EXPECT_EQ(lineAt(words, 1, 668), "b.c 4 3 0.5 KB");
  EXPECT_DOUBLE_EQ(wordOn(words, 1, "File").x, 95);
  EXPECT_NEAR(wordOn(words, 1, "File").size, 18, 0.01);
  EXPECT_DOUBLE_EQ(wordOn(words, 1, "c/cpp").x, 95);
  EXPECT_NEAR(wordOn(words, 1, "c/cpp").size, 20, 0.01);
  EXPECT_DOUBLE_EQ(wordOn(words, 1, "a.c").x, 115);
  EXPECT_NEAR(wordOn(words, 1, "a.c").size, 18, 0.01);
  // Numbers are centred in columns of 208 points, the first of which begins at 645.
  const PdfWord lines = wordOn(words, 1, "12");
  EXPECT_NEAR((lines.x + lines.right) / 2, 645 + 104 - 0.5, 1);
}

TEST_F(PDFReport, CellsAndRulesHaveTheirPlaceAndColours) {
  const std::string page = pdfContents(render(sources(1))).at(0);
  EXPECT_THAT(page, HasSubstr("0.96863 0.98039 1 rg\n75 774 570 40 re\nf"));
  EXPECT_THAT(page, HasSubstr("0.96863 0.98039 1 rg\n1061 774 208 40 re\nf"));
  EXPECT_THAT(page, HasSubstr("1 1 1 rg\n75 734 570 40 re\nf"));
  EXPECT_THAT(page, HasSubstr("1 1 1 rg\n75 694 570 40 re\nf"));
  EXPECT_THAT(page, HasSubstr("0.90196 0.92157 0.93725 RG\n3 w\n75 774 m\n1269 774 l\nS"));
  EXPECT_THAT(page, HasSubstr("0.90196 0.92157 0.93725 RG\n3 w\n75 734 m\n1269 734 l\nS"));
  EXPECT_THAT(page, HasSubstr("0.90196 0.92157 0.93725 RG\n2 w\n75 694 m\n1269 694 l\nS"));
}

TEST_F(PDFReport, EveryPageRestoresAsOftenAsItSaves) {
  for (const std::string& page : pdfContents(render(sources(20)))) {
    EXPECT_GT(count(page, "\nq\n"), 0);
    EXPECT_EQ(count("\n" + page, "\nq\n"), count(page, "\nQ\n"));
  }
}

TEST_F(PDFReport, EveryGroupHasItsHeader) {
  const auto words =
      pdfWords(render({record({.name = "a.mm", .size = 1024, .lines = 5}),
                       record({.name = "b.m", .size = 1024, .lines = 6}), record({.name = "c.c"}),
                       record({.name = "i.png"}), record({.name = "r.txt"}), record({.name = "x.xib"})}));
  double y = 748;
  for (const char* line :
       {"c/cpp files 0 0 0.0 KB", "c.c 0 0 0.0 KB", "File types Lines of code SLOC Size",
        "m/mm files - - 2.0 KB", "a.mm - - 1.0 KB", "b.m 6 0 1.0 KB", "File types Lines of code SLOC Size",
        "image files - - 0.0 KB", "i.png - - 0.0 KB", "File types Lines of code SLOC Size",
        "xib files - - 0.0 KB", "x.xib - - 0.0 KB"}) {
    EXPECT_EQ(lineAt(words, 1, y), line);
    y -= kRow;
  }
  EXPECT_EQ(lineAt(words, 1, y), "");
}

TEST_F(PDFReport, FourteenthRowIsTheLastOfTheFirstPage) {
  const auto words = pdfWords(render(sources(14)));
  EXPECT_EQ(pages, 1);
  EXPECT_EQ(lineAt(words, 1, kFirstRow - 13 * kRow), "f14.c 14 0 1.0 KB");
}

TEST_F(PDFReport, FifteenthRowBeginsAPageThatRepeatsTheGroupsHeader) {
  const std::string path = render(sources(15));
  EXPECT_EQ(pdfInfo(path, "Pages"), "2");
  const auto words = pdfWords(path);
  EXPECT_EQ(lineAt(words, 1, 71), "Page 1");
  EXPECT_EQ(lineAt(words, 2, 1328), "File types Lines of code SLOC Size");
  EXPECT_EQ(lineAt(words, 2, 1288), "c/cpp files 120 0 15.0 KB");
  EXPECT_EQ(lineAt(words, 2, 1248), "f15.c 15 0 1.0 KB");
  EXPECT_EQ(lineAt(words, 2, 71), "Page 2");
  const auto contents = pdfContents(path);
  ASSERT_THAT(contents, SizeIs(2));
  EXPECT_THAT(contents[1],
              AllOf(HasSubstr("75 1314 570 40 re"), Not(HasSubstr(" Do")), Not(HasSubstr("839"))));
}

TEST_F(PDFReport, ContinuationPagesHold27Rows) {
  const auto words = pdfWords(render(sources(14 + 27 + 1)));
  EXPECT_EQ(pages, 3);
  EXPECT_EQ(lineAt(words, 2, 1248 - 26 * kRow), "f41.c 41 0 1.0 KB");
  EXPECT_EQ(lineAt(words, 3, 1248), "f42.c 42 0 1.0 KB");
}

TEST_F(PDFReport, GroupThatBeginsOnANewPageHasOneHeader) {
  FileList files = sources(14);
  files.push_back(record({.name = "a.h"}));
  const auto words = pdfWords(render(files));
  EXPECT_EQ(lineAt(words, 2, 1328), "File types Lines of code SLOC Size");
  EXPECT_EQ(lineAt(words, 2, 1288), "h/hh files 0 0 0.0 KB");
  EXPECT_EQ(lineAt(words, 2, 1248), "a.h 0 0 0.0 KB");
  EXPECT_EQ(lineAt(words, 2, 1208), "");
}

TEST_F(PDFReport, HeaderOfARowAtThePagesEndIsNotBroken) {
  FileList files = sources(13);
  files.push_back(record({.name = "a.h"}));
  const auto words = pdfWords(render(files));
  EXPECT_EQ(pages, 1);
  EXPECT_EQ(lineAt(words, 1, kFirstRow - 15 * kRow), "a.h 0 0 0.0 KB");
}

TEST_F(PDFReport, FooterLinksToTheProgramsPage) {
  const std::string path = render(sources(15));
  const auto words = pdfWords(path);
  for (const int page : {1, 2}) {
    EXPECT_NEAR(wordOn(words, page, "Created").baseline, 50 + 44 - 16, 0.01);
    EXPECT_NEAR(wordOn(words, page, "Quillmeter").right, 115 + 1194 - 22, 1);
    const PdfWord address = wordOn(words, page, kProductUrl);
    EXPECT_NEAR(address.baseline, 50, 0.01);
    EXPECT_NEAR(address.right, 162 + 1194 - (static_cast<double>(std::string(kProductUrl).size()) - 1), 1);
    EXPECT_DOUBLE_EQ(wordOn(words, page, "Page").x, 75);
    const std::string contents = pdfContents(path).at(static_cast<std::size_t>(page - 1));
    EXPECT_THAT(contents, HasSubstr("0.8 0.8 0.8 RG\n1 w\n75 99 m\n1269 99 l\nS"));
    EXPECT_THAT(contents, HasSubstr("0 0 1 RG\n1 w\n857 49 m\n1269 49 l\nS"));
    EXPECT_THAT(contents, HasSubstr("0 0 1 rg"));
  }
  const std::string objects = pdfObjects(path);
  EXPECT_EQ(count(objects, "/URI (" + std::string(kProductUrl) + ")"), 2);
  EXPECT_EQ(count(objects, "/Subtype /Link"), 2);
  EXPECT_EQ(count(objects, "/Rect [\n    847\n    45\n    1287\n    99\n  ]"), 2);
  EXPECT_EQ(count(objects, "/W 0\n") + count(objects, "/Border [\n    0\n    0\n    0\n  ]"), 2);
}

TEST_F(PDFReport, FootersAddressStandsOnItsLine) {
  constexpr double kLineBegin = 857;
  constexpr double kLineEnd = 1269;
  const PdfWord address = wordOn(pdfWords(render({})), 1, kProductUrl);
  EXPECT_NEAR(address.x, kLineBegin, 2);
  EXPECT_GT(address.right, kLineEnd) << "no line without text above it";
  EXPECT_LT(address.right - kLineEnd, 40);
}

TEST_F(PDFReport, StreamsAreCompressed) {
  const std::string bytes = testing::readFile(render(sources(200)));
  EXPECT_THAT(bytes, AllOf(HasSubstr("/FlateDecode"), Not(HasSubstr("(File types) Tj"))));
  EXPECT_LT(bytes.size(), 100000U);
}

TEST_F(PDFReport, TextOutsideAsciiIsCutByAsManyBytesAsItHasMore) {
  const auto words = pdfWords(render({record({.name = "ä.c"})}));
  // Four characters in five bytes: the last byte is not shown, the two of the letter show as Mac Roman.
  EXPECT_EQ(lineAt(words, 1, kFirstRow), "√§. 0 0 0.0 KB");
}

TEST_F(PDFReport, AwkwardNamesGiveASoundDocument) {
  const std::string longName = std::string(253, 'w') + ".c";
  const std::string path = render(
      {record({.name = longName}), record({.name = "quote\"(paren)\\back%.c"}), record({.name = "a,b.c"}),
       record({.name = "two\nlines.c"}), record({.name = "\xFF\xFE.c"}), record({.name = "שלום.c"}),
       record({.name = std::string(40000, 'x') + ".c"}), record({.name = "/"}), record({.name = ""})},
      "");
  const auto words = pdfWords(path);
  EXPECT_THAT(pdfContents(path).at(0),
              HasSubstr("(" + longName + ") Tj"));  // all of it, over the page's edge
  bool found = false;
  for (const PdfWord& word : words)
    found = found || word.text == "quote\"(paren)\\back%.c";
  EXPECT_TRUE(found);
}

TEST_F(PDFReport, LongNameStandsLowerByTheLinesItWouldTake) {
  // In the column's 490 points this name takes two lines, so a third of 33 points is taken off the middle.
  const auto words = pdfWords(render({record({.name = std::string(50, 'w') + ".c"})}));
  EXPECT_NEAR(wordOn(words, 1, std::string(50, 'w') + ".c").baseline, 694 + 20 - 33.0 / 3, 0.5);
}

TEST_F(PDFReport, ManyPagesAreNumberedThrough) {
  const std::string path = render(sources(20000));
  EXPECT_EQ(pages, 742);
  EXPECT_EQ(pdfInfo(path, "Pages"), "742");
  const auto words = pdfWords(path);
  EXPECT_EQ(lineAt(words, 742, 71), "Page 742");
  EXPECT_EQ(lineAt(words, 400, 1288), "c/cpp files 200010000 0 19.5 MB");
}

TEST_F(PDFReport, SecondDocumentOfAnExporterGoesOnCountingPages) {
  ReportSource source;
  source.project = testing::projectWith({});
  PDFExporter exporter(source);
  exporter.renderForFilesAtPath({}, folder / "first.pdf");
  exporter.renderForFilesAtPath({}, folder / "second.pdf");
  EXPECT_EQ(exporter.currentPageNo(), 2);
  EXPECT_EQ(lineAt(pdfWords(folder / "first.pdf"), 1, 71), "Page 1");
  EXPECT_EQ(lineAt(pdfWords(folder / "second.pdf"), 1, 71), "Page 2");
}

}  // namespace
}  // namespace quillmeter
