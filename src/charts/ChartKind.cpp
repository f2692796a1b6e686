#include "charts/ChartKind.h"

namespace quillmeter {

std::string_view chartTitle(ChartKind kind) {
  switch (kind) {
    case ChartKind::codeLinesPie:
      return "Chart type: code lines distribution";
    case ChartKind::fileKindsPie:
      return "Chart type: source/images/XIB distribution";
    case ChartKind::sourceFilesBars:
      return "Chart type: top 15 source files by lines of code";
    case ChartKind::xibFilesBars:
      return "Chart type: top 15 XIB files by size";
    case ChartKind::imageFilesBars:
      return "Chart type: top 15 image files by size (excluding .icns)";
  }
  return {};
}

std::string_view chartHint(ChartKind kind, bool chartIsEmpty) {
  if (!chartIsEmpty) return isBarChart(kind) ? "Press a magnifying glass for details about a file." : "";
  switch (kind) {
    case ChartKind::codeLinesPie:
      return "This project has no source lines.";
    case ChartKind::fileKindsPie:
      return "This project has no files.";
    case ChartKind::sourceFilesBars:
      return "This project has no source files.";
    case ChartKind::xibFilesBars:
      return "This project has no XIB files.";
    case ChartKind::imageFilesBars:
      return "This project has no image files (.icns are left out).";
  }
  return {};
}

FileMeasure barMeasure(ChartKind kind) {
  return measuresLines(kind) ? &FileObject::noLinesTotal : &FileObject::fileSize;
}

const std::optional<Number>& barMeasure(ChartKind kind, const FileObject& file) {
  return (file.*barMeasure(kind))();
}

}  // namespace quillmeter
