#include "controls/QtUserDefaults.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

constexpr auto kFlag = "quillmeter.ratings_reminder.should_remind_1.2";
constexpr auto kCounter = "quillmeter.ratings_reminder.counter_1.2";

TEST(QtUserDefaults, KeysThatWereNeverSetAreAbsent) {
  const TemporaryFolder folder;
  const QtUserDefaults defaults(QString::fromStdString(folder / "none.ini"));
  EXPECT_EQ(defaults.boolForKey(kFlag), std::nullopt);
  EXPECT_EQ(defaults.integerForKey(kCounter), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(folder / "none.ini"));
}

TEST(QtUserDefaults, ValuesComeBackAtTheNextLaunch) {
  const TemporaryFolder folder;
  const QString path = QString::fromStdString(folder / "a.ini");
  {
    QtUserDefaults defaults(path);
    defaults.setBool(kFlag, true);
    defaults.setInteger(kCounter, -7'000'000'000);
    EXPECT_EQ(defaults.boolForKey(kFlag), true);
    EXPECT_EQ(defaults.integerForKey(kCounter), -7'000'000'000);
    defaults.synchronize();
  }
  const QtUserDefaults defaults(path);
  EXPECT_EQ(defaults.boolForKey(kFlag), true);
  EXPECT_EQ(defaults.integerForKey(kCounter), -7'000'000'000);
}

TEST(QtUserDefaults, ValueIsOnTheDiskOnceSynchronized) {
  const TemporaryFolder folder;
  QtUserDefaults defaults(QString::fromStdString(folder / "a.ini"));
  defaults.setInteger(kCounter, 3);
  defaults.synchronize();
  EXPECT_NE(testing::readFile(folder / "a.ini").find("counter_1.2=3"), std::string::npos);
}

TEST(QtUserDefaults, ValuesOfAnotherTypeAreAbsent) {
  const TemporaryFolder folder;
  QtUserDefaults defaults(
      QString::fromStdString(folder.file("a.ini", "[General]\nflag=7\ncounter=many\nlist=1, 2\nempty=\n")));
  EXPECT_EQ(defaults.boolForKey("flag"), std::nullopt);
  EXPECT_EQ(defaults.integerForKey("counter"), std::nullopt);
  EXPECT_EQ(defaults.integerForKey("list"), std::nullopt);
  EXPECT_EQ(defaults.integerForKey("empty"), std::nullopt);
}

TEST(QtUserDefaults, GarbageReadsAsNothingAndIsReplaced) {
  const TemporaryFolder folder;
  std::string garbage;
  for (int byte = 0; byte < 4096; ++byte)
    garbage += static_cast<char>((byte * 131 + 7) % 256);
  const QString path = QString::fromStdString(folder.file("a.ini", garbage));
  {
    QtUserDefaults defaults(path);
    EXPECT_EQ(defaults.boolForKey(kFlag), std::nullopt);
    defaults.setBool(kFlag, true);
    defaults.synchronize();
    EXPECT_EQ(defaults.boolForKey(kFlag), true);
  }
  EXPECT_EQ(QtUserDefaults(path).boolForKey(kFlag), true);
}

TEST(QtUserDefaults, PlaceThatCannotBeWrittenKeepsValuesForThisLaunch) {
  const TemporaryFolder folder;
  folder.file("blocked", "a file where a folder would have to be");
  const QString path = QString::fromStdString(folder / "blocked/a.ini");
  {
    QtUserDefaults defaults(path);
    defaults.setInteger(kCounter, 2);
    defaults.synchronize();
    EXPECT_EQ(defaults.integerForKey(kCounter), 2);
  }
  EXPECT_EQ(QtUserDefaults(path).integerForKey(kCounter), std::nullopt);
}

TEST(QtUserDefaults, FileThatIsAFolderReadsAsNothing) {
  const TemporaryFolder folder;
  QtUserDefaults defaults(QString::fromStdString(folder.folder("a.ini")));
  EXPECT_EQ(defaults.boolForKey(kFlag), std::nullopt);
  defaults.setBool(kFlag, false);
  defaults.synchronize();
  EXPECT_EQ(defaults.boolForKey(kFlag), false);
}

}  // namespace
}  // namespace quillmeter
