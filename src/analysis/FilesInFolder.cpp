#include "analysis/FilesInFolder.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "files/FileSystem.h"
#include "files/FolderWalk.h"
#include "measuring/FileKinds.h"

namespace quillmeter {
namespace {

using Names = std::unordered_set<std::string_view>;

/// The paths of files by their folders: what follows each other in a list or in a walk mostly shares its
/// folder, so the folder is looked up once for many files and their names are found in a small table. The
/// files must stay as they are meanwhile.
class PathsByFolder {
 public:
  explicit PathsByFolder(const FileList& files) {
    std::string_view folder;
    Names* names = nullptr;
    for (const auto& file : files) {
      if (!file->filePath()) continue;
      const std::string_view path = *file->filePath();
      const std::size_t slash = path.rfind('/');
      // Such a path is none of a walk.
      if (slash == std::string_view::npos) continue;
      if (names == nullptr || folder != path.substr(0, slash)) {
        folder = path.substr(0, slash);
        names = &names_[folder];
      }
      names->insert(path.substr(slash + 1));
    }
  }

  [[nodiscard]] const Names& inFolder(std::string_view folder) const {
    static const Names none;
    const auto found = names_.find(folder);
    return found == names_.end() ? none : found->second;
  }

 private:
  std::unordered_map<std::string_view, Names> names_;
};

/// Whether an entry is visible, of a known kind and, going by the walk, a regular file or a link to one.
bool mayBeListed(const FileKindTable& kinds, const FolderWalk& walk, FolderWalk::Index entry) {
  const FolderWalk::Type type = walk.type(entry);
  if (type != FolderWalk::Type::regular && type != FolderWalk::Type::link) return false;
  const std::string_view name = walk.name(entry);
  return !name.starts_with('.') && kinds.kindOfPath(name) != FileKind::none;
}

/// One folder of the walk, opened when the first size in it is asked for.
class CurrentFolder {
 public:
  CurrentFolder(const FileSystem& fileSystem, std::string path, ReadFaults& faults)
      : fileSystem_(fileSystem), path_(std::move(path)), faults_(faults) {}

  /// Without a "/" at the end, so empty for "/".
  [[nodiscard]] const std::string& path() const { return path_; }

  /// The record of the file called `name`; null when it is no regular file any more.
  [[nodiscard]] std::shared_ptr<FileObject> record(std::string_view name) {
    auto file = std::make_shared<FileObject>();
    file->setFileName(std::string(name));
    file->setFilePath(path_ + "/" + std::string(name));
    const auto status = statusOf(*file);
    faults_.note(*file->filePath(), status.error());
    if (!status || status->type != FileStatus::Type::regular) return nullptr;
    file->setFileSize(Number(status->size));
    return file;
  }

 private:
  [[nodiscard]] Result<FileStatus> statusOf(const FileObject& file) {
    if (!opened_) opened_ = fileSystem_.openFolder(path_.empty() ? "/" : path_);
    if (!*opened_) return fileSystem_.status(*file.filePath());
    return fileSystem_.statusInFolder(**opened_, *file.fileName());
  }

  const FileSystem& fileSystem_;
  std::string path_;
  ReadFaults& faults_;
  std::optional<Result<Descriptor>> opened_;  ///< absent until asked for
};

}  // namespace

FileList filesInFolder(const FileSystem& fileSystem, const FileKindTable& kinds, std::string_view folder,
                       const FileList& except, ReadFaults& faults) {
  const FolderWalk walk(folder, fileSystem);
  faults.add(walk.faults());
  const PathsByFolder exceptions(except);
  FileList files;
  std::optional<CurrentFolder> current;
  FolderWalk::Index currentEntry = FolderWalk::kNone;
  const Names* left = nullptr;
  for (FolderWalk::Index i = 0; i < walk.size(); ++i) {
    if (!mayBeListed(kinds, walk, i)) continue;
    if (!current || currentEntry != walk.parent(i)) {
      currentEntry = walk.parent(i);
      current.emplace(fileSystem, currentEntry == FolderWalk::kNone ? walk.root() : walk.path(currentEntry),
                      faults);
      left = &exceptions.inFolder(current->path());
    }
    if (left->contains(walk.name(i))) continue;
    if (auto file = current->record(walk.name(i))) files.push_back(std::move(file));
  }
  return files;
}

}  // namespace quillmeter
