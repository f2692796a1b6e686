#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace quillmeter::testing {

/// Makes `levels` folders "d" inside each other, each with a file "z.m". Deeper than a path may say, so they
/// are taken apart from the top at the end: each is moved up and removed.
class DeepTree {
 public:
  DeepTree(const std::string& root, int levels) : root_(root) {
    int folder = ::open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int i = 0; i < levels; ++i) {
      EXPECT_EQ(::mkdirat(folder, "d", 0755), 0);
      ::close(::openat(folder, "z.m", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
      const int next = ::openat(folder, "d", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
      ::close(folder);
      folder = next;
    }
    ::close(folder);
  }
  ~DeepTree() {
    int number = 0;
    std::string folder = root_ + "/d";
    while (std::filesystem::exists(folder)) {
      const std::string moved = root_ + "/moved" + std::to_string(++number);
      if (std::filesystem::exists(folder + "/d")) std::filesystem::rename(folder + "/d", moved);
      std::filesystem::remove(folder + "/z.m");
      std::filesystem::remove(folder);
      folder = moved;
    }
  }
  DeepTree(const DeepTree&) = delete;
  DeepTree& operator=(const DeepTree&) = delete;

 private:
  std::string root_;
};

}  // namespace quillmeter::testing
