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
       .place = everywhere,
       .cells = PictureCells(),
       .width = 44,
       .maximumWidth = 60},
      // Asks for less than the minimum of all columns, which widens it.
      {.identifier = "finderview",
       .header = "View",
       .place = everywhere,
       .cells = ButtonCells(),
       .width = 40,
       .minimumWidth = 40,
       .maximumWidth = 60},
      {.identifier = "fileName",
       .header = "Filename",
       .place = everywhere,
       .cells = TextCells(text<&FileObject::fileName>),
       .width = 300,
       .widthBesideCounters = 150},
      {.identifier = "filePath",
       .header = "Path",
       .place = cleanUp,
       .cells = TextCells(text<&FileObject::filePath>),
       .width = 300},
      {.identifier = "noLinesTotal",
       .header = "LOC",
       .place = detailsOfCode,
       .cells = NumberCells{number<&FileObject::noLinesTotal>},
       .width = 80,
       .toolTip = "LOC: lines of code"},
      {.identifier = "kloc",
       .header = "KLOC",
       .place = detailsOfCodeOnRequest,
       .cells = NumberCells{kloc, Format::decimals},
       .width = 60,
       .toolTip = "KLOC: lines of code divided by 1000"},
      {.identifier = "noLinesWithoutSpaces",
       .header = "SLOC",
       .place = detailsOfCode,
       .cells = NumberCells{number<&FileObject::noLinesWithoutSpaces>},
       .width = 80,
       .toolTip = "SLOC: lines of code without empty lines"},
      {.identifier = "noLinesComments",
       .header = "Lines with comments",
       .place = detailsOfCodeOnRequest,
       .cells = NumberCells{number<&FileObject::noLinesComments>},
       .width = 80},
      {.identifier = "noWords",
       .header = "Words",
       .place = detailsOfCodeOnRequest,
       .cells = NumberCells{number<&FileObject::noWords>},
       .width = 80},
      {.identifier = "noCharactersTotal",
       .header = "Chars",
       .place = detailsOfCodeOnRequest,
       .cells = NumberCells{number<&FileObject::noCharactersTotal>},
       .width = 80,
       .toolTip = "Total number of characters including spaces"},
      {.identifier = "fileSize",
       .header = "Size (KB)",
       .place = everywhere,
       .cells = NumberCells{number<&FileObject::fileSize>, Format::size},
       .width = 100,
       .widthBesideCounters = 80},
  };
  return columns;
}

}  // namespace quillmeter
