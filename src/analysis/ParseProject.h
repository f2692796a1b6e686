#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "analysis/MeasuredProject.h"
#include "files/WorkerPool.h"
#include "measuring/FileStats.h"

namespace quillmeter {

class OrderedMeasuring;
class PathIndex;

/// Receives the progress of a read. The calls come on the reader's own thread, in this order: started once,
/// then a number for each line of the project's file section (the last one is 1; a section of a single line
/// gives a not-a-number), ended once. An implementation must not block: one that shows progress in windows
/// posts the call to its own thread and returns.
class ParseProjectDelegate {
 public:
  virtual ~ParseProjectDelegate() = default;
  virtual void progressParsingProjectStarted() = 0;
  virtual void progressParsingProject(double fraction) = 0;
  virtual void progressParsingProjectEnded() = 0;
};

/// Reads a project bundle (a folder named *.xcodeproj) by the classic rules.
///
/// The project description is not parsed as a property list: its file-reference section is cut out as text,
/// one path is read per line, and each path is looked for among all entries below the folder that holds the
/// bundle. What cannot be found is left out in silence; what is there and could not be listed or read is
/// counted in `faults`.
///
/// One object serves one thread at a time, the reader's, which brings others to help with listing and
/// measuring and joins them before it returns; nobody outside notices them. After
/// `parseFileAtPathAndDelegate` has returned the project is only read, and may then be shared by threads. It
/// touches nothing but its own fields and the file system.
class ParseProject final : public MeasuredProject {
 public:
  using LogSink = std::function<void(std::string_view)>;

  ParseProject();
  /// Reads through `fileSystem` instead of the real one; it must outlive this object.
  explicit ParseProject(const FileSystem& fileSystem);
  ~ParseProject() override;

  /// Reads the whole project whose bundle lies at `path` (no trailing "/"), on the caller's thread. A second
  /// call starts again from an empty list. `delegate` is not owned and may be null. Throws
  /// `TooFewDescriptors`, or what else it failed of (memory, say), and has no files then.
  void parseFileAtPathAndDelegate(const std::string& path, ParseProjectDelegate* delegate);

  /// The path that a line of the file section references, when it is of a known kind; absent for any other
  /// line.
  [[nodiscard]] std::optional<std::string> parseLineFileReference(std::string_view line) const;

  /// Every path below the folder that holds the bundle at `path`: folders, hidden entries and the contents of
  /// bundles included, each folder's entries in ascending byte order and followed by their own contents.
  [[nodiscard]] std::vector<std::string> getAllFilesFromInitialPath(const std::string& path) const;

  /// The measured file that `reference` stands for in the project whose bundle lies at `path`; null when
  /// there is none. Searches the paths that the last read of this object walked.
  [[nodiscard]] std::shared_ptr<FileObject> getFileInfoAtInitialPath(const std::string& reference,
                                                                     const std::string& path);

  /// The record of the item at an absolute path; null when nothing exists there. Images carry only their
  /// size; a code or interface file that cannot be read, or is not UTF-8, has all six counters 0.
  [[nodiscard]] std::shared_ptr<FileObject> getFileStats(const std::string& path) const;

  /// Every file of a known kind below the folder that holds the bundle, in walk order, hidden files left out;
  /// each record has name, path and size only. Empty for a project that was never read. For the clean-up
  /// tool.
  [[nodiscard]] FileList allFilesInFolder() const;

  /// Those of `allFilesInFolder` whose path is not the path of any of `files`, compared byte by byte. Much
  /// quicker than leaving them out afterwards.
  [[nodiscard]] FileList filesInFolderExcept(const FileList& files) const;

  using MeasuredProject::unreferencedFiles;
  [[nodiscard]] FileList unreferencedFiles(ReadFaults& faults) const override;

  [[nodiscard]] ParseProjectDelegate* delegate() const { return delegate_; }
  void setDelegate(ParseProjectDelegate* delegate) { delegate_ = delegate; }

  /// Where plain diagnostic lines go, one call a line, on the reader's thread. Without a sink no line is
  /// made.
  void setLogSink(LogSink sink) { log_ = std::move(sink); }

  /// Gives reads up once a stop is requested: from then on none of their threads asks the disk for anything,
  /// and they end without files. The project itself, and its clean-up, are not concerned.
  void setStopToken(std::stop_token stop) { stop_ = std::move(stop); }

  /// How many threads a read takes, in place of the usual number. The result does not depend on it.
  void setThreads(WorkerPool::Size threads) { threads_ = threads; }

 private:
  /// A line of the file section whose file may be on its way already.
  struct Line;

  [[nodiscard]] FileList filesOf(std::string_view section);
  [[nodiscard]] FileList filesOf(std::string_view section, OrderedMeasuring& measuring);
  [[nodiscard]] Line lineAhead(std::string_view line, OrderedMeasuring& measuring);
  [[nodiscard]] std::shared_ptr<FileObject> fileOf(const Line& line, OrderedMeasuring& measuring);
  [[nodiscard]] std::shared_ptr<FileObject> fileAt(const std::string& reference, const std::string& path,
                                                   const std::string& missing);
  [[nodiscard]] std::shared_ptr<FileObject> linkedFile(std::string reference, const std::string& path);
  [[nodiscard]] bool exists(const std::string& path);
  [[nodiscard]] std::shared_ptr<FileObject> measured(const std::string& path, Beforehand beforehand);
  [[nodiscard]] std::shared_ptr<FileObject> noted(MeasuredFile measured, const std::string& path);
  [[nodiscard]] FileList filesInFolder(const FileList& except, ReadFaults& faults) const;
  void noteOrFail(const std::string& path, DiskError error);

  const FileSystem* given_;
  const FileSystem* fileSystem_;  ///< the given one; during a read, one that can be stopped in front of it
  std::stop_token stop_;
  WorkerPool::Size threads_ = WorkerPool::usualSize();
  ReadFaults faultsSoFar_;
  ParseProjectDelegate* delegate_ = nullptr;
  std::unique_ptr<PathIndex> allAvailableFilesPaths_;
  LogSink log_;
};

}  // namespace quillmeter
