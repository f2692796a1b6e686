#include "parsers/CPlusPlusParser.h"

#include <cstddef>

#include "files/ReadingFiles.h"
#include "parsers/ByteOrderMark.h"
#include "parsers/MethodPatterns.h"
#include "parsers/NSStringTools.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

constexpr std::string_view kCommentMark = "|_|";

/// Whether a match in a converted text ends where the mark of a comment line begins. No match can hold the
/// mark, but one may run right up to it: the head of a function in a comment that ends with its "{".
bool runsIntoCommentMark(std::string_view match, std::string_view text) {
  const auto end = static_cast<std::size_t>(match.data() - text.data()) + match.size();
  return text.substr(end).starts_with(kCommentMark);
}

}  // namespace

std::unique_ptr<CPlusPlusParser> CPlusPlusParser::create(const FileSystem& fileSystem) {
  return std::make_unique<CPlusPlusParser>(fileSystem);
}

std::string CPlusPlusParser::convertFileComments(std::string_view text) {
  std::string converted;
  converted.reserve(text.size() + text.size() / 8 + 1);
  for (std::size_t lineFeed = 0; lineFeed != std::string_view::npos;) {
    lineFeed = text.find('\n');
    const std::string_view line = trimLeadingEndWhiteCharacters(text.substr(0, lineFeed));
    converted.append("\n").append(line);
    if (line.starts_with("//")) converted.append(" ").append(kCommentMark);
    text.remove_prefix(lineFeed == std::string_view::npos ? text.size() : lineFeed + 1);
  }
  return converted;
}

std::shared_ptr<FMethodStats> CPlusPlusParser::execute(const std::string& path) {
  const auto text = convertedFile(path);
  setMethodStats(std::make_shared<FMethodStats>());
  if (text) {
    countFunctions(*text);
  } else {
    out("CPlusPlusParser:error:" + path + " cannot be read as UTF-8 text");
  }
  return methodStats();
}

std::optional<std::string> CPlusPlusParser::convertedFile(const std::string& path) const {
  const auto content = readWholeFile(fileSystem(), path);
  if (!content || !isValidUtf8(*content)) return std::nullopt;
  return convertFileComments(withoutByteOrderMark(*content));
}

void CPlusPlusParser::countFunctions(std::string_view convertedText) {
  for (const std::string_view match : functionPattern().allMatches(convertedText)) {
    if (!runsIntoCommentMark(match, convertedText)) countFunction(match);
  }
}

void CPlusPlusParser::countFunction(std::string_view match) {
  const std::string head = removingOccurrences(trimLeadingEndWhiteCharacters(match), "{");
  out("^.^|" + head);
  const std::string_view word = trimLeadingEndWhiteCharacters(firstWordPattern().matchAtBeginning(head));
  FMethodStats& stats = *methodStats();
  if (word == "static") {
    stats.setNoStaticMethods(sumOfCounts(stats.noStaticMethods(), 1));
  } else {
    stats.setNoInstanceMethods(sumOfCounts(stats.noInstanceMethods(), 1));
  }
  stats.setNoMethods(sumOfCounts(stats.noMethods(), 1));
}

}  // namespace quillmeter
