#include "compare/SnapshotReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using testing::TemporaryFolder;

const std::string kCounters =
    R"("fileSize": 15, "noLinesTotal": 3, "noLinesComments": 1, "noLinesWithoutSpaces": 2, "noWords": 5, )"
    R"("noCharactersWithoutSpaces": 10, "noCharactersTotal": 13)";
const std::string kTotalsText =
    R"("totals": {"getNumberCodeFiles": 1, "getNumberImageFiles": 2, "getNumberXIBFiles": 3, )"
    R"("getNumberInstanceMethods": 0, "getNumberStaticMethods": 0})";

std::string fileText(const std::string& path, const std::string& counters = kCounters) {
  return R"({"fileName": "a.m", "filePath": ")" + path + "\", " + counters + "}";
}

std::string measurement(const std::string& files, const std::string& first = R"("version": 1, )") {
  return "{" + first + R"("projectTitle": "App", "initialPath": "/w/App.xcodeproj", "files": [)" + files +
         "], " + kTotalsText + "}\n";
}

std::string errorOf(std::string json) {
  const SnapshotReading reading = readSnapshot(std::move(json));
  EXPECT_NE(reading.snapshot.has_value(), !reading.error.empty());
  return reading.error;
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  const std::size_t place = text.find(what);
  EXPECT_NE(place, std::string::npos) << what;
  return text.replace(place, what.size(), with);
}

TEST(SnapshotReader, ReadsWhatMeasureWrites) {
  const SnapshotReading reading =
      readSnapshot(measurement(fileText("/w/b/a.m") + ",\n" + fileText("/w/a.m")));
  ASSERT_TRUE(reading.snapshot) << reading.error;
  const Snapshot& snapshot = *reading.snapshot;
  EXPECT_EQ(snapshot.projectTitle, "App");
  EXPECT_EQ(snapshot.initialPath, "/w/App.xcodeproj");
  EXPECT_EQ(snapshot.rules, "classic");
  ASSERT_EQ(snapshot.files.size(), 2U);
  EXPECT_EQ(snapshot.files[0].path, "a.m");
  EXPECT_EQ(snapshot.files[1].path, "b/a.m");
  EXPECT_EQ(snapshot.files[0].counters, (Counters{15, 3, 1, 2, 5, 10, 13}));
  EXPECT_EQ(snapshot.totals, (Totals{30, 6, 2, 4, 10, 20, 26, 1, 2, 3, 0, 0}));
}

TEST(SnapshotReader, TheOrderOfMembersAndUnknownOnesDoNotMatter) {
  const std::string json =
      "{" + kTotalsText + R"(, "later": {"deep": [[{"x": "]}"}]]}, "files": [)" +
      fileText("/w/a.m", R"("new": [1], )" + kCounters) +
      R"(], "initialPath": "/w/App.xcodeproj", "projectTitle": "App", "rules": "current"})";
  const SnapshotReading reading = readSnapshot(json);
  ASSERT_TRUE(reading.snapshot) << reading.error;
  EXPECT_EQ(reading.snapshot->rules, "current");
  EXPECT_EQ(reading.snapshot->files.size(), 1U);
}

TEST(SnapshotReader, OfTwoListsOfFilesTheLastOneHolds) {
  const SnapshotReading reading = readSnapshot(replaced(
      measurement(fileText("/w/b.m")), R"("files")", R"("files": [)" + fileText("/w/a.m") + R"(], "files")"));
  ASSERT_TRUE(reading.snapshot) << reading.error;
  ASSERT_EQ(reading.snapshot->files.size(), 1U);
  EXPECT_EQ(reading.snapshot->files[0].path, "b.m");
}

TEST(SnapshotReader, AMeasurementFromBeforeVersionsIsOfTheFirst) {
  EXPECT_EQ(errorOf(measurement("", "")), "");
}

TEST(SnapshotReader, AbsentCountersAreNothing) {
  const SnapshotReading reading = readSnapshot(
      measurement(fileText("/w/a.m", replaced(kCounters, "\"noWords\": 5", "\"noWords\": null"))));
  ASSERT_TRUE(reading.snapshot) << reading.error;
  EXPECT_EQ(reading.snapshot->files[0].counters[4], 0);
}

TEST(SnapshotReader, NamesBecomeTheBytesTheyWere) {
  const SnapshotReading reading =
      readSnapshot(measurement(fileText(R"(/w/\udcff\udc80 \ud83d\ude00\"\\\u00e9.m)")));
  ASSERT_TRUE(reading.snapshot) << reading.error;
  EXPECT_EQ(reading.snapshot->files[0].path, "\xff\x80 \U0001F600\"\\é.m");
}

TEST(SnapshotReader, CharactersTakeOneToFourBytes) {
  const SnapshotReading reading = readSnapshot(
      measurement(fileText(R"(/w/\u007f\u0080\u07ff\u0800\ud7ff\ue000\uffff\ud800\udc00\udbff\udfff.m)")));
  ASSERT_TRUE(reading.snapshot) << reading.error;
  EXPECT_EQ(reading.snapshot->files[0].path,
            "\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf\xf0\x90\x80\x80\xf4\x8f\xbf"
            "\xbf.m");
}

TEST(SnapshotReader, TellsWhatIsNotJson) {
  EXPECT_EQ(errorOf(""), "is empty");
  EXPECT_EQ(errorOf("   \n"), "is empty");
  EXPECT_THAT(errorOf("fileName,filePath\na.m,/w/a.m\n"), HasSubstr("not a JSON object"));
  EXPECT_THAT(errorOf("{fileName: 1}"), StartsWith("is not JSON"));
  EXPECT_THAT(errorOf("{\"projectTitle\": \"\xff\"}"), HasSubstr("not UTF-8"));
  EXPECT_THAT(errorOf(measurement("") + "{}"), HasSubstr("not JSON"));
  EXPECT_THAT(errorOf(measurement(fileText("/w/a.m") + fileText("/w/b.m"))), HasSubstr("not JSON"));
}

TEST(SnapshotReader, TellsOfAMeasurementThatEndsTooEarly) {
  const std::string whole = measurement(fileText("/w/a.m") + ", " + fileText("/w/b.m"));
  for (std::size_t size = 1; size + 2 < whole.size(); ++size) {
    const std::string error = errorOf(whole.substr(0, size));
    ASSERT_NE(error, "") << size;
  }
  EXPECT_THAT(errorOf(whole.substr(0, whole.size() - 3)), HasSubstr("only the beginning"));
}

TEST(SnapshotReader, TellsOfAnotherVersion) {
  EXPECT_EQ(errorOf(measurement("", R"("version": 2, )")),
            "is a measurement of version 2, this tool reads version 1");
  EXPECT_THAT(errorOf(measurement("", R"("version": "one", )")), HasSubstr("version is no whole number"));
}

TEST(SnapshotReader, TellsOfUnknownRules) {
  EXPECT_EQ(errorOf(measurement("", R"("rules": "own", )")),
            "is measured by rules that this tool does not know: own");
}

TEST(SnapshotReader, TellsWhichMemberIsMissing) {
  const std::string whole = measurement(fileText("/w/a.m"));
  for (const std::string name :
       {"projectTitle", "initialPath", "files", "getNumberCodeFiles", "getNumberStaticMethods"})
    EXPECT_EQ(errorOf(replaced(whole, "\"" + name, "\"_" + name)),
              "is no measurement: " + name + " is missing");
  EXPECT_EQ(errorOf(replaced(whole, "\"filePath", "\"_filePath")),
            "is no measurement: file 1 has no filePath");
  EXPECT_EQ(errorOf(replaced(whole, "\"noWords", "\"_noWords")), "is no measurement: file 1 has no noWords");
  EXPECT_THAT(errorOf("{}"), HasSubstr("projectTitle is missing"));
}

TEST(SnapshotReader, TellsOfMembersOfTheWrongType) {
  EXPECT_EQ(errorOf("[]"), "is no measurement: it is not a JSON object");
  EXPECT_EQ(errorOf("7"), "is no measurement: it is not a JSON object");
  EXPECT_THAT(errorOf(R"({"files": 7})"), HasSubstr("\"files\" is no list"));
  EXPECT_THAT(errorOf(R"({"files": [7]})"), HasSubstr("file 1 is no object"));
  EXPECT_THAT(errorOf(R"({"totals": []})"), HasSubstr("\"totals\" is no object"));
  EXPECT_THAT(errorOf(R"({"projectTitle": null})"), HasSubstr("a name is no text"));
}

TEST(SnapshotReader, TellsOfNumbersThatAreNoCounts) {
  for (const std::string number :
       {"-1", "1.5", "1e3", "\"3\"", "[]", "true", "9223372036854775808", "1e999"}) {
    EXPECT_EQ(errorOf(measurement(fileText("/w/a.m", replaced(kCounters, ": 5", ": " + number)))),
              "is no measurement: noWords of file 1 is no whole number from 0 on")
        << number;
  }
  EXPECT_THAT(errorOf(replaced(measurement(""), "\"getNumberCodeFiles\": 1", "\"getNumberCodeFiles\": -1")),
              HasSubstr("getNumberCodeFiles is no whole number"));
}

TEST(SnapshotReader, TellsOfNamesThatAreNone) {
  for (const std::string name :
       {R"(\ud800)", R"(\udc41)", R"(\ud83d\u0041)", R"(\u12g4)", R"(\u0000)", R"(\q)", R"(\u12)"})
    EXPECT_THAT(errorOf(measurement(fileText("/w/" + name))), HasSubstr("what no name can hold")) << name;
}

TEST(SnapshotReader, DeepNestingIsSkippedOrToldOf) {
  const std::string deep = std::string(200000, '[') + std::string(200000, ']');
  const SnapshotReading unknown = readSnapshot(measurement("", R"("x": )" + deep + ", "));
  EXPECT_NE(unknown.snapshot.has_value(), !unknown.error.empty());
  EXPECT_NE(errorOf(deep), "");
  EXPECT_NE(errorOf(measurement(deep)), "");
}

TEST(SnapshotReader, TellsOfFilesThatCannotBeRead) {
  const TemporaryFolder folder;
  EXPECT_EQ(readSnapshotFile(folder / "missing.json").error, "No such file or directory");
  EXPECT_EQ(readSnapshotFile(folder.path()).error, "Is a directory");
  EXPECT_EQ(readSnapshotFile("/dev/null").error, "is empty");
}

TEST(SnapshotReader, ReadsPipesToTheirEnd) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::string files;
  for (int i = 0; i < 20000; ++i)
    files += (i == 0 ? "" : ",\n") + fileText("/w/" + std::to_string(i) + ".m");
  std::thread writer([&] { folder.file("pipe", measurement(files)); });
  const SnapshotReading reading = readSnapshotFile(folder / "pipe");
  writer.join();
  ASSERT_TRUE(reading.snapshot) << reading.error;
  EXPECT_EQ(reading.snapshot->files.size(), 20000U);
}

}  // namespace
}  // namespace quillmeter
