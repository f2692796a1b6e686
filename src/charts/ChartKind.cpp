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

std::string_view chartHint(std::int32_t graphType, bool chartIsEmpty) {
  if (!chartIsEmpty) return isBarChart(graphType) ? "Press a magnifying glass for details about a file." : "";
  switch (graphType) {
    case kCodeLinesPie:
      return "This project has no source lines.";
    case kFileKindsPie:
      return "This project has no files.";
    case kSourceFilesBars:
      return "This project has no source files.";
    case kXIBFilesBars:
      return "This project has no XIB files.";
    case kImageFilesBars:
      return "This project has no image files (.icns are left out).";
    default:
      return {};
  }
}

const std::optional<Number>& barMeasure(std::int32_t graphType, const FileObject& file) {
  return graphType == kSourceFilesBars ? file.noLinesTotal() : file.fileSize();
}

}  // namespace quillmeter
