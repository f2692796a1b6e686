#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "analysis/ProjectFindings.h"
#include "files/ReadFaults.h"
#include "measuring/FileKinds.h"
#include "measuring/FileObject.h"

namespace quillmeter {

/// A project that was read: its measured files and what the windows, exports and the tool ask of them. A
/// reader fills it; nobody else needs to know by which rules.
///
/// After its read it is only read, and may then be shared by threads.
class MeasuredProject {
 public:
  explicit MeasuredProject(FileKindTable kinds = classicKinds()) : kinds_(std::move(kinds)) {}
  virtual ~MeasuredProject() = default;
  MeasuredProject(const MeasuredProject&) = delete;
  MeasuredProject& operator=(const MeasuredProject&) = delete;

  /// The rules that its files were found by.
  [[nodiscard]] virtual ProjectRules rules() const = 0;

  /// What the last read found beside the files.
  [[nodiscard]] const ProjectFindings& findings() const { return findings_; }

  /// The files of a known kind in the project's folder, in walk order, that are none of the project's files.
  /// Each record has name, path and size only. For the clean-up tool. Adds to `faults` what could not be
  /// listed or looked at on the way: what is in there is not among the files.
  [[nodiscard]] virtual FileList unreferencedFiles(ReadFaults& faults) const = 0;
  [[nodiscard]] FileList unreferencedFiles() const {
    ReadFaults ignored;
    return unreferencedFiles(ignored);
  }

  /// Which files belong to this project, and what they are.
  [[nodiscard]] const FileKindTable& kinds() const { return kinds_; }
  /// The extensions of source code, of images and of interface files.
  [[nodiscard]] std::span<const std::string_view> acceptedCodeFileFormats() const {
    return kinds_.extensions(FileKind::code);
  }
  [[nodiscard]] std::span<const std::string_view> acceptedImagesFormats() const {
    return kinds_.extensions(FileKind::image);
  }
  [[nodiscard]] std::span<const std::string_view> acceptedOtherFormats() const {
    return kinds_.extensions(FileKind::interface);
  }

  [[nodiscard]] bool isSourceFileType(const FileObject& file) const;
  [[nodiscard]] bool isXIBFileType(const FileObject& file) const;
  [[nodiscard]] bool isImageFileType(const FileObject& file) const;
  [[nodiscard]] bool isImageFileTypeWithoutICNS(const FileObject& file) const;
  [[nodiscard]] bool isSourceFileForRegex(const FileObject& file) const;
  [[nodiscard]] static bool fileIsOfTypeAndFile(std::span<const std::string_view> extensions,
                                                const FileObject& file);

  /// Records of a kind, counted as often as they occur; 0 before the first read.
  [[nodiscard]] std::size_t getNumberCodeFiles() const;
  [[nodiscard]] std::size_t getNumberImageFiles() const;
  [[nodiscard]] std::size_t getNumberXIBFiles() const;
  /// Always 0: reading a project counts no methods.
  [[nodiscard]] std::size_t getNumberInstanceMethods() const { return 0; }
  [[nodiscard]] std::size_t getNumberStaticMethods() const { return 0; }

  /// The project's files in the order of the read; a file may be there twice. Absent before the first
  /// read. `files` gives an empty list then.
  [[nodiscard]] const std::optional<FileList>& arrayFiles() const { return arrayFiles_; }
  [[nodiscard]] const FileList& files() const;
  /// The bundle's path as it was passed in.
  [[nodiscard]] const std::string& initialPath() const { return initialPath_; }
  /// The bundle's name without ".xcodeproj".
  [[nodiscard]] const std::string& projectTitle() const { return projectTitle_; }

  /// What the last read could not list or read.
  [[nodiscard]] const ReadFaults& faults() const { return faults_; }

  void setArrayFiles(std::optional<FileList> files) { arrayFiles_ = std::move(files); }
  void setInitialPath(std::string path) { initialPath_ = std::move(path); }
  void setProjectTitle(std::string title) { projectTitle_ = std::move(title); }
  void setFindings(ProjectFindings findings) { findings_ = std::move(findings); }
  void setFaults(ReadFaults faults) { faults_ = std::move(faults); }

 private:
  [[nodiscard]] std::size_t countOfKind(FileKind kind) const;

  FileKindTable kinds_;
  ProjectFindings findings_;
  std::optional<FileList> arrayFiles_;
  std::string initialPath_;
  std::string projectTitle_;
  ReadFaults faults_;
};

}  // namespace quillmeter
