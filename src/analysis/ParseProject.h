#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/ProjectReader.h"
#include "measuring/FileStats.h"

namespace quillmeter {

class OrderedMeasuring;
class LinkedReferences;
class PathIndex;
class ReferencedFolders;

/// Reads a project bundle (a folder named *.xcodeproj) by the classic rules.
///
/// The project description is not parsed as a property list: its file-reference section is cut out as text,
/// one path is read per line, and each path is looked for among all entries below the folder that holds the
/// bundle. What cannot be found is left out in silence; what is there and could not be listed or read is
/// counted in `faults`.
///
/// The delegate gets a number for each line of the section.
class ParseProject final : public ProjectReader {
 public:
  ParseProject();
  /// Reads through `fileSystem` instead of the real one; it must outlive this object. `kinds` says which
  /// files belong to a project and what they are.
  explicit ParseProject(const FileSystem& fileSystem, FileKindTable kinds = classicKinds());
  ~ParseProject() override;

  [[nodiscard]] ProjectRules rules() const override { return ProjectRules::classic; }

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

 private:
  /// A line of the file section whose file may be on its way already.
  struct Line;

  [[nodiscard]] FileList filesOfProject(const std::string& bundle, ProjectFindings& found) override;
  [[nodiscard]] FileList filesOf(std::string_view section, ProjectFindings& found);
  [[nodiscard]] FileList filesOf(std::string_view section, OrderedMeasuring& measuring,
                                 ProjectFindings& found);
  [[nodiscard]] Line lineAhead(std::string_view line, OrderedMeasuring& measuring, ReferencedFolders& folders,
                               ProjectFindings& found);
  static void noteOther(std::string_view line, const std::string& path, ReferencedFolders& folders,
                        ProjectFindings& found);
  [[nodiscard]] std::shared_ptr<FileObject> fileOf(const Line& line, OrderedMeasuring& measuring,
                                                   ProjectFindings& found);
  [[nodiscard]] std::shared_ptr<FileObject> fileAt(const std::string& reference, const std::string& path,
                                                   const std::string& missing);
  [[nodiscard]] std::shared_ptr<FileObject> linkedFile(std::string_view reference, const std::string& path);
  [[nodiscard]] bool exists(const std::string& path);
  [[nodiscard]] std::shared_ptr<FileObject> measured(const std::string& path, Beforehand beforehand);
  [[nodiscard]] std::shared_ptr<FileObject> noted(MeasuredFile measured, const std::string& path);
  [[nodiscard]] FileList filesInFolder(const FileList& except, ReadFaults& faults) const;

  std::unique_ptr<PathIndex> allAvailableFilesPaths_;
  std::unique_ptr<LinkedReferences> linkedReferences_;
};

}  // namespace quillmeter
