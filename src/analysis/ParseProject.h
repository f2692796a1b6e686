#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/MeasuredProject.h"

namespace quillmeter {

class FileSystem;
class LinkedReferences;
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
/// bundle. What cannot be read or found is left out in silence.
///
/// One object serves one thread at a time; after `parseFileAtPathAndDelegate` has returned it is only read,
/// and may then be shared by threads. It touches nothing but its own fields and the file system.
class ParseProject final : public MeasuredProject {
 public:
  using LogSink = std::function<void(std::string_view)>;

  ParseProject();
  /// Reads through `fileSystem` instead of the real one; it must outlive this object.
  explicit ParseProject(const FileSystem& fileSystem);
  ~ParseProject() override;

  /// Reads the whole project whose bundle lies at `path` (no trailing "/"), on the caller's thread. A second
  /// call starts again from an empty list. `delegate` is not owned and may be null.
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
  /// each record has name, path and size only. For the clean-up tool.
  [[nodiscard]] FileList allFilesInFolder() const;

  /// Those of `allFilesInFolder` whose path is not the path of any of `files`, compared byte by byte. Much
  /// quicker than leaving them out afterwards.
  [[nodiscard]] FileList filesInFolderExcept(const FileList& files) const;

  [[nodiscard]] FileList unreferencedFiles() const override { return filesInFolderExcept(files()); }

  [[nodiscard]] ParseProjectDelegate* delegate() const { return delegate_; }
  void setDelegate(ParseProjectDelegate* delegate) { delegate_ = delegate; }

  /// Where plain diagnostic lines go, one call a line, on the reader's thread. Without a sink no line is
  /// made.
  void setLogSink(LogSink sink) { log_ = std::move(sink); }

 private:
  [[nodiscard]] std::shared_ptr<FileObject> linkedFile(std::string_view reference, const std::string& path);
  [[nodiscard]] FileList filesOf(std::string_view section);
  [[nodiscard]] std::shared_ptr<FileObject> fileOf(std::string_view line);

  const FileSystem* fileSystem_;
  ParseProjectDelegate* delegate_ = nullptr;
  std::unique_ptr<PathIndex> allAvailableFilesPaths_;
  std::unique_ptr<LinkedReferences> linkedReferences_;
  LogSink log_;
};

}  // namespace quillmeter
