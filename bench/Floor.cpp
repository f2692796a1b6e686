#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

/// The least that measuring a project can cost: walks a folder, then opens, reads and closes the files whose
/// paths it gets on standard input, one a line, and looks at nothing. The whole-process benchmark divides by
/// its time.
namespace {

void walk(int folder) {
  DIR* entries = ::fdopendir(folder);
  if (entries == nullptr) return;
  while (const dirent* entry = ::readdir(entries)) {
    if (entry->d_type != DT_DIR || std::strcmp(entry->d_name, ".") == 0 ||
        std::strcmp(entry->d_name, "..") == 0)
      continue;
    const int inner = ::openat(::dirfd(entries), entry->d_name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (inner >= 0) walk(inner);
  }
  ::closedir(entries);
}

void read(const char* path) {
  static char block[1 << 16];
  const int file = ::open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  while (::read(file, block, sizeof block) > 0) {
  }
  ::close(file);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  walk(::open(argv[1], O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  static char path[1 << 16];
  while (std::fgets(path, sizeof path, stdin) != nullptr) {
    path[std::strcspn(path, "\n")] = '\0';
    read(path);
  }
  return 0;
}
