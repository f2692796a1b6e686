#include "xcode/PropertyList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>

namespace quillmeter {
namespace {

using namespace std::string_literals;
using Kind = PropertyList::Kind;

PropertyList parsed(std::string_view text) {
  auto result = PropertyList::parse(std::string(text));
  if (const auto* fault = std::get_if<PropertyListFault>(&result)) {
    ADD_FAILURE() << text << "\n" << fault->line << ": " << fault->expected;
    return std::get<PropertyList>(PropertyList::parse("{}"));
  }
  return std::get<PropertyList>(std::move(result));
}

/// The string that a token stands for.
std::string stringOf(std::string_view token) {
  const PropertyList list = parsed(token);
  EXPECT_EQ(list.root().kind(), Kind::string) << token;
  return std::string(list.root().text());
}

/// The fault as "LINE: what was expected"; empty when the text is fine.
std::string faultOf(std::string_view text) {
  const auto result = PropertyList::parse(std::string(text));
  const auto* fault = std::get_if<PropertyListFault>(&result);
  return fault != nullptr ? std::to_string(fault->line) + ": " + fault->expected : "";
}

/// `depth` arrays inside each other.
std::string nested(int depth) {
  return std::string(static_cast<std::size_t>(depth), '(') +
         std::string(static_cast<std::size_t>(depth), ')');
}

TEST(PropertyList, ReadsDictionaries) {
  const PropertyList list = parsed("{a = b; \"c d\" = { e = f; };}");
  ASSERT_TRUE(list.root().isDictionary());
  EXPECT_EQ(list.root().size(), 2U);
  EXPECT_EQ(list.root().key(1), "c d");
  EXPECT_EQ(list.root().find("a")->text(), "b");
  EXPECT_EQ(list.root().find("c d")->find("e")->text(), "f");
  EXPECT_FALSE(list.root().find("e"));
  EXPECT_EQ(parsed("{}").root().size(), 0U);
}

TEST(PropertyList, ReadsArraysWithAndWithoutALastComma) {
  const PropertyList list = parsed("(a, (b), {}, \"\",)");
  ASSERT_TRUE(list.root().isArray());
  ASSERT_EQ(list.root().size(), 4U);
  EXPECT_EQ(list.root().at(0).text(), "a");
  EXPECT_EQ(list.root().at(1).at(0).text(), "b");
  EXPECT_TRUE(list.root().at(2).isDictionary());
  EXPECT_TRUE(list.root().at(3).isString());
  EXPECT_EQ(parsed("(a,b)").root().size(), 2U);
  EXPECT_EQ(parsed("()").root().size(), 0U);
}

TEST(PropertyList, ReadsBareStringsOfAllTheirCharacters) {
  EXPECT_EQ(stringOf("azAZ09_$/:.-+"), "azAZ09_$/:.-+");
  EXPECT_EQ(stringOf("gr\xC3\xB6\xC3\x9F\x65"), "größe");
  EXPECT_EQ(stringOf("\x80\xFF"), "\x80\xFF");
  EXPECT_EQ(stringOf("/"), "/");
  EXPECT_EQ(stringOf("https://example.org/a//b"), "https://example.org/a//b");
}

TEST(PropertyList, ReadsStringsInDoubleAndSingleQuotes) {
  EXPECT_EQ(stringOf("\"a; 'b' {c} // d\""), "a; 'b' {c} // d");
  EXPECT_EQ(stringOf("'a \"b\" /* c'"), "a \"b\" /* c");
  EXPECT_EQ(stringOf("\"two\nlines\""), "two\nlines");
  EXPECT_EQ(stringOf("\"\""), "");
}

TEST(PropertyList, ReadsTheEscapesOfControlCharacters) {
  EXPECT_EQ(stringOf(R"("\a\b\f\n\r\t\v")"), "\a\b\f\n\r\t\v");
}

TEST(PropertyList, TakesAnyOtherEscapedCharacterForItself) {
  EXPECT_EQ(stringOf(R"("\"\'\\\q\8\9\u0041\ä")"), R"("'\q89u0041ä)");
  EXPECT_EQ(stringOf(R"('\'')"), "'");
}

TEST(PropertyList, ReadsOctalEscapesAsCodePoints) {
  EXPECT_EQ(stringOf(R"("\101\60\0601")"), "A001");
  EXPECT_EQ(stringOf(R"("\7x\1018")"), "\x07xA8");
  EXPECT_EQ(stringOf(R"("\344")"), "ä");
  EXPECT_EQ(stringOf(R"("\501\777")"), "A\xC3\xBF") << "modulo 256";
  EXPECT_EQ(stringOf(R"("\0\000")"), "\0\0"s);
}

TEST(PropertyList, ReadsUnicodeEscapes) {
  EXPECT_EQ(stringOf(R"("\U0041\U00e4\U20AC\U0000")"), "Aä€\0"s);
}

TEST(PropertyList, JoinsPairsOfUnicodeEscapes) {
  EXPECT_EQ(stringOf(R"("\Ud83d\UDE00")"), "😀");
  EXPECT_EQ(stringOf(R"("\UDBFF\UDFFF")"), "\xF4\x8F\xBF\xBF");
}

TEST(PropertyList, ReplacesHalfAPair) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(stringOf(R"("\Ud83d")"), replacement);
  EXPECT_EQ(stringOf(R"("\Ude00")"), replacement);
  EXPECT_EQ(stringOf(R"("\Ud83d\Ud83d\Ude00")"), replacement + "😀");
  EXPECT_EQ(stringOf(R"("\Ud83d\U0041")"), replacement + "A");
  EXPECT_EQ(stringOf(R"("\Ud83dx")"), replacement + "x");
}

TEST(PropertyList, TakesAUnicodeEscapeWithoutFourDigitsForItsLetter) {
  EXPECT_EQ(stringOf(R"("\U00e\Ux")"), "U00eUx");
  EXPECT_EQ(stringOf(R"("\U12")"), "U12");
}

TEST(PropertyList, ReadsAnEscapedLineBreakAsALineFeed) {
  EXPECT_EQ(stringOf("\"a\\\nb\\\rc\\\r\nd\""), "a\nb\nc\nd");
}

TEST(PropertyList, KeepsManyStringsWithEscapesApart) {
  const PropertyList list = parsed(R"({ "k\n" = "v\t"; 'k\'2' = ("\\", plain, "\"x"); })");
  EXPECT_EQ(list.root().find("k\n")->text(), "v\t");
  const auto array = list.root().find("k'2");
  ASSERT_TRUE(array);
  EXPECT_EQ(array->at(0).text(), "\\");
  EXPECT_EQ(array->at(1).text(), "plain");
  EXPECT_EQ(array->at(2).text(), "\"x");
}

TEST(PropertyList, ReadsDataWithWhiteSpace) {
  const PropertyList list = parsed("<0fBd 77\n\t1 C>");
  EXPECT_EQ(list.root().kind(), Kind::data);
  EXPECT_EQ(list.root().text(), "0fBd 77\n\t1 C");
  EXPECT_EQ(parsed("<>").root().kind(), Kind::data);
}

TEST(PropertyList, SkipsWhiteSpaceAndCommentsBetweenTokens) {
  const PropertyList list = parsed(
      " \t\n\v\f\r// one { \r/* two * / ** */{/**/a /* */=\n// three\n(/**/b /**/,)/**/;c // four\n=d;}// "
      "end");
  EXPECT_EQ(list.root().size(), 2U);
  EXPECT_EQ(list.root().find("a")->at(0).text(), "b");
  EXPECT_EQ(list.root().find("c")->text(), "d");
}

TEST(PropertyList, SkipsAByteOrderMark) {
  EXPECT_EQ(parsed("\xEF\xBB\xBF{a = b;}").root().find("a")->text(), "b");
  EXPECT_EQ(stringOf("\xEF\xBB\xBF\xEF\xBB\xBF"), "\xEF\xBB\xBF") << "only the first one is a mark";
}

TEST(PropertyList, KeepsTheLastOfTwoEqualKeys) {
  EXPECT_EQ(parsed("{a = 1; b = 2; a = 3;}").root().find("a")->text(), "3");
}

TEST(PropertyList, FindsKeysInLargeDictionaries) {
  std::string text = "{";
  for (int i = 0; i < 5000; ++i)
    text +=
        "key" + std::to_string(i) + " = " + std::to_string(i) + "; \"e\\n" + std::to_string(i) + "\" = e; ";
  const PropertyList list = parsed(text + "key17 = again; inner = {a = b;}; }");
  for (int i = 18; i < 5000; ++i)
    ASSERT_EQ(list.root().find("key" + std::to_string(i))->text(), std::to_string(i));
  EXPECT_EQ(list.root().find("key17")->text(), "again");
  EXPECT_EQ(list.root().find("e\n4999")->text(), "e");
  EXPECT_EQ(list.root().find("inner")->find("a")->text(), "b");
  EXPECT_FALSE(list.root().find("key5000"));
}

TEST(PropertyList, StaysGoodWhenItIsMoved) {
  PropertyList first = parsed("{a = \"b\\n\"; c = d;}");
  const PropertyList second = std::move(first);
  EXPECT_EQ(second.root().find("a")->text(), "b\n");
  EXPECT_EQ(second.root().find("c")->text(), "d");
}

TEST(PropertyList, HasNoKeysOrElementsInOtherValues) {
  const PropertyList list = parsed("(a)");
  EXPECT_FALSE(list.root().find("a"));
  EXPECT_EQ(list.root().text(), "");
  EXPECT_EQ(list.root().at(0).size(), 0U);
  EXPECT_FALSE(list.root().at(0).find("a"));
}

TEST(PropertyList, NestsTwoHundredDeepAndNoDeeper) {
  EXPECT_EQ(faultOf(nested(200)), "");
  EXPECT_EQ(faultOf("\n" + nested(201)), "2: expected at most 200 dictionaries and arrays inside each other");
  std::string dictionaries;
  for (int i = 0; i < 201; ++i)
    dictionaries += "{a=";
  EXPECT_EQ(faultOf(dictionaries), "1: expected at most 200 dictionaries and arrays inside each other");
  EXPECT_EQ(faultOf(nested(1'000'000)), faultOf(nested(201)));
}

TEST(PropertyListFault, SaysWhatWasExpected) {
  EXPECT_EQ(faultOf(""), "1: expected a value");
  EXPECT_EQ(faultOf("{a b;}"), "1: expected '=' after the key");
  EXPECT_EQ(faultOf("{a = b}"), "1: expected ';' after the value");
  EXPECT_EQ(faultOf("{a = ;}"), "1: expected a value");
  EXPECT_EQ(faultOf("{a;}"), "1: expected '=' after the key");
  EXPECT_EQ(faultOf("{<00> = b;}"), "1: expected a key or '}'");
  EXPECT_EQ(faultOf("{a = b;"), "1: expected a key or '}'");
  EXPECT_EQ(faultOf("(a b)"), "1: expected ',' or ')' after the value");
  EXPECT_EQ(faultOf("(a;)"), "1: expected ',' or ')' after the value");
  EXPECT_EQ(faultOf("(,)"), "1: expected a value");
  EXPECT_EQ(faultOf("(a,,)"), "1: expected a value");
  EXPECT_EQ(faultOf("(a"), "1: expected ',' or ')' after the value");
  EXPECT_EQ(faultOf("(a,"), "1: expected a value");
  EXPECT_EQ(faultOf("{} {}"), "1: expected the end of the text");
  EXPECT_EQ(faultOf("a = b;"), "1: expected the end of the text");
  EXPECT_EQ(faultOf("a*b"), "1: expected the end of the text") << "no bare character";
  EXPECT_EQ(faultOf("(\0)"s), "1: expected a value");
  EXPECT_EQ(faultOf("(\x7F)"), "1: expected a value");
  EXPECT_EQ(faultOf("(a\xC2\xA0 b)"), "1: expected ',' or ')' after the value") << "no white space";
}

TEST(PropertyListFault, KnowsBrokenData) {
  EXPECT_EQ(faultOf("<0>"), "1: expected a second hexadecimal digit for the last byte");
  EXPECT_EQ(faultOf("<0 1 2>"), "1: expected a second hexadecimal digit for the last byte");
  EXPECT_EQ(faultOf("<0g>"), "1: expected a second hexadecimal digit for the last byte");
  EXPECT_EQ(faultOf("<00g>"), "1: expected a hexadecimal digit or '>'");
  EXPECT_EQ(faultOf("<00 /* no */>"), "1: expected a hexadecimal digit or '>'");
  EXPECT_EQ(faultOf("<00\n"), "2: expected a hexadecimal digit or '>'");
}

TEST(PropertyListFault, NamesTheLineWhereAnUnclosedStringOrCommentBegins) {
  const std::string string = "expected the closing quote of the string that begins here";
  EXPECT_EQ(faultOf("{\na = \"b;\n}\n"), "2: " + string);
  EXPECT_EQ(faultOf("\n\n'\\'\n"), "3: " + string);
  EXPECT_EQ(faultOf("\"a\\"), "1: " + string);
  EXPECT_EQ(faultOf("{\n\n/* a\n\n}"), "3: expected '*/' after the comment that begins here");
  EXPECT_EQ(faultOf("{}\n/*/"), "2: expected '*/' after the comment that begins here");
}

TEST(PropertyListFault, CountsLinesThatEndWithLfCrLfOrCr) {
  EXPECT_EQ(faultOf("\n\r\n\r*"), "4: expected a value");
  EXPECT_EQ(faultOf("\r\r\n\n\n\r*"), "6: expected a value");
  EXPECT_EQ(faultOf("{a = \"x\ny\\n\";\nb c"), "3: expected '=' after the key");
  EXPECT_EQ(faultOf("(\r"), "2: expected a value");
}

TEST(PropertyListFault, SaysSoWhenTheTextIsXmlOrJson) {
  const std::string xml = "expected an OpenStep property list, not XML";
  EXPECT_EQ(faultOf("<?xml version=\"1.0\"?>\n<plist/>"), "1: " + xml);
  EXPECT_EQ(faultOf("\xEF\xBB\xBF\n<!DOCTYPE plist>"), "2: " + xml);
  EXPECT_EQ(faultOf("<plist version=\"1.0\">"), "1: " + xml);
  const std::string json = "expected an OpenStep property list, not JSON";
  EXPECT_EQ(faultOf("{ \"objects\" : {} }"), "1: " + json);
  EXPECT_EQ(faultOf("\n{\n\"a\\\"\":1}"), "2: " + json);
  EXPECT_EQ(faultOf("[1, 2]"), "1: " + json);
  EXPECT_EQ(faultOf("{ \"a\" = b; }"), "") << "a quoted key is none of JSON's alone";
}

}  // namespace
}  // namespace quillmeter
