#include "app/StoppableFileSystem.h"

#include <gtest/gtest.h>

#include <array>

#include "analysis/ParseProject.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

TEST(StoppableFileSystem, IsTheDiskUntilItIsStopped) {
  const TemporaryFolder folder;
  const std::string path = folder.file("a.c", "text");
  StoppableFileSystem fileSystem;
  EXPECT_EQ(fileSystem.status(path)->size, 4U);
  EXPECT_EQ(fileSystem.listFolder(folder.path())->size(), 1U);
  const Descriptor file = fileSystem.open(path);
  std::array<char, 8> buffer{};
  EXPECT_EQ(fileSystem.read(file.value(), buffer), 4);

  fileSystem.stop();
  EXPECT_TRUE(fileSystem.isStopped());
  EXPECT_FALSE(fileSystem.status(path).has_value());
  EXPECT_EQ(fileSystem.listFolder(folder.path()), std::nullopt);
  EXPECT_FALSE(fileSystem.open(path));
  EXPECT_EQ(fileSystem.read(file.value(), buffer), -1);
}

TEST(StoppableFileSystem, ReadOfAProjectOnItFindsNothingOnceStopped) {
  const TemporaryFolder folder;
  folder.file("a.c", "int a;\n");
  const std::string bundle = testing::writeProject(folder, {"a.c"});
  StoppableFileSystem fileSystem;
  ParseProject project(fileSystem);
  project.parseFileAtPathAndDelegate(bundle, nullptr);
  EXPECT_EQ(project.files().size(), 1U);
  fileSystem.stop();
  project.parseFileAtPathAndDelegate(bundle, nullptr);
  EXPECT_TRUE(project.files().empty());
}

}  // namespace
}  // namespace quillmeter
