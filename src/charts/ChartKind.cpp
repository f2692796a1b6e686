#include "charts/ChartKind.h"

namespace quillmeter {

std::string_view chartTitle(std::int32_t graphType) {
  switch (graphType) {
    case kCodeLinesPie:
      return "Chart type: code lines distribution";
    case kFileKindsPie:
      return "Chart type: source/images/XIB distribution";
    case kSourceFilesBars:
      return "Chart type: top 15 source files by lines of code";
    case kXIBFilesBars:
      return "Chart type: top 15 XIB files by size";
    case kImageFilesBars:
      return "Chart type: top 15 image files by size (excluding .icns)";
    default:
      return {};
  }
}

const std::optional<Number>& barMeasure(std::int32_t graphType, const FileObject& file) {
  return graphType == kSourceFilesBars ? file.noLinesTotal() : file.fileSize();
}

}  // namespace quillmeter
