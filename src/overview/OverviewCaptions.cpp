#include "overview/OverviewCaptions.h"

#include "measuring/FileKinds.h"

namespace quillmeter {
namespace {

std::string linesDefinition(const FileKindTable& kinds) {
  return "All lines of the code files (" + extensionsText(kinds.extensions(FileKind::code)) +
         "), empty lines and comments included.";
}

/// "Files of the project that end in .jpg, .png, .tiff or .icns"
std::string filesOfKind(const FileKindTable& kinds, FileKind kind) {
  return "Files of the project that end in " + extensionsText(kinds.extensions(kind), " or ");
}

/// Names the formats, as the classic caption does.
std::string_view interfaceFilesCaption(const FileKindTable& kinds) {
  return kinds.extensions(FileGroup::storyboards).empty() ? "Interface files (XIB)"
                                                          : "Interface files (XIB, storyboard)";
}

}  // namespace

OverviewCaptions overviewCaptions(const FileKindTable& kinds) {
  return {{
      {"size", "Size on disk",
       "The sizes of all files of the project added up: code, images and interface files. 1 KB is 1,024 "
       "bytes, 1 MB is 1,024 KB. A file that is referenced twice counts twice."},
      {"lines", "Lines in total", linesDefinition(kinds)},
      {"kloc", "Thousand lines (KLOC)",
       "Lines in total divided by 1,000, with two decimals. Empty lines and comments are included."},
      {"nonEmptyLines", "Non-empty lines",
       "Lines of the code files that hold more than white space. Comment lines are included."},
      {"commentLines", "Comment lines",
       "Lines of the code files that begin with // or /*, and all non-empty lines from a /* at the beginning "
       "of a line to the next line that begins with */. Code with a comment behind it is not a comment "
       "line."},
      {"averageNonEmptyLines", "Non-empty lines per code file",
       "Non-empty lines divided by the number of code files, rounded down; 0 when there is no code file."},
      {"codeFiles", "Code files",
       filesOfKind(kinds, FileKind::code) +
           ", headers included. A file that is referenced twice counts twice."},
      {"imageFiles", "Image files", filesOfKind(kinds, FileKind::image) + "."},
      {"xibFiles", interfaceFilesCaption(kinds), filesOfKind(kinds, FileKind::interface) + "."},
      {"averageCommentLines", "Comment lines per code file",
       "Comment lines divided by the number of code files, rounded down; 0 when there is no code file."},
  }};
}

OverviewCaption totalLinesCaption(const FileKindTable& kinds) {
  return {"lines", "lines of code", linesDefinition(kinds)};
}

}  // namespace quillmeter
