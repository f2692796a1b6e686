#include "xcode/CurrentProject.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <unordered_set>
#include <variant>

#include "measuring/FileStats.h"
#include "support/Paths.h"
#include "support/Text.h"
#include "xcode/Description.h"
#include "xcode/FolderContents.h"
#include "xcode/Locations.h"

namespace quillmeter {
namespace {

/// The folder that holds the bundle at `path`.
std::string bundleFolder(const std::string& path) {
  if (path.starts_with('/')) return std::string(parentLocation(normalisedLocation(path)));
  std::error_code ignored;
  const std::string current = std::filesystem::current_path(ignored).string();
  return std::string(parentLocation(normalisedLocation(current, path)));
}

std::shared_ptr<FileObject> namedFile(const std::string& path) {
  auto file = std::make_shared<FileObject>();
  file->setFilePath(path);
  file->setFileName(std::string(lastPathComponent(path)));
  return file;
}

}  // namespace

void CurrentProject::parseFileAtPathAndDelegate(const std::string& path, ParseProjectDelegate* delegate) {
  setArrayFiles(FileList());
  setInitialPath(path);
  setProjectTitle(removingOccurrences(lastPathComponent(path), ".xcodeproj"));
  error_.clear();
  projectFolder_.clear();
  targets_.clear();
  other_.clear();
  missing_.clear();
  foreign_ = 0;
  otherCase_.clear();

  if (delegate != nullptr) delegate->progressParsingProjectStarted();
  read(path, delegate);
  if (delegate != nullptr) delegate->progressParsingProjectEnded();
}

void CurrentProject::read(const std::string& bundle, ParseProjectDelegate* delegate) {
  const auto description = readDescription(*fileSystem_, bundle);
  if (const auto* error = std::get_if<std::string>(&description)) {
    error_ = *error;
    return;
  }
  const auto& graph = std::get<ObjectGraph>(description);
  projectFolder_ = projectFolderOf(graph, bundleFolder(bundle));
  DiskView disk(*fileSystem_);
  ProjectFiles found = projectFilesOf(graph, projectFolder_, disk);
  targets_ = projectTargetsOf(graph, found);
  other_ = std::move(found.other);
  missing_ = std::move(found.missing);
  foreign_ = found.foreign;
  otherCase_ = std::move(found.otherCase);
  setArrayFiles(measured(found.files, delegate));
}

FileList CurrentProject::measured(const std::vector<std::string>& files,
                                  ParseProjectDelegate* delegate) const {
  FileList result;
  result.reserve(files.size());
  for (const std::string& file : files) {
    auto record = regularFileStats(*fileSystem_, kinds(), file);
    // A file that vanished meanwhile keeps its place: the targets count on it.
    result.push_back(record ? std::move(record) : namedFile(file));
    if (delegate != nullptr)
      delegate->progressParsingProject(static_cast<double>(result.size()) /
                                       static_cast<double>(files.size()));
  }
  return result;
}

FileList CurrentProject::unreferencedFiles() const {
  FileList result;
  if (projectFolder_.empty()) return result;
  std::unordered_set<std::string_view> records;
  for (const auto& file : files())
    records.insert(*file->filePath());
  DiskView disk(*fileSystem_);
  const auto add = [&](const std::string& path) {
    if (records.contains(path) || currentKind(path) == FileKind::none) return;
    const auto status = fileSystem_->status(path);
    if (!status || status->type != FileStatus::Type::regular) return;
    result.push_back(namedFile(path));
    result.back()->setFileSize(Number(status->size));
  };
  const auto isNoPackage = [&](const std::string& folder) { return !disk.isFile(folder + "/Package.swift"); };
  forEachFileIn(disk, projectFolder_, add, isNoPackage);
  return result;
}

}  // namespace quillmeter
