#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "xcode/CaseLookup.h"
#include "xcode/GroupWalk.h"
#include "xcode/PackageContents.h"
#include "xcode/ProjectFiles.h"

namespace quillmeter {

/// Looks up what stands at each location that a project refers to, and notes the files found there.
class FileCollector final : public ReferenceSink {
 public:
  FileCollector(const ObjectGraph& graph, const std::string& projectFolder, DiskView& disk);

  void referenced(const ObjectGraph::Object& reference, const ReferencedLocation& location) override;
  void synchronised(const ObjectGraph::Object& group, const ReferencedLocation& location) override;
  /// A reference to a package, found at a location.
  void packageReferenced(const ObjectGraph::Object& reference, const std::string& location);

  [[nodiscard]] ProjectFiles take() { return std::move(result_); }

 private:
  using Origin = ProjectFiles::Origin;
  using Found = CaseLookup::Found;

  /// What came from the thing found; absent when it is as if nothing were there.
  [[nodiscard]] std::optional<Origin> filesAt(const Found& found);
  [[nodiscard]] std::optional<Origin> contentsOf(const Found& found);
  [[nodiscard]] std::optional<Origin> packageFiles(const Found& found);

  [[nodiscard]] Origin filesIn(const std::string& folder);
  [[nodiscard]] Origin filesOf(const std::string& folder, const PackageContents& package);
  /// Runs `add`, which adds files, and gives those it added.
  template <class Add>
  [[nodiscard]] Origin originOf(Add add);
  void add(const std::string& path);

  [[nodiscard]] bool mayBeEntered(const std::string& folder) const;
  void noteMissing(const ObjectGraph::Object& reference, const ReferencedLocation& location);
  void noteCase(const ObjectGraph::Object& reference, const std::string& location, const Found& found);

  std::string projectParent_;
  DiskView& disk_;
  CaseLookup lookup_;
  ProjectFiles result_;
  std::unordered_map<std::string, std::uint32_t> indices_;           ///< of files, by path
  std::unordered_map<std::string, Origin> contents_;                 ///< of folders
  std::unordered_map<std::string, std::optional<Origin>> packages_;  ///< by folder
};

}  // namespace quillmeter
