#include "parsers/MethodPatterns.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "helpers/TemporaryFolder.h"
#include "parsers/CPlusPlusParser.h"
#include "parsers/PlainIcu.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

using testing::PlainIcu;

/// In ICU's steps; a search that takes longer is left out of the comparison.
constexpr std::int32_t kTimeLimit = 20;

TEST(MethodPatterns, AreCompleteToTheLastCharacter) {
  EXPECT_EQ(methodPatternText().size(), 330U);
  EXPECT_EQ(functionPatternText().size(), 701U);
}

TEST(MethodPatterns, AreUnderstoodByBothEngines) {
  EXPECT_TRUE(methodPattern().isValid());
  EXPECT_TRUE(functionPattern().isValid());
  EXPECT_TRUE(firstWordPattern().isValid());
  EXPECT_TRUE(PlainIcu(methodPatternText(), 0, 0).isValid());
  EXPECT_TRUE(PlainIcu(functionPatternText(), UREGEX_CASE_INSENSITIVE, 0).isValid());
}

TEST(MethodPatterns, AreCompiledOnce) {
  EXPECT_EQ(&methodPattern(), &methodPattern());
  EXPECT_EQ(&functionPattern(), &functionPattern());
}

std::vector<std::string> functionsIn(std::string_view text) {
  const auto views = functionPattern().allMatches(text);
  return {views.begin(), views.end()};
}

/// Compares both engines on many texts and counts what there was to compare.
class Comparison {
 public:
  void functions(const std::string& text) {
    const auto expected = functionIcu_.allMatches(text);
    if (!expected) return;
    ++finished;
    matches += expected->size();
    EXPECT_EQ(functionsIn(text), *expected) << text;
  }

  void method(const std::string& text) {
    const auto expected = methodIcu_.matchesAll(text);
    if (!expected) return;
    ++finished;
    matches += *expected ? 1U : 0U;
    EXPECT_EQ(methodPattern().matchesAll(text), *expected) << text;
  }

  std::size_t finished = 0;
  std::size_t matches = 0;

 private:
  PlainIcu functionIcu_{functionPatternText(), UREGEX_CASE_INSENSITIVE, kTimeLimit};
  PlainIcu methodIcu_{methodPatternText(), 0, kTimeLimit};
};

TEST(MethodPatterns, FindInTheCorpusWhatPlainIcuFinds) {
  Comparison comparison;
  std::size_t texts = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QUILLMETER_TEST_DATA "/parsers")) {
    const std::string text = testing::readFile(entry.path());
    if (!isValidUtf8(text)) continue;
    comparison.functions(text);
    comparison.functions(CPlusPlusParser::convertFileComments(text));
    texts += 2;
  }
  EXPECT_GT(texts, 80U);
  EXPECT_GT(comparison.finished, texts * 9 / 10);
  EXPECT_GT(comparison.matches, 100U);
}

class Snippets {
 public:
  explicit Snippets(std::uint32_t seed) : random_(seed) {}

  std::string of(std::span<const char* const> pieces, std::size_t longest) {
    std::string text;
    for (std::size_t length = random_() % longest + 1; length > 0; --length)
      text += pieces[random_() % pieces.size()];
    return text;
  }

  /// `text` with some characters replaced by, or followed by, one of `pieces`.
  std::string variantOf(std::string text, std::span<const char* const> pieces) {
    for (std::size_t changes = random_() % 4; changes > 0; --changes)
      text.replace(random_() % text.size(), random_() % 2, pieces[random_() % pieces.size()]);
    return text;
  }

 private:
  std::mt19937 random_;
};

constexpr const char* kPieces[] = {
    "int",    "a",    "s",     "K",      " ",      " ",      "\n",  "\t",  "*",
    "**",     "&",    ",",     ", ",     "[",      "]",      "[3]", "[*]", " [a]",
    "(",      ")",    "{",     ") {",    "::",     "~",      "_",   "0",   "static ",
    "int f(", "|_|",  "//",    "\u017f", "\u212a", "\u00a0", "é",   ";",   "\u2028",
    "int a",  "char", "const", "\u3000", "\u0085", "\u200b", "...", ":",   "void"};

constexpr const char* kFunctions[] = {
    "static int add(int a, int b) {",
    "char **names(char **a, const char *b, int c[3][4]) const {",
    "Shape & Shape::move(int x [2], Shape & other , float y) override\n{\n",
    "Shape :: ~ Shape ( void ) {",
    "int main(int count, unsigned char *texts[]) {",
    "void f(a b c[1] d e, f[] g h) {",
};

constexpr const char* kMethods[] = {
    "- (void)draw",
    "+ (Shape *)shapeWithName:(NSString *)name, ...",
    "- ( BOOL ) write : ( id ) data to: (NSURL **)url error :(NSError &&) error ;",
    "- (id<Copying>)copyOf:(id)a :(id)b c:(id)d;e:(int)f, ... , ...",
};

constexpr const char* kMethodPieces[] = {
    " ", "\n",  "-", "+",   "(", ")", "*",      "**",    "&",      "&&",     ":", "$", "<",      ">",
    "a", "int", ",", "...", ";", "_", ":(id)a", ", ...", "\u00a0", "\u017f", "é", "{", "\u2028", "\u0085"};

TEST(MethodPatterns, FindInGeneratedSnippetsWhatPlainIcuFinds) {
  Comparison comparison;
  Snippets snippets(20);
  constexpr std::size_t rounds = 1500;
  for (std::size_t i = 0; i < rounds; ++i) {
    comparison.functions(snippets.of(kPieces, 40));
    comparison.functions(snippets.variantOf(kFunctions[i % std::size(kFunctions)], kPieces));
  }
  EXPECT_GT(comparison.finished, rounds * 2 * 9 / 10);
  EXPECT_GT(comparison.matches, rounds / 4);
}

TEST(MethodPatterns, AcceptTheGeneratedMethodsThatPlainIcuAccepts) {
  Comparison comparison;
  Snippets snippets(21);
  constexpr std::size_t rounds = 1500;
  for (std::size_t i = 0; i < rounds; ++i) {
    comparison.method("-(a)" + snippets.of(kMethodPieces, 12));
    comparison.method(snippets.variantOf(kMethods[i % std::size(kMethods)], kMethodPieces));
  }
  EXPECT_GT(comparison.finished, rounds * 2 * 9 / 10);
  EXPECT_GT(comparison.matches, rounds / 4);
}

TEST(MethodPatterns, TreatSpecialCharactersAsPlainIcuDoes) {
  Comparison comparison;
  std::size_t texts = 0;
  for (const char* character :
       {"\x09",   "\x0a",   "\x0b",   "\x0c",   "\x0d",       "\x1c",   "\x1f",   " ",      "\x7f",
        "\u0085", "\u00a0", "\u00ad", "\u017f", "\u0130",     "\u0131", "\u1680", "\u180e", "\u1e9e",
        "\u2000", "\u200a", "\u200b", "\u2028", "\u2029",     "\u202f", "\u205f", "\u2060", "\u212a",
        "\u212b", "\u3000", "\ufb05", "\ufeff", "\U0001d5c4", "ß"}) {
    const std::string c = character;
    for (const std::string& text : {"static" + c + "int f(int a) {", "int f" + c + "(int a) {",
                                    "int f(int" + c + "a) {", "x" + c + "y f() {" + c, c + " f(" + c + ") {",
                                    "int f()" + c + "{" + c + c + "x", c + "::~" + c + "() {"}) {
      comparison.functions(text);
      ++texts;
    }
    comparison.method("-" + c + "(int)" + c + "f");
    comparison.method("-(" + c + ")" + c);
    texts += 2;
  }
  EXPECT_EQ(comparison.finished, texts);
  EXPECT_GT(comparison.matches, texts / 3);
}

/// Sources on which a backtracking search of the patterns does not come back.
TEST(MethodPatterns, GetAlongWithHostileText) {
  const auto repeated = [](std::string_view piece, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes)
      text += piece;
    return text;
  };
  constexpr std::size_t size = 1'000'000;
  const std::string function = "\nint f(int a) {";
  for (const std::string& text :
       {repeated("int f(int a, char *b, char c[2], int d, int e, int g, int h, unsigned int i);\n", size),
        repeated("a", size), repeated("int f(int a[[[[[[, b[3][4](", size),
        "int f(" + repeated("int a, ", size), "int f(" + repeated("int a[3] [x] , char *b[1], ", size),
        repeated("\n", size), repeated("a b ", size), repeated("int f(", size), "int " + repeated("*", size),
        repeated("{", size), repeated("a::", size)}) {
    EXPECT_EQ(functionsIn(text + ";" + function + text).size(), 1U) << text.substr(0, 40);
  }
  EXPECT_EQ(functionsIn(repeated("int f(int a) {\n", size)).size(), size / 15 + 1);
  EXPECT_TRUE(methodPattern().matchesAll("- (void)f" + repeated(":(int)a ", size)));
  EXPECT_FALSE(methodPattern().matchesAll("- (void)f" + repeated(":(int)a ", size) + "-"));
  EXPECT_FALSE(methodPattern().matchesAll("- (void)f" + repeated("a", size) + ":"));
}

}  // namespace
}  // namespace quillmeter
