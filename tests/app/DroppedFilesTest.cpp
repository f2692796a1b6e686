#include "app/DroppedFiles.h"

#include <gtest/gtest.h>

namespace quillmeter {
namespace {

std::optional<std::string> first(std::string_view list) {
  return firstDroppedFile(list, "workbench");
}

TEST(DroppedFiles, FirstFileOfAListWins) {
  EXPECT_EQ(first("file:///a/b\r\nfile:///c\r\n"), "/a/b");
}

TEST(DroppedFiles, LinesMayEndInAnyWay) {
  EXPECT_EQ(first("file:///a"), "/a");
  EXPECT_EQ(first("file:///a\nfile:///b\n"), "/a");
  EXPECT_EQ(first("\r\n\r\nfile:///a"), "/a");
}

TEST(DroppedFiles, CommentsAndOtherAddressesAreNoFiles) {
  EXPECT_EQ(first("# file:///comment\r\nhttps://example.org/file:///a\r\nfile:///b\r\n"), "/b");
  EXPECT_EQ(first("https://example.org/\r\n"), std::nullopt);
  EXPECT_EQ(first("ftp://workbench/a"), std::nullopt);
  EXPECT_EQ(first("plain text"), std::nullopt);
  EXPECT_EQ(first(""), std::nullopt);
}

TEST(DroppedFiles, EscapesAreBytes) {
  EXPECT_EQ(first("file:///my%20folder/%C3%A4%23"), "/my folder/\xC3\xA4#");
  EXPECT_EQ(first("file:///latin%E4"), "/latin\xE4");
  EXPECT_EQ(first("file:///100%"), "/100%");
  EXPECT_EQ(first("file:///100%2"), "/100%2");
  EXPECT_EQ(first("file:///100%zz"), "/100%zz");
}

TEST(DroppedFiles, ZeroByteIsNoPath) {
  EXPECT_EQ(first("file:///a%00b\r\nfile:///c"), "/c");
}

TEST(DroppedFiles, HostIsNobodyThisMachineOrLocalhost) {
  EXPECT_EQ(first("file://localhost/a"), "/a");
  EXPECT_EQ(first("file://workbench/a"), "/a");
  EXPECT_EQ(first("file:/a"), "/a");
  EXPECT_EQ(first("FILE:///a"), "/a");
  EXPECT_EQ(first("file://elsewhere/a\r\nfile:///b"), "/b");
  EXPECT_EQ(first("file:relative"), std::nullopt);
  EXPECT_EQ(first("file:"), std::nullopt);
  EXPECT_EQ(first("file://"), std::nullopt);
}

TEST(DroppedFiles, SlashesAtTheEndAreLeftOut) {
  EXPECT_EQ(first("file:///a/b//"), "/a/b");
  EXPECT_EQ(first("file:///"), "/");
}

TEST(DroppedFiles, LongListCostsNoMoreThanItsFirstFile) {
  std::string list = "file:///first\r\n";
  for (int item = 0; item < 10'000; ++item)
    list += "file:///other" + std::to_string(item) + "\r\n";
  EXPECT_EQ(first(list), "/first");
}

}  // namespace
}  // namespace quillmeter
