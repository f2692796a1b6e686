#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "measuring/FileObject.h"

/// Which of a project's files an export covers, and what each counts as.
namespace quillmeter {

/// The kinds of files that the user asked for; one for each check box of the export tab, in its order.
struct ExportKinds {
  bool c = false;        ///< "c", "cpp"
  bool headers = false;  ///< "h", "hh", "pch"
  bool objc = false;     ///< "m", "mm"
  bool images = false;
  bool xib = false;

  [[nodiscard]] bool none() const { return !(c || headers || objc || images || xib); }
  [[nodiscard]] static ExportKinds all() { return {true, true, true, true, true}; }
};

/// The kinds that a list such as "c,headers,objc,images,xib" names; nothing when it is empty or names
/// anything else.
[[nodiscard]] std::optional<ExportKinds> exportKindsNamed(std::string_view list);

enum class ExportKind { image, xib, source, header };

struct ExportedFile {
  std::shared_ptr<const FileObject> file;
  ExportKind kind;
};

/// What `file` is exported as; nothing when it is left out.
[[nodiscard]] std::optional<ExportKind> exportKind(const FileObject& file, const ExportKinds& kinds);

/// The files of `files` that are exported, in ascending order of their names without regard to letter case;
/// files of equal names keep their order. A null entry is left out.
[[nodiscard]] std::vector<ExportedFile> filesToExport(const FileList& files, const ExportKinds& kinds);

}  // namespace quillmeter
