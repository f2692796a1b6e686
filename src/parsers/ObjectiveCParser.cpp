#include "parsers/ObjectiveCParser.h"

#include <string_view>

#include "parsers/MethodPatterns.h"
#include "parsers/NSStringTools.h"
#include "support/Text.h"

namespace quillmeter {

std::unique_ptr<ObjectiveCParser> ObjectiveCParser::create(const FileSystem& fileSystem) {
  return std::make_unique<ObjectiveCParser>(fileSystem);
}

std::shared_ptr<FMethodStats> ObjectiveCParser::execute(const std::string& path) {
  if (!currentLine()) {
    readFile(path);
    if (eof()) out(">--End ObjectiveCParser");
  } else {
    const std::string_view line = trimLeadingEndWhiteCharacters(*currentLine());
    if (line.empty()) return nullptr;
    handleLine(line);
  }
  return eof() ? methodStats() : nullptr;
}

void ObjectiveCParser::readFile(const std::string& path) {
  methodBeginTag_.clear();
  methodCandidate_.clear();
  setMethodStats(std::make_shared<FMethodStats>());
  startReadingFileWithCallback(path, &BaseParser::execute);
}

void ObjectiveCParser::handleLine(std::string_view line) {
  if (line.front() == '-' || line.front() == '+') methodBeginTag_ = line.front();
  if (methodBeginTag_.empty()) return;
  methodCandidate_.append(" ").append(line);
  if (!line.ends_with('{')) return;
  methodCandidate_.pop_back();
  testCandidate();
  methodBeginTag_.clear();
  methodCandidate_.clear();
}

void ObjectiveCParser::testCandidate() {
  const std::string candidate(trimLeadingEndWhiteCharacters(methodCandidate_));
  if (methodPattern().matchesAll(candidate)) {
    out("^.^|" + candidate);
    countMethod();
  } else {
    out("o.0|" + candidate + "|o.0");
  }
}

void ObjectiveCParser::countMethod() {
  if (!methodStats()) return;
  FMethodStats& stats = *methodStats();
  if (methodBeginTag_ != "-") stats.setNoStaticMethods(sumOfCounts(stats.noStaticMethods(), 1));
  if (methodBeginTag_ != "+") stats.setNoInstanceMethods(sumOfCounts(stats.noInstanceMethods(), 1));
  stats.setNoMethods(sumOfCounts(stats.noMethods(), 1));
}

}  // namespace quillmeter
