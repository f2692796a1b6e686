#include "parsers/BaseParser.h"

#include <cstdio>
#include <cstring>

#include "parsers/ByteOrderMark.h"
#include "parsers/LinePieces.h"

namespace quillmeter {

void BaseParser::initialize() {
  methodStats_.reset();
  currentLine_.reset();
  eof_ = false;
}

std::shared_ptr<FMethodStats> BaseParser::execute(const std::string& /*path*/) {
  if (log_) log_("Simple file parser");
  return nullptr;
}

void BaseParser::startReadingFileWithCallback(const std::string& path, Operation callback) {
  const auto file = fileSystem_.open(path);
  if (!file) {
    const std::string message = path + ": " + std::strerror(file.error().number) + "\n";
    std::fwrite(message.data(), 1, message.size(), stderr);
    return;
  }
  LinePieces pieces(fileSystem_, file->value());
  bool first = true;
  while (const auto piece = pieces.next()) {
    const std::string_view text = first ? withoutByteOrderMark(*piece) : *piece;
    first = false;
    currentLine_ = text.substr(0, text.find('\0'));
    (this->*callback)({});
  }
  eof_ = true;
}

}  // namespace quillmeter
