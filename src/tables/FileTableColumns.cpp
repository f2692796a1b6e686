#include "measuring/FileObject.h"
#include "tables/FileTableColumn.h"

namespace quillmeter {
namespace {

using Format = NumberCells::Format;

template <const std::optional<std::string>& (FileObject::*field)() const>
std::string_view text(const FileObject& file) {
  const std::optional<std::string>& value = (file.*field)();
  return value ? std::string_view(*value) : std::string_view();
}

template <const std::optional<Number>& (FileObject::*field)() const>
Number number(const FileObject& file) {
  return (file.*field)().value_or(Number(0));
}

Number kloc(const FileObject& file) {
  return Number(file.kloc());
}

}  // namespace

const std::vector<FileTableColumn>& fileTableColumns() {
  using enum ColumnPlace;
  static const std::vector<FileTableColumn> columns = {
      {.identifier = "getFileExtension",
       .header = "Type",
       .explanation = "Kind of the file, by the ending of its name",
       .place = everywhere,
       .cells = PictureCells(),
       .width = 44,
       .maximumWidth = 60},
      // Asks for less than the minimum of all columns, which widens it.
      {.identifier = "finderview",
       .header = "View",
       .explanation = "Buttons that show the file in the file browser",
       .place = everywhere,
       .cells = ButtonCells(),
       .width = 40,
       .minimumWidth = 40,
       .maximumWidth = 60},
      {.identifier = "fileName",
       .header = "Filename",
       .explanation = "Name of the file",
       .place = everywhere,
       .cells = TextCells(text<&FileObject::fileName>),
       .width = 300,
       .widthBesideCounters = 150},
      {.identifier = "filePath",
       .header = "Path",
       .explanation = "Where the file is",
       .place = cleanUp,
       .cells = TextCells(text<&FileObject::filePath>),
       .width = 300},
      {.identifier = "noLinesTotal",
       .header = "LOC",
       .explanation = "Lines of code",
       .place = detailsOfCode,
       .cells = NumberCells{number<&FileObject::noLinesTotal>},
       .width = 80,
       .toolTip = "LOC: lines of code"},
      {.identifier = "kloc",
       .header = "KLOC",
       .explanation = "Lines of code divided by 1000",
       .place = detailsOfCodeOnRequest,
       .cells = NumberCells{kloc, Format::decimals},
       .width = 60,
       .toolTip = "KLOC: lines of code divided by 1000"},
      {.identifier = "noLinesWithoutSpaces",
       .header = "SLOC",
       .explanation = "Lines of code without empty lines",
       .place = detailsOfCode,
       .cells = NumberCells{number<&FileObject::noLinesWithoutSpaces>},
       .width = 80,
       .toolTip = "SLOC: lines of code without empty lines"},
      {.identifier = "noLinesComments",
       .header = "Lines with comments",
       .explanation = "Lines that are comments",
       .place = detailsOfCodeOnRequest,
       .cells = NumberCells{number<&FileObject::noLinesComments>},
       .width = 80},
      {.identifier = "noWords",
       .header = "Words",
       .explanation = "Number of words",
       .place = detailsOfCodeOnRequest,
       .cells = NumberCells{number<&FileObject::noWords>},
       .width = 80},
      {.identifier = "noCharactersTotal",
       .header = "Chars",
       .explanation = "Total number of characters including spaces",
       .place = detailsOfCodeOnRequest,
       .cells = NumberCells{number<&FileObject::noCharactersTotal>},
       .width = 80,
       .toolTip = "Total number of characters including spaces"},
      {.identifier = "fileSize",
       .header = "Size (KB)",
       .explanation = "Size of the file in kilobytes",
       .place = everywhere,
       .cells = NumberCells{number<&FileObject::fileSize>, Format::size},
       .width = 100,
       .widthBesideCounters = 80},
  };
  return columns;
}

}  // namespace quillmeter
