#include "support/PartFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string_view>

#include "support/Paths.h"
#include "support/Uninterrupted.h"
#include "support/WritingSystem.h"

namespace quillmeter {
namespace {

constexpr std::string_view kBefore = ".quillmeter-";
constexpr std::string_view kAfter = ".part";

bool isPartName(std::string_view name) {
  if (name.size() <= kBefore.size() + kAfter.size() || !name.starts_with(kBefore) ||
      !name.ends_with(kAfter)) {
    return false;
  }
  const auto number = name.substr(kBefore.size(), name.size() - kBefore.size() - kAfter.size());
  return std::all_of(number.begin(), number.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

struct FolderCloser {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

void removeUnlessHeld(const WritingSystem& system, const std::string& path) {
  // Only who may write a file is told whether it is locked everywhere.
  const int descriptor = uninterrupted(
      [&] { return ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); });
  if (descriptor < 0) return;
  struct stat status {};
  const bool regular = system.statusOfOpen(descriptor, status) == 0 && S_ISREG(status.st_mode);
  if (regular && system.lock(descriptor) == 0) system.remove(path);
  ::close(descriptor);
}

}  // namespace

std::string newPartPath(const std::string& folder) {
  std::random_device random;
  return joinedPath(folder, std::string(kBefore) + std::to_string(random()) + std::string(kAfter));
}

void removeLeftoverParts(const WritingSystem& system, const std::string& folder) {
  // The standard library's own iterator ends the program where it has no memory for a name.
  const std::unique_ptr<DIR, FolderCloser> names(::opendir(folder.c_str()));
  if (names == nullptr) return;
  while (const dirent* const entry = ::readdir(names.get())) {
    if (isPartName(entry->d_name)) removeUnlessHeld(system, joinedPath(folder, entry->d_name));
  }
}

}  // namespace quillmeter
