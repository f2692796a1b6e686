#include "export/PdfReading.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <string_view>

namespace quillmeter::testing {
namespace {

// Of Helvetica, upright and bold alike.
constexpr double kAscent = 0.718;
constexpr double kDescent = 0.207;
constexpr double kPageHeight = 1454.0;

std::string outputOf(const std::string& command) {
  const CommandResult result = run(command);
  EXPECT_EQ(result.status, 0) << command << "\n" << result.output.substr(0, 1000);
  return result.output;
}

/// The number of the attribute `name` in a tag.
double attribute(const std::string& tag, const std::string& name) {
  const std::size_t at = tag.find(name + "=\"");
  return at == std::string::npos ? std::nan("") : std::stod(tag.substr(at + name.size() + 2));
}

std::string unescaped(std::string text) {
  const std::array<std::array<std::string, 2>, 4> entities{
      {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}};
  for (const auto& [entity, character] : entities) {
    for (std::size_t at = 0; (at = text.find(entity, at)) != std::string::npos; ++at)
      text.replace(at, entity.size(), character);
  }
  return text;
}

}  // namespace

CommandResult run(const std::string& command) {
  CommandResult result;
  FILE* const pipe = ::popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return result;
  std::array<char, 4096> block{};
  for (std::size_t read = 0; (read = ::fread(block.data(), 1, block.size(), pipe)) > 0;)
    result.output.append(block.data(), read);
  const int status = ::pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

std::string quoted(const std::string& text) {
  std::string word = "'";
  for (const char character : text)
    word += character == '\'' ? std::string("'\\''") : std::string(1, character);
  return word + "'";
}

std::vector<PdfWord> pdfWords(const std::string& path) {
  std::vector<PdfWord> words;
  std::istringstream lines(outputOf("pdftotext -bbox " + quoted(path) + " -"));
  int page = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.find("<page ") != std::string::npos) ++page;
    const std::size_t tagEnd = line.find('>');
    const std::size_t textEnd = line.rfind("</word>");
    if (line.find("<word ") == std::string::npos || textEnd == std::string::npos) continue;
    const std::string tag = line.substr(0, tagEnd);
    PdfWord word;
    word.page = page;
    word.x = attribute(tag, "xMin");
    word.right = attribute(tag, "xMax");
    word.size = (attribute(tag, "yMax") - attribute(tag, "yMin")) / (kAscent + kDescent);
    word.baseline = kPageHeight - attribute(tag, "yMax") + kDescent * word.size;
    word.text = unescaped(line.substr(tagEnd + 1, textEnd - tagEnd - 1));
    words.push_back(word);
  }
  return words;
}

std::string lineAt(const std::vector<PdfWord>& words, int page, double baseline) {
  std::vector<PdfWord> found;
  std::copy_if(words.begin(), words.end(), std::back_inserter(found), [page, baseline](const PdfWord& word) {
    return word.page == page && std::abs(word.baseline - baseline) < 0.5;
  });
  std::stable_sort(found.begin(), found.end(), [](const PdfWord& a, const PdfWord& b) { return a.x < b.x; });
  std::string line;
  for (const PdfWord& word : found)
    line += (line.empty() ? "" : " ") + word.text;
  return line;
}

std::string pdfInfo(const std::string& path, const std::string& label) {
  std::istringstream lines(outputOf("pdfinfo " + quoted(path)));
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with(label + ":")) continue;
    const std::size_t value = line.find_first_not_of(' ', label.size() + 1);
    return value == std::string::npos ? "" : line.substr(value);
  }
  return {};
}

std::vector<std::string> pdfContents(const std::string& path) {
  const std::string objects = pdfObjects(path);
  std::vector<std::string> contents;
  for (std::size_t at = 0; (at = objects.find("%% Contents for page ", at)) != std::string::npos;) {
    const std::size_t begin = objects.find("stream\n", at) + 7;
    const std::size_t end = objects.find("endstream", begin);
    contents.push_back(objects.substr(begin, end - begin));
    at = end;
  }
  return contents;
}

std::string pdfObjects(const std::string& path) {
  return outputOf("qpdf --static-id --qdf --stream-data=uncompress " + quoted(path) + " -");
}

std::string pdfObjectsWithoutTime(const std::string& path) {
  constexpr std::string_view label = "/CreationDate (D:";
  constexpr std::string_view digits = "20260101000000";
  constexpr std::string_view shown = "(Jan 01, 2026 12:00 AM";
  std::string text = pdfObjects(path);
  const std::size_t made = text.find(label);
  if (made != std::string::npos) text.erase(made + label.size(), digits.size());
  const std::size_t half = std::min(text.find(" AM) Tj"), text.find(" PM) Tj"));
  if (half < text.size()) text.erase(half + 3 - shown.size(), shown.size());
  return text;
}

}  // namespace quillmeter::testing
