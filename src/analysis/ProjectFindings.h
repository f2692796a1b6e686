#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/ExtensionCounts.h"
#include "analysis/ProjectRules.h"

namespace quillmeter {

/// A target and the files it is built from.
struct ProjectTarget {
  std::string name;
  std::vector<std::uint32_t> files;  ///< ascending indices into the project's files
};

/// A reference that nothing was found for.
struct MissingReference {
  std::string location;  ///< as asked for
  std::string identifier;
};

/// A reference whose name exists only in other case.
struct OtherCase {
  std::string location;  ///< as asked for
  std::string path;      ///< as found on disk
  std::string identifier;
};

/// What a read found beside the files that it measured.
struct ProjectFindings {
  /// The folder that the project's paths begin at; empty after a fault.
  std::string folder;
  /// Why nothing could be measured, as "project.pbxproj:LINE: expected …"; empty when the description is
  /// fine, and always under the classic rules, which know no faults.
  std::string error;
  /// Under the current rules the targets that have build phases, in the project's order.
  std::vector<ProjectTarget> targets;
  /// The project's files of no known kind. Under the classic rules that many references.
  ExtensionCounts other;
  std::vector<MissingReference> missing;  ///< in order
  std::vector<OtherCase> otherCase;       ///< in order
  /// Under the current rules how many references lead to what is at home on the machine that builds.
  std::size_t foreign = 0;
  /// Under the classic rules the files in folders that the description refers to as wholes, which these rules
  /// do not look into.
  ExtensionCounts inFolders;
  /// Under the classic rules whether there are such folders besides those that `inFolders` counts.
  bool hasOtherFolders = false;
};

}  // namespace quillmeter
