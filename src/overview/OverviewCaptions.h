#pragma once

#include <array>
#include <string_view>

#include "overview/OverviewFigures.h"

namespace quillmeter {

/// How one overview figure is named and what it means. The panel's captions and tool tips, the command-line
/// tool's table and docs/metrics.md all say the same because they take it from here (tests compare the ones
/// that are written by hand).
struct OverviewCaption {
  std::string_view key;         ///< for machines: lower camel case, never changes
  std::string_view caption;     ///< for people, beside the figure
  std::string_view definition;  ///< one or two sentences: what is counted and what is not
};

/// The large figure. It is the same number as the second metric.
inline constexpr OverviewCaption kTotalLinesCaption{
    "lines", "lines of code",
    "All lines of the code files (.c, .cpp, .h, .hh, .m, .mm, .pch), empty lines and comments included."};

/// Entry i belongs to `lblSizeMetrics` i + 1.
inline constexpr std::array<OverviewCaption, kOverviewMetrics> kOverviewCaptions{{
    {"size", "Size on disk",
     "The sizes of all files of the project added up: code, images and interface files. 1 KB is 1,024 bytes, "
     "1 MB is 1,024 KB. A file that is referenced twice counts twice."},
    {"lines", "Lines in total",
     "All lines of the code files (.c, .cpp, .h, .hh, .m, .mm, .pch), empty lines and comments included."},
    {"kloc", "Thousand lines (KLOC)",
     "Lines in total divided by 1,000, with two decimals. Empty lines and comments are included."},
    {"nonEmptyLines", "Non-empty lines",
     "Lines of the code files that hold more than white space. Comment lines are included."},
    {"commentLines", "Comment lines",
     "Lines of the code files that begin with // or /*, and all non-empty lines from a /* at the beginning "
     "of "
     "a line to the next line that begins with */. Code with a comment behind it is not a comment line."},
    {"averageNonEmptyLines", "Non-empty lines per code file",
     "Non-empty lines divided by the number of code files, rounded down; 0 when there is no code file."},
    {"codeFiles", "Code files",
     "Files of the project that end in .c, .cpp, .h, .hh, .m, .mm or .pch, headers included. A file that is "
     "referenced twice counts twice."},
    {"imageFiles", "Image files", "Files of the project that end in .jpg, .png, .tiff or .icns."},
    {"xibFiles", "Interface files (XIB)", "Files of the project that end in .xib."},
    {"averageCommentLines", "Comment lines per code file",
     "Comment lines divided by the number of code files, rounded down; 0 when there is no code file."},
}};

}  // namespace quillmeter
