#pragma once

#include <string>
#include <vector>

#include "analysis/ProjectReader.h"

namespace quillmeter {

/// Reads a project bundle (a folder named *.xcodeproj) by the current rules: by its object graph, as today's
/// Xcode reads it. The delegate gets a fraction for each file measured.
class CurrentProject final : public ProjectReader {
 public:
  CurrentProject() : CurrentProject(FileSystem::real()) {}
  /// Reads through `fileSystem` instead of the real one; it must outlive this object.
  explicit CurrentProject(const FileSystem& fileSystem);

  [[nodiscard]] ProjectRules rules() const override { return ProjectRules::current; }

  /// The folder that the project's paths begin at, normalised; empty before a read and after a fault.
  [[nodiscard]] const std::string& projectFolder() const { return projectFolder_; }

  /// The files of a known kind below the project's folder that are no record and stand in no closed folder,
  /// no hidden one and no package (the project's folder itself is none of these), in ascending order of
  /// their names in each folder. Each record has name, path and size only.
  [[nodiscard]] FileList unreferencedFiles(ReadFaults& faults) const override;
  using MeasuredProject::unreferencedFiles;

 private:
  [[nodiscard]] FileList filesOfProject(const std::string& bundle, ProjectFindings& found) override;
  [[nodiscard]] FileList measured(const std::vector<std::string>& files);

  std::string projectFolder_;
};

}  // namespace quillmeter
