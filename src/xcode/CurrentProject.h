#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "analysis/ParseProject.h"
#include "files/FileSystem.h"
#include "xcode/CurrentKinds.h"
#include "xcode/ProjectFiles.h"
#include "xcode/ProjectTargets.h"

namespace quillmeter {

/// A project bundle (a folder named *.xcodeproj) read by the current rules: by its object graph, as today's
/// Xcode reads it.
///
/// The read runs on the caller's thread and touches nothing but this object and the file system; afterwards
/// the object is only read, and may then be shared by threads.
class CurrentProject final : public MeasuredProject {
 public:
  CurrentProject() : CurrentProject(FileSystem::real()) {}
  /// Reads through `fileSystem` instead of the real one; it must outlive this object.
  explicit CurrentProject(const FileSystem& fileSystem)
      : MeasuredProject(currentKinds()), fileSystem_(&fileSystem) {}

  /// Reads the whole project whose bundle lies at `path`. A second call starts again. `delegate` is not owned
  /// and may be null; it gets a fraction for each file measured, the last one being 1.
  void parseFileAtPathAndDelegate(const std::string& path, ParseProjectDelegate* delegate);

  /// Why nothing could be measured, as "project.pbxproj:LINE: expected …"; empty when the description is
  /// fine.
  [[nodiscard]] const std::string& error() const { return error_; }
  /// The folder that the project's paths begin at, normalised; empty before a read and after a fault.
  [[nodiscard]] const std::string& projectFolder() const { return projectFolder_; }

  /// The targets, with indices into `files`.
  [[nodiscard]] const std::vector<ProjectTarget>& targets() const { return targets_; }
  /// How many files of no known kind the project has, by extension, in the order of their first appearance.
  [[nodiscard]] const std::vector<std::pair<std::string, std::size_t>>& other() const { return other_; }
  /// The references that nothing was found for, in order.
  [[nodiscard]] const std::vector<ProjectFiles::MissingReference>& missing() const { return missing_; }
  /// How many more lead to what is at home on the machine that builds.
  [[nodiscard]] std::size_t foreign() const { return foreign_; }
  /// The references whose names exist only in other case, in order.
  [[nodiscard]] const std::vector<ProjectFiles::OtherCase>& otherCase() const { return otherCase_; }

  /// The files of a known kind below the project's folder that are no record and stand in no closed folder,
  /// no hidden one and no package (the project's folder itself is none of these), in ascending order of
  /// their names in each folder. Each record has name, path and size only.
  [[nodiscard]] FileList unreferencedFiles() const override;

 private:
  void read(const std::string& bundle, ParseProjectDelegate* delegate);
  [[nodiscard]] FileList measured(const std::vector<std::string>& files,
                                  ParseProjectDelegate* delegate) const;

  const FileSystem* fileSystem_;
  std::string error_;
  std::string projectFolder_;
  std::vector<ProjectTarget> targets_;
  std::vector<std::pair<std::string, std::size_t>> other_;
  std::vector<ProjectFiles::MissingReference> missing_;
  std::size_t foreign_ = 0;
  std::vector<ProjectFiles::OtherCase> otherCase_;
};

}  // namespace quillmeter
