#include "analysis/ParseProject.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "analysis/FilesInFolder.h"
#include "analysis/LinkedReference.h"
#include "analysis/PathIndex.h"
#include "analysis/ReferenceSection.h"
#include "files/FileSystem.h"
#include "files/FolderWalk.h"
#include "measuring/FileKinds.h"
#include "measuring/FileStats.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

/// The folder that holds the bundle at `path`; "/" for a bundle in the root folder.
std::string parentFolder(const std::string& path) {
  const std::string folder = removingOccurrences(path, "/" + std::string(lastPathComponent(path)));
  return folder.empty() ? "/" : folder;
}

}  // namespace

ParseProject::ParseProject() : ParseProject(FileSystem::real()) {}
ParseProject::ParseProject(const FileSystem& fileSystem) : fileSystem_(&fileSystem) {}
ParseProject::~ParseProject() = default;

void ParseProject::parseFileAtPathAndDelegate(const std::string& path, ParseProjectDelegate* delegate) {
  delegate_ = delegate;
  allAvailableFilesPaths_.reset();
  linkedReferences_.reset();
  setArrayFiles(FileList());
  setInitialPath(path);
  setProjectTitle(removingOccurrences(lastPathComponent(path), ".xcodeproj"));

  auto project = readWholeFile(*fileSystem_, joinedPath(path, "project.pbxproj"));
  if (project && !isValidUtf8(*project)) project.reset();
  if (delegate_ != nullptr) delegate_->progressParsingProjectStarted();
  if (const auto section = project ? referenceSection(*project) : std::nullopt)
    setArrayFiles(filesOf(*section));
  if (delegate_ != nullptr) delegate_->progressParsingProjectEnded();
}

FileList ParseProject::filesOf(std::string_view section) {
  FileList files;
  allAvailableFilesPaths_ = std::make_unique<PathIndex>(FolderWalk(parentFolder(initialPath())));
  const auto lines = static_cast<std::uint32_t>(std::count(section.begin(), section.end(), '\n')) + 1U;
  for (std::uint32_t i = 0; i < lines; ++i) {
    const std::size_t end = section.find('\n');
    if (auto file = fileOf(section.substr(0, end))) files.push_back(std::move(file));
    if (end != std::string_view::npos) section.remove_prefix(end + 1);
    // A section of a single line divides 0 by 0; the not-a-number is passed on as it is.
    if (delegate_ != nullptr) delegate_->progressParsingProject(static_cast<double>(i) / (lines - 1U));
  }
  return files;
}

std::shared_ptr<FileObject> ParseProject::fileOf(std::string_view line) {
  const auto reference = parseLineFileReference(line);
  if (!reference) return nullptr;
  try {
    auto file = getFileInfoAtInitialPath(*reference, initialPath());
    if (file && log_) log_("parsing file " + file->fileName().value_or(""));
    return file;
  } catch (const std::logic_error&) {
    if (log_) log_("error parsing the file at path: " + initialPath());
    return nullptr;
  }
}

std::optional<std::string> ParseProject::parseLineFileReference(std::string_view line) const {
  return referencedPath(line);
}

std::vector<std::string> ParseProject::getAllFilesFromInitialPath(const std::string& path) const {
  const FolderWalk walk(parentFolder(path));
  std::vector<std::string> paths;
  paths.reserve(walk.size());
  for (FolderWalk::Index i = 0; i < walk.size(); ++i)
    paths.push_back(walk.path(i));
  return paths;
}

std::shared_ptr<FileObject> ParseProject::getFileInfoAtInitialPath(const std::string& reference,
                                                                   const std::string& path) {
  std::shared_ptr<FileObject> file;
  if (allAvailableFilesPaths_) {
    allAvailableFilesPaths_->forEachCandidate(
        reference, [&](const std::string& candidate, FolderWalk::Type type) {
          file = type == FolderWalk::Type::regular ? regularFileStats(*fileSystem_, candidate)
                                                   : getFileStats(candidate);
          return file != nullptr;
        });
  }
  if (file || !reference.starts_with(kClimb)) return file;
  return linkedFile(reference, path);
}

std::shared_ptr<FileObject> ParseProject::linkedFile(std::string_view reference, const std::string& path) {
  const std::string folder = parentFolder(path);
  if (!linkedReferences_ || linkedReferences_->folder() != folder) {
    linkedReferences_ = std::make_unique<LinkedReferences>(
        folder, fileSystem_->realPath(folder),
        [this](const std::string& linked) { return fileSystem_->status(linked).has_value(); });
  }
  const auto linked = linkedReferences_->follow(reference);
  if (!linked) return nullptr;
  if (linked->foldsPastRoot && log_) log_("something bad happened while trying to convert the linked path");
  return linked->isMissing ? nullptr : getFileStats(linked->path);
}

std::shared_ptr<FileObject> ParseProject::getFileStats(const std::string& path) const {
  return fileStats(*fileSystem_, path);
}

FileList ParseProject::allFilesInFolder() const {
  return filesInFolderExcept({});
}

FileList ParseProject::filesInFolderExcept(const FileList& files) const {
  return filesInFolder(*fileSystem_, removingOccurrences(initialPath(), lastPathComponent(initialPath())),
                       files);
}

}  // namespace quillmeter
