#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "measuring/FileKinds.h"
#include "measuring/FileObject.h"

/// Which of a project's files an export covers, and what each counts as.
namespace quillmeter {

/// The groups that a list of their keys names, such as "c,headers"; nothing when it is empty or names
/// anything else.
[[nodiscard]] std::optional<FileGroups> fileGroupsNamed(std::string_view list, const FileKindTable& kinds);

/// The first entry of such a list that is no group's key; nothing when all are.
[[nodiscard]] std::optional<std::string> wrongFileGroupKey(std::string_view list, const FileKindTable& kinds);

/// All keys, separated by commas: the list that names every group.
[[nodiscard]] std::string fileGroupKeys(const FileKindTable& kinds);

/// All keys for a sentence: "c, headers, objc, images and xib".
[[nodiscard]] std::string fileGroupKeysInWords(const FileKindTable& kinds);

struct ExportedFile {
  std::shared_ptr<const FileObject> file;
  const FileGroupEntry* group;  ///< points into the table of kinds, never null
};

/// The group that `file` is exported in; null when it is left out. Points into `kinds`.
[[nodiscard]] const FileGroupEntry* exportGroup(const FileObject& file, const FileGroups& groups,
                                                const FileKindTable& kinds);

/// The files of `files` that belong to `groups`, in ascending order of their names without regard to letter
/// case; files of equal names keep their order. A null entry is left out. `kinds` must outlive the result.
[[nodiscard]] std::vector<ExportedFile> filesToExport(const FileList& files, const FileGroups& groups,
                                                      const FileKindTable& kinds);

}  // namespace quillmeter
