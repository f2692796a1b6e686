#include "parsers/RegulatorParser.h"

#include <string_view>

#include "parsers/NSStringTools.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

bool isObjectiveC(std::string_view extension) {
  return extension == "m" || extension == "mm";
}

bool isCOrCPlusPlus(std::string_view extension) {
  return extension == "c" || extension == "cpp";
}

void traceBeginning(const std::string& path) {
  const std::string rule(38, '=');
  const std::string_view extension = pathExtension(path);
  std::string_view name = lastPathComponent(path);
  if (name.size() > extension.size() && !extension.empty()) name.remove_suffix(extension.size() + 1);
  out(rule);
  out(">-Parsing: " + std::string(name) + "." + std::string(extension));
  out(rule);
}

void add(const FMethodStats& from, FMethodStats& to) {
  to.setNoMethods(sumOfCounts(to.noMethods(), from.noMethods()));
  to.setNoInstanceMethods(sumOfCounts(to.noInstanceMethods(), from.noInstanceMethods()));
  to.setNoStaticMethods(sumOfCounts(to.noStaticMethods(), from.noStaticMethods()));
}

}  // namespace

bool RegulatorParser::hasParserForFile(const std::string& path) {
  const std::string_view extension = pathExtension(path);
  return isObjectiveC(extension) || isCOrCPlusPlus(extension);
}

std::shared_ptr<FMethodStats> RegulatorParser::parseFile(const std::string& path) {
  traceBeginning(path);
  const std::string_view extension = pathExtension(path);
  std::shared_ptr<FMethodStats> result;
  if (isObjectiveC(extension)) {
    out(">--Begin ObjectiveCParser");
    result = getObjectiveCParser().execute(path);
    if (!result) return nullptr;
    out(">--Begin CPlusPlusParser");
    add(*getCPlusParser().execute(path), *result);
  } else if (isCOrCPlusPlus(extension)) {
    out(">--Begin CPlusPlusParser");
    result = getCPlusParser().execute(path);
  }
  return result;
}

ObjectiveCParser& RegulatorParser::getObjectiveCParser() {
  if (!parserObjC_) parserObjC_ = ObjectiveCParser::create(fileSystem_);
  return *parserObjC_;
}

CPlusPlusParser& RegulatorParser::getCPlusParser() {
  if (!parserCPlus_) parserCPlus_ = CPlusPlusParser::create(fileSystem_);
  return *parserCPlus_;
}

}  // namespace quillmeter
