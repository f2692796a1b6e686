#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace quillmeter::testing {

/// A fresh folder that is removed with its contents at the end of the test.
class TemporaryFolder {
 public:
  TemporaryFolder() : TemporaryFolder(std::filesystem::temp_directory_path()) {}
  explicit TemporaryFolder(const std::filesystem::path& parent) {
    std::string pattern = (parent / "quillmeter-test-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::string operator/(std::string_view relative) const {
    return path_ + "/" + std::string(relative);
  }

  /// Writes a file (making the folders above it) and gives its path.
  std::string file(std::string_view relative, std::string_view content = {}) const {
    const std::string full = *this / relative;
    std::filesystem::create_directories(std::filesystem::path(full).parent_path());
    std::ofstream stream(full, std::ios::binary);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    EXPECT_TRUE(stream.good()) << full;
    return full;
  }

  std::string folder(std::string_view relative) const {
    std::filesystem::create_directories(*this / relative);
    return *this / relative;
  }

 private:
  std::string path_;
};

/// The whole content of a file; fails the test when it cannot be read.
inline std::string readFile(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  EXPECT_TRUE(stream.good()) << path;
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace quillmeter::testing
