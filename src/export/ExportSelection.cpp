#include "export/ExportSelection.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "measuring/FileKinds.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

std::optional<ExportKind> sourceKind(std::string_view extension, const ExportKinds& kinds) {
  if (kinds.c && (extension == "c" || extension == "cpp")) return ExportKind::source;
  if (kinds.headers && (extension == "h" || extension == "hh" || extension == "pch")) {
    return ExportKind::header;
  }
  if (kinds.objc && (extension == "m" || extension == "mm")) return ExportKind::source;
  return std::nullopt;
}

}  // namespace

std::optional<ExportKinds> exportKindsNamed(std::string_view list) {
  ExportKinds kinds;
  const std::array<std::pair<std::string_view, bool*>, 5> names = {{{"c", &kinds.c},
                                                                    {"headers", &kinds.headers},
                                                                    {"objc", &kinds.objc},
                                                                    {"images", &kinds.images},
                                                                    {"xib", &kinds.xib}}};
  for (bool more = true; more;) {
    const std::size_t comma = list.find(',');
    const std::string_view name = list.substr(0, comma);
    const auto known =
        std::find_if(names.begin(), names.end(), [name](const auto& entry) { return entry.first == name; });
    if (known == names.end()) return std::nullopt;
    *known->second = true;
    more = comma != std::string_view::npos;
    if (more) list.remove_prefix(comma + 1);
  }
  return kinds;
}

std::optional<ExportKind> exportKind(const FileObject& file, const ExportKinds& kinds) {
  const auto extension = file.getFileExtension();
  if (!extension) return std::nullopt;
  switch (fileKind(*extension)) {
    case FileKind::image:
      return kinds.images ? std::optional(ExportKind::image) : std::nullopt;
    case FileKind::interface:
      return kinds.xib ? std::optional(ExportKind::xib) : std::nullopt;
    case FileKind::code:
      return sourceKind(*extension, kinds);
    case FileKind::none:
      break;
  }
  return std::nullopt;
}

std::vector<ExportedFile> filesToExport(const FileList& files, const ExportKinds& kinds) {
  // Folding a name costs far more than comparing two folded ones, so each is folded once.
  struct Keyed {
    std::string key;
    ExportedFile exported;
  };
  std::vector<Keyed> kept;
  for (const auto& file : files) {
    if (!file) continue;
    const auto kind = exportKind(*file, kinds);
    if (kind) kept.push_back({caseFoldKey(file->fileName().value_or("")), {file, *kind}});
  }
  std::stable_sort(kept.begin(), kept.end(), [](const Keyed& a, const Keyed& b) { return a.key < b.key; });
  std::vector<ExportedFile> result;
  result.reserve(kept.size());
  for (Keyed& entry : kept)
    result.push_back(std::move(entry.exported));
  return result;
}

}  // namespace quillmeter
