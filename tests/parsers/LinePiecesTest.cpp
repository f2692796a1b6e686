#include "parsers/LinePieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "helpers/TemporaryFolder.h"
#include "parsers/MemoryFile.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MemoryFile;

std::vector<std::string> piecesOf(const MemoryFile& file) {
  const auto descriptor = file.open("any");
  LinePieces pieces(file, descriptor->value());
  std::vector<std::string> result;
  while (const auto piece = pieces.next())
    result.emplace_back(*piece);
  return result;
}

/// The pieces as the standard library hands them out.
std::vector<std::string> piecesByStandardLibrary(const std::string& content) {
  const testing::TemporaryFolder folder;
  const std::string path = folder.file("content", content);
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "r"), std::fclose);
  std::vector<std::string> result;
  char buffer[128];
  for (long begin = 0; std::fgets(buffer, sizeof buffer, file.get()) != nullptr;) {
    const long end = std::ftell(file.get());
    result.emplace_back(buffer, static_cast<std::size_t>(end - begin));
    begin = end;
  }
  return result;
}

TEST(LinePieces, AreLinesWithTheirLineFeed) {
  EXPECT_THAT(piecesOf(MemoryFile("one\r\n\ntwo")), ElementsAre("one\r\n", "\n", "two"));
  EXPECT_THAT(piecesOf(MemoryFile("")), IsEmpty());
}

TEST(LinePieces, HaveAtMost127Bytes) {
  const std::string a(126, 'a');
  EXPECT_THAT(piecesOf(MemoryFile(a + "\n.")), ElementsAre(a + "\n", "."));
  EXPECT_THAT(piecesOf(MemoryFile(a + "a\n.")), ElementsAre(a + "a", "\n", "."));
  EXPECT_THAT(piecesOf(MemoryFile(a + "aa\n.")), ElementsAre(a + "a", "a\n", "."));
  EXPECT_THAT(piecesOf(MemoryFile(a + "a" + a + "aa")), ElementsAre(a + "a", a + "a", "a"));
}

TEST(LinePieces, AreThoseOfTheStandardLibrary) {
  std::mt19937 random(7);
  std::string content;
  while (content.size() < 300000) {
    content.append(random() % 300, static_cast<char>('a' + random() % 26));
    if (random() % 8 == 0) content += '\0';
    if (random() % 4 != 0) content += '\n';
  }
  EXPECT_EQ(piecesOf(MemoryFile(content)), piecesByStandardLibrary(content));
}

TEST(LinePieces, StayTheSameWhenReadsAreShortOrInterrupted) {
  std::string content;
  for (std::size_t length = 0; length < 400; ++length)
    content.append(length, 'x').append("\n");
  const auto expected = piecesOf(MemoryFile(content));
  for (const std::size_t longest : {1U, 2U, 126U, 127U, 128U, 1000U}) {
    MemoryFile file(content);
    file.setLongestRead(longest);
    file.setInterruptReads(true);
    EXPECT_EQ(piecesOf(file), expected) << longest;
  }
}

TEST(LinePieces, EndWhereAReadFails) {
  const std::string content = "one\ntwo\nthree\n";
  MemoryFile file(content);
  file.setFailAt(10);
  EXPECT_THAT(piecesOf(file), ElementsAre("one\n", "two\n"));
}

}  // namespace
}  // namespace quillmeter
