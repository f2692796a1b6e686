#include "tables/ColumnExplanation.h"

namespace quillmeter {

std::string_view columnExplanation(FileTableField field) {
  switch (field) {
    case FileTableField::getFileExtension:
      return "Kind of the file, by the ending of its name";
    case FileTableField::finderview:
      return "Buttons that show the file in the file browser";
    case FileTableField::fileName:
      return "Name of the file";
    case FileTableField::filePath:
      return "Where the file is";
    case FileTableField::noLinesTotal:
      return "Lines of code";
    case FileTableField::kloc:
      return "Lines of code divided by 1000";
    case FileTableField::noLinesWithoutSpaces:
      return "Lines of code without empty lines";
    case FileTableField::noLinesComments:
      return "Lines that are comments";
    case FileTableField::noWords:
      return "Number of words";
    case FileTableField::noCharactersTotal:
      return "Total number of characters including spaces";
    case FileTableField::fileSize:
      return "Size of the file in kilobytes";
  }
  return {};
}

}  // namespace quillmeter
