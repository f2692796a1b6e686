#include "analysis/ParseProject.h"

#include <algorithm>
#include <deque>
#include <stdexcept>
#include <utility>

#include "analysis/FilesInFolder.h"
#include "analysis/LinkedReference.h"
#include "analysis/PathIndex.h"
#include "analysis/ReferenceSection.h"
#include "analysis/ReferencedFolders.h"
#include "files/FolderWalk.h"
#include "files/ReadingFiles.h"
#include "files/StoppableFileSystem.h"
#include "measuring/OrderedMeasuring.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

constexpr std::uint64_t kLargestDescription = std::uint64_t{1} << 30;
/// How many lines are looked at before their turn. More than files are on their way at a time, since most
/// lines of some projects name none.
constexpr std::size_t kLinesAhead = 1024;

Beforehand knownOf(FolderWalk::Type type) {
  return type == FolderWalk::Type::regular ? Beforehand::regular : Beforehand::nothing;
}

/// The folder that holds the bundle at `path`; "/" for a bundle in the root folder.
std::string parentFolder(const std::string& path) {
  const std::string folder = removingOccurrences(path, "/" + std::string(lastPathComponent(path)));
  return folder.empty() ? "/" : folder;
}

}  // namespace

struct ParseProject::Line {
  std::string identifier;                ///< of the reference
  std::optional<std::string> reference;  ///< absent when the line names no file of a known kind
  bool isOnItsWay = false;               ///< the first path that it may stand for is being measured
};

ParseProject::ParseProject() : ParseProject(FileSystem::real()) {}
ParseProject::ParseProject(const FileSystem& fileSystem, FileKindTable kinds)
    : ProjectReader(fileSystem, std::move(kinds)) {}
ParseProject::~ParseProject() = default;

FileList ParseProject::filesOfProject(const std::string& bundle, ProjectFindings& found) {
  allAvailableFilesPaths_.reset();
  linkedReferences_.reset();
  const std::string description = joinedPath(bundle, "project.pbxproj");
  const auto project = readWholeFile(fileSystem(), description, kLargestDescription);
  noteOrFail(description, project.error());
  reportStarted();
  found.folder = parentFolder(bundle);
  const bool isText = project && isValidUtf8(*project);
  found.hasOtherFolders = isText && hasOtherFolders(*project);
  const auto section = isText ? referenceSection(*project) : std::nullopt;
  return section ? filesOf(*section, found) : FileList();
}

FileList ParseProject::filesOf(std::string_view section, ProjectFindings& found) {
  WorkerPool pool(threads());
  FolderWalk walk(parentFolder(initialPath()), fileSystem(), pool);
  if (walk.wants().count > 0) throw TooFewDescriptors(walk.wants().firstPath, walk.wants().firstError);
  if (isStopped()) return {};
  faultsSoFar().add(walk.faults());
  allAvailableFilesPaths_ = std::make_unique<PathIndex>(std::move(walk));
  OrderedMeasuring measuring(fileSystem(), kinds(), pool);
  return filesOf(section, measuring, found);
}

FileList ParseProject::filesOf(std::string_view section, OrderedMeasuring& measuring,
                               ProjectFindings& found) {
  FileList files;
  ReferencedFolders folders(*allAvailableFilesPaths_);
  std::deque<Line> ahead;
  const auto lines = static_cast<std::uint32_t>(std::count(section.begin(), section.end(), '\n')) + 1U;
  std::uint32_t next = 0;
  for (std::uint32_t i = 0; i < lines; ++i) {
    for (; next < lines && ahead.size() < kLinesAhead && measuring.hasRoom(); ++next) {
      const std::size_t end = section.find('\n');
      ahead.push_back(lineAhead(section.substr(0, end), measuring, folders, found));
      if (end != std::string_view::npos) section.remove_prefix(end + 1);
    }
    if (isStopped()) return {};
    if (auto file = fileOf(ahead.front(), measuring, found)) files.push_back(std::move(file));
    ahead.pop_front();
    // A section of a single line divides 0 by 0; the not-a-number is passed on as it is.
    reportProgress(static_cast<double>(i) / (lines - 1U));
  }
  found.inFolders = folders.files();
  found.hasOtherFolders |= folders.hasOthers();
  return files;
}

/// Reads a line and lets the first file that it may stand for be measured. That is nearly always the one;
/// what is to be done where nothing is there waits for the line's turn.
ParseProject::Line ParseProject::lineAhead(std::string_view text, OrderedMeasuring& measuring,
                                           ReferencedFolders& folders, ProjectFindings& found) {
  Line line{{}, referencedPathOfAnyKind(text), false};
  if (line.reference && kinds().kindOfPath(*line.reference) == FileKind::none) {
    noteOther(text, *std::exchange(line.reference, std::nullopt), folders, found);
  }
  if (!line.reference) return line;
  line.identifier = referenceIdentifier(text);
  const auto measure = [&](const std::string& candidate, FolderWalk::Type type) {
    measuring.add(candidate, knownOf(type));
    return line.isOnItsWay = true;
  };
  try {
    allAvailableFilesPaths_->forEachCandidate(*line.reference, measure);
  } catch (const std::logic_error&) {
    // It fails in its turn again.
  }
  return line;
}

/// Counts the path of a line that names no file of a known kind.
void ParseProject::noteOther(std::string_view line, const std::string& path, ReferencedFolders& folders,
                             ProjectFindings& found) {
  found.other.add(lowerCased(pathExtension(path)));
  if (isFolderReference(line)) folders.add(path);
}

std::shared_ptr<FileObject> ParseProject::fileOf(const Line& line, OrderedMeasuring& measuring,
                                                 ProjectFindings& found) {
  if (!line.reference) return nullptr;
  std::shared_ptr<FileObject> file;
  std::string missing;
  if (line.isOnItsWay) {
    auto [path, measured] = measuring.take();
    file = noted(std::move(measured), path);
    if (!file) missing = std::move(path);
  }
  try {
    if (!file) file = fileAt(*line.reference, initialPath(), missing);
  } catch (const std::logic_error&) {
    log("error parsing the file at path: " + initialPath());
    return nullptr;
  }
  if (!file) {
    found.missing.push_back({*line.reference, line.identifier});
    return nullptr;
  }
  if (lastPathComponent(*line.reference) != file->fileName())
    found.otherCase.push_back({*line.reference, file->filePath().value_or(""), line.identifier});
  if (wantsLog()) log("parsing file " + file->fileName().value_or(""));
  return file;
}

std::optional<std::string> ParseProject::parseLineFileReference(std::string_view line) const {
  return referencedPath(line, kinds());
}

std::vector<std::string> ParseProject::getAllFilesFromInitialPath(const std::string& path) const {
  const FolderWalk walk(parentFolder(path), fileSystem());
  std::vector<std::string> paths;
  paths.reserve(walk.size());
  for (FolderWalk::Index i = 0; i < walk.size(); ++i)
    paths.push_back(walk.path(i));
  return paths;
}

std::shared_ptr<FileObject> ParseProject::getFileInfoAtInitialPath(const std::string& reference,
                                                                   const std::string& path) {
  return fileAt(reference, path, {});
}

/// What the reference stands for; nothing is at the path `missing`, if it is not empty.
std::shared_ptr<FileObject> ParseProject::fileAt(const std::string& reference, const std::string& path,
                                                 const std::string& missing) {
  std::shared_ptr<FileObject> file;
  if (allAvailableFilesPaths_) {
    allAvailableFilesPaths_->forEachCandidate(reference,
                                              [&](const std::string& candidate, FolderWalk::Type type) {
                                                if (candidate == missing) return false;
                                                file = measured(candidate, knownOf(type));
                                                return file != nullptr;
                                              });
  }
  if (file || !reference.starts_with(kClimb)) return file;
  return linkedFile(reference, path);
}

std::shared_ptr<FileObject> ParseProject::linkedFile(std::string_view reference, const std::string& path) {
  const std::string folder = parentFolder(path);
  if (!linkedReferences_ || linkedReferences_->folder() != folder) {
    const auto real = fileSystem().realPath(folder);
    linkedReferences_ =
        std::make_unique<LinkedReferences>(folder, real ? std::optional(*real) : std::nullopt,
                                           [this](const std::string& linked) { return exists(linked); });
  }
  const auto linked = linkedReferences_->follow(reference);
  if (!linked) return nullptr;
  if (linked->foldsPastRoot) log("something bad happened while trying to convert the linked path");
  return linked->isMissing ? nullptr : measured(linked->path, Beforehand::nothing);
}

bool ParseProject::exists(const std::string& path) {
  const auto status = fileSystem().status(path);
  noteOrFail(path, status.error());
  return static_cast<bool>(status);
}

std::shared_ptr<FileObject> ParseProject::measured(const std::string& path, Beforehand beforehand) {
  return noted(measuredFile(fileSystem(), kinds(), path, beforehand), path);
}

std::shared_ptr<FileObject> ParseProject::noted(MeasuredFile measured, const std::string& path) {
  noteOrFail(path, measured.error);
  return std::move(measured.file);
}

std::shared_ptr<FileObject> ParseProject::getFileStats(const std::string& path) const {
  return fileStats(fileSystem(), kinds(), path);
}

FileList ParseProject::allFilesInFolder() const {
  return filesInFolderExcept({});
}

FileList ParseProject::filesInFolderExcept(const FileList& files) const {
  ReadFaults ignored;
  return filesInFolder(files, ignored);
}

FileList ParseProject::unreferencedFiles(ReadFaults& faults) const {
  return filesInFolder(files(), faults);
}

FileList ParseProject::filesInFolder(const FileList& except, ReadFaults& faults) const {
  if (initialPath().empty()) return {};
  const std::string folder = removingOccurrences(initialPath(), lastPathComponent(initialPath()));
  return quillmeter::filesInFolder(fileSystem(), kinds(), folder, except, faults);
}

}  // namespace quillmeter
