#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "parsers/CPlusPlusParser.h"
#include "parsers/MemoryFile.h"
#include "parsers/MethodPatterns.h"
#include "parsers/PlainIcu.h"
#include "parsers/RegulatorParser.h"
#include "support/Text.h"

namespace {

using quillmeter::testing::MemoryFile;
using quillmeter::testing::PlainIcu;

void require(bool condition) {
  if (!condition) std::abort();
}

/// Both parsers over one source, through reads of any length.
void parse(std::string_view source) {
  MemoryFile file(source);
  const auto whole = quillmeter::RegulatorParser(file).parseFile("source.mm");
  file.setLongestRead(source.size() % 200 + 1);
  const auto inPieces = quillmeter::RegulatorParser(file).parseFile("source.mm");
  require(whole != nullptr && inPieces != nullptr);
  require(whole->noMethods() == inPieces->noMethods());
  require(whole->noStaticMethods() == inPieces->noStaticMethods());
  require(whole->noMethods() == whole->noStaticMethods() + whole->noInstanceMethods());
  require(static_cast<std::size_t>(whole->noMethods()) <= source.size() / 4);
}

/// Both patterns against plain ICU, as far as that comes to an end soon.
void compareWithPlainIcu(const std::string& text) {
  constexpr std::int32_t timeLimit = 5;
  static PlainIcu function(quillmeter::functionPatternText(), UREGEX_CASE_INSENSITIVE, timeLimit);
  static PlainIcu method(quillmeter::methodPatternText(), 0, timeLimit);
  if (const auto expected = function.allMatches(text)) {
    const auto found = quillmeter::functionPattern().allMatches(text);
    require(std::vector<std::string>(found.begin(), found.end()) == *expected);
  }
  if (const auto expected = method.matchesAll(text)) {
    require(quillmeter::methodPattern().matchesAll(text) == *expected);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string source(reinterpret_cast<const char*>(data), size);
  parse(source);
  constexpr std::size_t longestComparison = 1000;
  if (size <= longestComparison && quillmeter::isValidUtf8(source)) {
    compareWithPlainIcu(source);
    compareWithPlainIcu(quillmeter::CPlusPlusParser::convertFileComments(source));
  }
  return 0;
}
