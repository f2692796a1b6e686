#include "export/ReportGroups.h"

#include "measuring/FileKinds.h"

namespace quillmeter {
namespace {

constexpr std::array<std::string_view, 2> kC = {"c", "cpp"};
constexpr std::array<std::string_view, 3> kHeaders = {"h", "hh", "pch"};
constexpr std::array<std::string_view, 2> kObjectiveC = {"m", "mm"};
constexpr std::array<std::string_view, 4> kImages = {"jpg", "png", "tiff", "icns"};
constexpr std::array<std::string_view, 4> kImagesByLookup = {"png", "jpg", "tiff", "icns"};
constexpr std::array<std::string_view, 1> kXib = {"xib"};
// "mm" is missing on purpose: reports have always shown a dash for it.
constexpr std::array<std::string_view, 6> kCounted = {"h", "hh", "c", "cpp", "m", "pch"};

}  // namespace

const std::array<ReportExtensions, 5>& reportOrder() {
  static const std::array<ReportExtensions, 5> order = {kC, kHeaders, kObjectiveC, kImages, kXib};
  return order;
}

std::optional<ReportExtensions> reportGroup(std::string_view extension) {
  static const std::array<ReportExtensions, 5> groups = {kC, kHeaders, kObjectiveC, kXib, kImagesByLookup};
  for (const ReportExtensions& group : groups) {
    if (isOneOf(extension, group)) return group;
  }
  return std::nullopt;
}

std::string_view reportGroupLabel(std::string_view extension) {
  if (isOneOf(extension, kObjectiveC)) return "m/mm files";
  if (isOneOf(extension, kC)) return "c/cpp files";
  if (isOneOf(extension, kImages)) return "image files";
  if (isOneOf(extension, kHeaders)) return "h/hh files";
  if (isOneOf(extension, kXib)) return "xib files";
  return {};
}

bool showsLineCounts(std::string_view extension) {
  return isOneOf(extension, kCounted);
}

}  // namespace quillmeter
