#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "files/FileSystem.h"
#include "files/ReadFaults.h"

namespace quillmeter {

/// An entry of a folder as the contents of projects see it.
struct FolderEntry {
  enum class Type {
    file,    ///< a regular file, or a link to one
    folder,  ///< a folder itself, no link to one
    neither  ///< links to folders, links that lead nowhere, and what is no file
  };
  std::string name;
  Type type = Type::neither;
};

/// The disk during one read of a project: what stands at a path, and what is in a folder. It lists each
/// folder once and keeps the list.
class DiskView {
 public:
  using Entries = std::vector<FolderEntry>;

  explicit DiskView(const FileSystem& fileSystem) : fileSystem_(fileSystem) {}

  /// What stands at a path, through links; absent when nothing does.
  [[nodiscard]] std::optional<FileStatus::Type> typeAt(const std::string& path);
  [[nodiscard]] bool isFile(const std::string& path) { return typeAt(path) == FileStatus::Type::regular; }
  [[nodiscard]] bool isFolder(const std::string& path) { return typeAt(path) == FileStatus::Type::folder; }

  /// The entries of a folder in ascending byte order of their names, hidden ones included; none when it
  /// cannot be read. The list stays where it is.
  [[nodiscard]] const Entries& entries(const std::string& folder);

  /// The folders that were listed so far.
  [[nodiscard]] std::vector<std::string> listedFolders() const;

  /// The whole text of a file; empty when it cannot be read.
  [[nodiscard]] std::string textOf(const std::string& path);

  /// What could not be listed or read although it is there.
  [[nodiscard]] const ReadFaults& faults() const { return faults_; }

 private:
  [[nodiscard]] Entries listed(const std::string& folder);
  void noteOrFail(const std::string& path, DiskError error);

  const FileSystem& fileSystem_;
  std::unordered_map<std::string, Entries> entries_;
  ReadFaults faults_;
};

}  // namespace quillmeter
