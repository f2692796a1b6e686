#pragma once

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>

#include "helpers/MemoryFileSystem.h"

namespace quillmeter::fuzzing {

/// A project on a disk in memory, made from a fuzzer's input: a line for each thing on the disk, then a line
/// "=", then the project's description.
///
/// A line begins with what it makes (f file, d folder, l link, o neither, e error), then the path, and behind
/// a tab the content, in which "|" ends lines, or the target of the link. Paths begin at the project's
/// folder; behind "^" at the folder that holds that one.
struct ProjectInput {
  static constexpr std::string_view kAbove = "/w/";
  static constexpr std::string_view kFolder = "/w/app";
  static constexpr std::string_view kBundle = "/w/app/App.xcodeproj";

  explicit ProjectInput(std::string_view input) {
    const std::size_t end = input.starts_with("=\n") ? 0 : input.find("\n=\n");
    if (end != std::string_view::npos) description = input.substr(end == 0 ? 2 : end + 3);
    disk.addFile(std::string(kBundle) + "/project.pbxproj", description);
    for (std::string_view lines = input.substr(0, end); !lines.empty();) {
      const std::size_t length = std::min(lines.find('\n'), lines.size());
      add(lines.substr(0, length));
      lines.remove_prefix(std::min(length + 1, lines.size()));
    }
  }

  quillmeter::testing::MemoryFileSystem disk;
  std::string description;
  bool hasErrors = false;

 private:
  void add(std::string_view line) {
    if (line.empty()) return;
    const char kind = line.front();
    line.remove_prefix(1);
    std::string path(kFolder);
    if (line.starts_with('^')) {
      path = kAbove;
      line.remove_prefix(1);
    }
    const std::size_t tab = std::min(line.find('\t'), line.size());
    path.append("/").append(line.substr(0, tab));
    std::string content(line.substr(std::min(tab + 1, line.size())));
    if (kind == 'd') disk.addFolder(path);
    if (kind == 'l') disk.addLink(path, content);
    if (kind == 'o') disk.addOther(path);
    if (kind == 'e') {
      disk.setError(path, content.empty() ? EACCES : EIO);
      hasErrors = true;
    }
    if (kind != 'f') return;
    std::replace(content.begin(), content.end(), '|', '\n');
    disk.addFile(path, content);
  }
};

}  // namespace quillmeter::fuzzing
