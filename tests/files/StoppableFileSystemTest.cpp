#include "files/StoppableFileSystem.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <vector>

#include "files/ReadingFiles.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

TEST(StoppableFileSystem, IsTheOneBehindUntilItIsStoppedAndFailsFromThenOn) {
  const TemporaryFolder folder;
  const std::string path = folder.file("in/a.c", "text");
  std::stop_source stop;
  const StoppableFileSystem fileSystem(FileSystem::real(), stop.get_token());
  const auto file = fileSystem.open(path);
  const auto toAsk = fileSystem.openFolder(folder.path());
  const auto listed = fileSystem.openListing(folder.path(), FileSystem::Links::follow);
  std::array<char, 8> buffer{};
  FolderListing listing;

  const std::vector<std::function<DiskError()>> calls = {
      [&] { return fileSystem.status(path).error(); },
      [&] { return fileSystem.statusInFolder(*toAsk, "in").error(); },
      [&] { return fileSystem.statusOfOpen(*file).error(); },
      [&] { return fileSystem.openFolder(folder.path()).error(); },
      [&] { return fileSystem.openListing(folder.path(), FileSystem::Links::refuse).error(); },
      [&] { return fileSystem.openListingIn(*listed, "in").error(); },
      [&] { return fileSystem.listSome(*listed, listing).error(); },
      [&] { return fileSystem.entryType(*listed, "in").error(); },
      [&] { return fileSystem.open(path).error(); },
      [&] { return fileSystem.read(file->value(), buffer).error(); },
      [&] { return fileSystem.isMadeByKernel(*file).error(); },
  };
  for (std::size_t i = 0; i < calls.size(); ++i)
    EXPECT_EQ(calls[i]().number, 0) << i;
  EXPECT_EQ(buffer[0], 't');
  EXPECT_EQ(fileSystem.status(path)->size, 4U);

  stop.request_stop();
  for (std::size_t i = 0; i < calls.size(); ++i)
    EXPECT_EQ(calls[i]().kind(), DiskError::Kind::stopped) << i;
  EXPECT_EQ(listFolder(FileSystem::real(), folder.path())->size(), 1U) << "the one behind still works";
}

}  // namespace
}  // namespace quillmeter
