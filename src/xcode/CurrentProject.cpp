#include "xcode/CurrentProject.h"

#include <cerrno>
#include <filesystem>
#include <memory>
#include <optional>
#include <unordered_set>
#include <variant>

#include "measuring/OrderedMeasuring.h"
#include "support/Paths.h"
#include "xcode/CurrentKinds.h"
#include "xcode/Description.h"
#include "xcode/FolderContents.h"
#include "xcode/Locations.h"
#include "xcode/ProjectFiles.h"
#include "xcode/ProjectTargets.h"

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

CurrentProject::CurrentProject(const FileSystem& fileSystem) : ProjectReader(fileSystem, currentKinds()) {}

FileList CurrentProject::filesOfProject(const std::string& bundle, ProjectFindings& found) {
  projectFolder_.clear();
  const auto description = readDescription(fileSystem(), bundle);
  reportStarted();
  if (isStopped()) return {};
  if (const auto* error = std::get_if<std::string>(&description)) {
    found.error = *error;
    return {};
  }
  const auto& graph = std::get<ObjectGraph>(description);
  projectFolder_ = projectFolderOf(graph, bundleFolder(bundle));
  found.folder = projectFolder_;
  DiskView disk(fileSystem());
  ProjectFiles files = projectFilesOf(graph, projectFolder_, disk);
  faultsSoFar().add(disk.faults());
  found.targets = projectTargetsOf(graph, files);
  found.other = std::move(files.other);
  found.missing = std::move(files.missing);
  found.foreign = files.foreign;
  found.otherCase = std::move(files.otherCase);
  return measured(files.files);
}

FileList CurrentProject::measured(const std::vector<std::string>& files) {
  WorkerPool pool(threads());
  OrderedMeasuring measuring(fileSystem(), kinds(), pool);
  FileList result;
  result.reserve(files.size());
  std::size_t next = 0;
  for (const std::string& path : files) {
    for (; next < files.size() && measuring.hasRoom(); ++next)
      measuring.add(files[next], Beforehand::regular);
    if (isStopped()) return {};
    MeasuredFile file = measuring.take().measured;
    noteOrFail(path, file.error);
    // A file that vanished meanwhile keeps its place: the targets count on it.
    result.push_back(file.file ? std::move(file.file) : namedFile(path));
    if (wantsLog()) log("parsing file " + result.back()->fileName().value_or(""));
    reportProgress(static_cast<double>(result.size()) / static_cast<double>(files.size()));
  }
  return result;
}

FileList CurrentProject::unreferencedFiles(ReadFaults& faults) const {
  FileList result;
  if (projectFolder_.empty()) return result;
  std::unordered_set<std::string_view> records;
  for (const auto& file : files())
    records.insert(*file->filePath());
  DiskView disk(fileSystem());
  const auto add = [&](const std::string& path) {
    if (records.contains(path) || currentKind(path) == FileKind::none) return;
    const auto status = fileSystem().status(path);
    faults.note(path, status.error());
    if (!status || status->type != FileStatus::Type::regular) return;
    result.push_back(namedFile(path));
    result.back()->setFileSize(Number(status->size));
  };
  const auto isNoPackage = [&](const std::string& folder) { return !disk.isFile(folder + "/Package.swift"); };
  try {
    forEachFileIn(disk, projectFolder_, add, isNoPackage);
  } catch (const TooFewDescriptors&) {
    faults.note(projectFolder_, {EMFILE});
  }
  faults.add(disk.faults());
  return result;
}

}  // namespace quillmeter
