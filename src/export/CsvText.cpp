#include "export/CsvText.h"

#include <optional>
#include <string_view>

#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

constexpr std::string_view kHeader =
    R"header("Type","Filename","Lines of code","Lines of code without empty lines","Words","Chars","Size(KB)")header";
constexpr double kKilobytesPerByte = 0.0009765625;
constexpr std::size_t kTypicalRowLength = 80;

void appendCount(std::string& text, const std::optional<Number>& count) {
  text.append(",\"").append(std::to_string(integerValue(count))).append("\"");
}

void appendRow(std::string& text, const ExportedFile& exported) {
  const FileObject& file = *exported.file;
  text.append("\"").append(exported.group->csvType).append("\",\"");
  text.append(file.fileName().value_or("")).append("\"");
  if (exported.group->kind == FileKind::code) {
    appendCount(text, file.noLinesTotal());
    appendCount(text, file.noLinesWithoutSpaces());
    appendCount(text, file.noWords());
    appendCount(text, file.noCharactersTotal());
  } else {
    text.append(R"(,"","","","")");
  }
  const double kilobytes = static_cast<double>(integerValue(file.fileSize())) * kKilobytesPerByte;
  text.append(",\"").append(fixed(kilobytes, 2)).append("\"\n");
}

}  // namespace

std::string csvText(std::span<const ExportedFile> files) {
  std::string text;
  text.reserve(kHeader.size() + 1 + files.size() * kTypicalRowLength);
  text.append(kHeader).append("\n");
  for (const ExportedFile& file : files)
    appendRow(text, file);
  // Every text begins and ends with a quote, so the trimming that this format asks for is this:
  text.pop_back();
  return text;
}

}  // namespace quillmeter
