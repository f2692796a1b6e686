#include "export/PDFExporter.h"

#include <gmock/gmock.h>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::record;

PDFExporter exporter() {
  ReportSource source;
  source.project = testing::projectWith({});
  return PDFExporter(source);
}

/// An exporter that has rendered `files`.
PDFExporter exporterOf(const PDFExporter::ReportFiles& files) {
  PDFExporter result = exporter();
  EXPECT_TRUE(result.renderForFiles(files).has_value());
  return result;
}

std::vector<std::string> names(const PDFExporter::ReportFiles& files) {
  std::vector<std::string> result;
  for (const auto& file : files)
    result.push_back(file->fileName().value_or("?"));
  return result;
}

PDFExporter::ReportFiles reportFilesNamed(const std::vector<std::string>& fileNames) {
  PDFExporter::ReportFiles files;
  for (const std::string& name : fileNames)
    files.push_back(record({.name = name}));
  return files;
}

std::string sizeOf(std::int64_t bytes) {
  return exporter().cellValuesForFile(*record({.name = "a.c", .size = bytes}))[3];
}

TEST(PDFExporter, BeginsWithItsColumnTitlesAndNoPages) {
  const auto made = PDFExporter::create({.project = testing::projectWith({}),
                                         .overviewTexts = {},
                                         .chart = nullptr,
                                         .locale = {},
                                         .timeZone = {}});
  EXPECT_THAT(made->columnTitles(), ElementsAre("File types", "Lines of code", "SLOC", "Size"));
  EXPECT_EQ(made->currentPageNo(), 0);
  EXPECT_EQ(made->contentSize(), 0);
  EXPECT_THAT(made->files(), IsEmpty());
}

TEST(PDFExporter, ReportGoesGroupByGroup) {
  const auto files = reportFilesNamed({"a.mm", "b.m", "c.c", "i.png", "r.txt", "x.xib"});
  EXPECT_THAT(names(exporter().sortFilesArray(files)), ElementsAre("c.c", "a.mm", "b.m", "i.png", "x.xib"));
}

TEST(PDFExporter, FilesKeepTheirOrderInsideAGroup) {
  const auto files = reportFilesNamed(
      {"z.xib", "a.icns", "b.jpg", "c.tiff", "d.png", "e.pch", "f.h", "g.HH", "h.cpp", "i.c"});
  EXPECT_THAT(
      names(exporter().sortFilesArray(files)),
      ElementsAre("h.cpp", "i.c", "e.pch", "f.h", "g.HH", "a.icns", "b.jpg", "c.tiff", "d.png", "z.xib"));
}

TEST(PDFExporter, FilteringGoesByTheExactExtensionAsOftenAsItIsAsked) {
  const auto files = reportFilesNamed({"a.c", "b.C", "c.cc", "c"});
  const std::vector<std::string_view> c = {"c"};
  const std::vector<std::string_view> upper = {"C"};
  const std::vector<std::string_view> twice = {"c", "c"};
  EXPECT_THAT(names(PDFExporter::getFilesForExtensionTypesFromArray(c, files)),
              ElementsAre("a.c", "b.C", "c"));
  EXPECT_THAT(names(PDFExporter::getFilesForExtensionTypesFromArray(upper, files)), IsEmpty());
  EXPECT_THAT(names(PDFExporter::getFilesForExtensionTypesFromArray(twice, reportFilesNamed({"a.c"}))),
              ElementsAre("a.c", "a.c"));
  EXPECT_THAT(PDFExporter::getFilesForExtensionTypesFromArray(c, {nullptr, std::make_shared<FileObject>()}),
              IsEmpty());
}

TEST(PDFExporter, ExtensionLeadsToItsGroup) {
  const PDFExporter made = exporter();
  const auto group = [&made](std::string_view extension) {
    return made.getArrayRangeBasedOnExtension(extension).value_or(std::span<const std::string_view>());
  };
  for (const std::string_view extension : {"c", "cpp"})
    EXPECT_THAT(group(extension), ElementsAre("c", "cpp"));
  for (const std::string_view extension : {"h", "hh", "pch"})
    EXPECT_THAT(group(extension), ElementsAre("h", "hh", "pch"));
  for (const std::string_view extension : {"m", "mm"})
    EXPECT_THAT(group(extension), ElementsAre("m", "mm"));
  for (const std::string_view extension : {"jpg", "png", "tiff", "icns"})
    EXPECT_THAT(group(extension), ElementsAre("png", "jpg", "tiff", "icns"));
  EXPECT_THAT(group("xib"), ElementsAre("xib"));
  for (const std::string_view extension : {"", "C", "txt", " c"})
    EXPECT_FALSE(exporter().getArrayRangeBasedOnExtension(extension).has_value()) << extension;
}

TEST(PDFExporter, RowOfAFileShowsItsLinesUnlessItIsNoCodeOrAnMm) {
  const auto row = [](const std::string& name) {
    return exporter().cellValuesForFile(
        *record({.name = name, .size = 2048, .lines = 12345, .linesWithoutSpaces = 9}));
  };
  for (const char* name : {"a.c", "a.cpp", "a.h", "a.hh", "a.pch", "a.m", "A.M"})
    EXPECT_THAT(row(name), ElementsAre(name, "12345", "9", "2.0 KB"));
  for (const char* name : {"a.mm", "a.png", "a.xib", "a.icns"})
    EXPECT_THAT(row(name), ElementsAre(name, "-", "-", "2.0 KB"));
}

TEST(PDFExporter, AbsentCountersReadAsZero) {
  auto file = std::make_shared<FileObject>();
  file->setFileName("a.c");
  EXPECT_THAT(exporter().cellValuesForFile(*file), ElementsAre("a.c", "0", "0", "0.0 KB"));
}

TEST(PDFExporter, SizesTurnToMegabytesAt1024Kilobytes) {
  EXPECT_EQ(sizeOf(0), "0.0 KB");
  EXPECT_EQ(sizeOf(1), "0.0 KB");
  EXPECT_EQ(sizeOf(1536), "1.5 KB");
  EXPECT_EQ(sizeOf(1048575), "1024.0 KB");
  EXPECT_EQ(sizeOf(1048576), "1.0 MB");
  EXPECT_EQ(sizeOf(1610612736), "1536.0 MB");
}

TEST(PDFExporter, GroupRowSumsItsFiles) {
  const PDFExporter made =
      exporterOf({record({.name = "a.c", .size = 1024, .lines = 10, .linesWithoutSpaces = 7}),
                  record({.name = "b.cpp", .size = 512, .lines = 20, .linesWithoutSpaces = 13}),
                  record({.name = "a.h", .size = 4096, .lines = 500, .linesWithoutSpaces = 400}),
                  record({.name = "a.png", .size = 1048576}), record({.name = "b.icns", .size = 524288}),
                  record({.name = "x.xib", .size = 100, .lines = 9, .linesWithoutSpaces = 9})});
  EXPECT_THAT(made.cellValuesForFileType("c"), ElementsAre("30", "20", "1.5 KB"));
  EXPECT_THAT(made.cellValuesForFileType("cpp"), ElementsAre("30", "20", "1.5 KB"));
  EXPECT_THAT(made.cellValuesForFileType("pch"), ElementsAre("500", "400", "4.0 KB"));
  EXPECT_THAT(made.cellValuesForFileType("jpg"), ElementsAre("-", "-", "1.5 MB"));
  EXPECT_THAT(made.cellValuesForFileType("xib"), ElementsAre("-", "-", "0.1 KB"));
  EXPECT_THAT(made.cellValuesForFileType("txt"), ElementsAre("-", "-", "0.0 KB"));
  EXPECT_THAT(made.cellValuesForFileType(""), ElementsAre("-", "-", "0.0 KB"));
}

TEST(PDFExporter, GroupThatBeginsWithAnMmShowsNoLines) {
  const PDFExporter made =
      exporterOf({record({.name = "a.mm", .size = 1024, .lines = 10, .linesWithoutSpaces = 7}),
                  record({.name = "b.m", .size = 1024, .lines = 5, .linesWithoutSpaces = 4})});
  EXPECT_THAT(made.cellValuesForFileType("mm"), ElementsAre("-", "-", "2.0 KB"));
  EXPECT_THAT(made.cellValuesForFileType("m"), ElementsAre("15", "11", "2.0 KB"));
}

TEST(PDFExporter, SumsTakeTheExtensionAsItIsWritten) {
  const PDFExporter made =
      exporterOf({record({.name = "A.M", .size = 1024, .lines = 10, .linesWithoutSpaces = 7}),
                  record({.name = "b.m", .size = 2048, .lines = 5, .linesWithoutSpaces = 4}),
                  record({.name = "m", .size = 4096, .lines = 3, .linesWithoutSpaces = 3})});
  EXPECT_THAT(names(made.files()), ElementsAre("A.M", "b.m", "m"));
  EXPECT_THAT(made.cellValuesForFileType("m"), ElementsAre("5", "4", "2.0 KB"));
}

TEST(PDFExporter, EnormousNumbersWrapAroundQuietly) {
  const std::int64_t most = 9223372036854775807;
  const PDFExporter made = exporterOf({record({.name = "a.c", .size = most, .lines = most}),
                                       record({.name = "b.c", .size = most, .lines = most})});
  EXPECT_THAT(made.cellValuesForFileType("c"), ElementsAre("-2", "0", "-0.0 KB"));
}

}  // namespace
}  // namespace quillmeter
