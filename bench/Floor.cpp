#include <dirent.h>
#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

/// The least that measuring a project can cost: walks a folder, then opens, reads and closes the files whose
/// paths it gets on standard input, one a line, and looks at nothing. The whole-process benchmark divides by
/// its time.
///
/// With --all-cores a thread for each processor does it, as far as that is possible without sharing anything:
/// they take the folders that lie one or two levels below the walked one in turn, and then the files.
namespace {

using Folders = std::vector<std::string>;

bool isFolder(const dirent& entry) {
  return entry.d_type == DT_DIR && std::strcmp(entry.d_name, ".") != 0 &&
         std::strcmp(entry.d_name, "..") != 0;
}

template <class Use>
void forEachFolderIn(int folder, const Use& use) {
  if (folder < 0) return;
  DIR* entries = ::fdopendir(folder);
  if (entries == nullptr) return;
  while (const dirent* entry = ::readdir(entries)) {
    if (isFolder(*entry)) use(::dirfd(entries), *entry);
  }
  ::closedir(entries);
}

void walk(int folder) {
  forEachFolderIn(folder, [](int parent, const dirent& entry) {
    walk(::openat(parent, entry.d_name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  });
}

int openFolder(const std::string& path) {
  return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

Folders foldersIn(const std::string& path) {
  Folders folders;
  forEachFolderIn(openFolder(path),
                  [&](int /*parent*/, const dirent& entry) { folders.push_back(path + "/" + entry.d_name); });
  return folders;
}

void read(const char* path, char* block, std::size_t size) {
  const int file = ::open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  while (::read(file, block, size) > 0) {
  }
  ::close(file);
}

constexpr std::size_t kBlock = std::size_t{1} << 16;

/// A thread for each processor calls `use(i)` for each i below `count`, in turns.
template <class Use>
void onAllCores(std::size_t count, const Use& use) {
  std::atomic<std::size_t> next = 0;
  const auto work = [&] {
    for (std::size_t i = next++; i < count; i = next++)
      use(i);
  };
  cpu_set_t processors;
  CPU_ZERO(&processors);
  ::sched_getaffinity(0, sizeof processors, &processors);
  std::vector<std::thread> threads;
  for (int i = 1; i < CPU_COUNT(&processors); ++i)
    threads.emplace_back(work);
  work();
  for (std::thread& thread : threads)
    thread.join();
}

void runOnAllCores(const std::string& root) {
  const Folders top = foldersIn(root);
  std::vector<Folders> inner(top.size());
  onAllCores(top.size(), [&](std::size_t i) { inner[i] = foldersIn(top[i]); });
  Folders folders;
  for (const Folders& some : inner)
    folders.insert(folders.end(), some.begin(), some.end());
  onAllCores(folders.size(), [&](std::size_t i) { walk(openFolder(folders[i])); });

  std::ios::sync_with_stdio(false);
  std::vector<std::string> files;
  for (std::string line; std::getline(std::cin, line);)
    files.push_back(line);
  onAllCores(files.size(), [&](std::size_t i) {
    thread_local const auto block = std::make_unique<char[]>(kBlock);  // NOLINT: a plain buffer
    read(files[i].c_str(), block.get(), kBlock);
  });
}

void runOnOneThread(const char* root) {
  walk(openFolder(root));
  static char path[1 << 16];
  static char block[kBlock];
  while (std::fgets(path, sizeof path, stdin) != nullptr) {
    path[std::strcspn(path, "\n")] = '\0';
    read(path, block, sizeof block);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool allCores = argc == 3 && std::strcmp(argv[1], "--all-cores") == 0;
  if (argc != 2 && !allCores) return 2;
  if (allCores) {
    runOnAllCores(argv[2]);
  } else {
    runOnOneThread(argv[1]);
  }
  return 0;
}
