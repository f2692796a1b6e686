#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "measuring/ReferenceMeasurement.h"
#include "measuring/TextMeasurement.h"
#include "measuring/TextScan.h"

namespace quillmeter {

namespace {

using Blocks = std::vector<std::string_view>;

constexpr std::array<std::string_view, 25> kWhiteSpace{
    " ",      "\t",     "\n",     "\v",     "\f",     "\r",     "\u0085", "\u00A0", "\u1680",
    "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
    "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"};

/// Short texts in which something goes wrong when a border falls in the wrong place.
constexpr std::array<std::string_view, 13> kDelicateTexts{
    "\uFEFFint a;\r\n  /* b  \r\n\r\n c */ \r\n */\r\nint  d;  \r\n// e",
    "\uFEFF\uFEFF \u2028\u2029\u0085",
    "/*\n*/\n//\n*/\n/*/\n/**/\n//*\n*/x",
    " \t \u00A0\u3000\u2003 a \u2003\u3000\u00A0 \t\n\t\u205F",
    "a \u2028 b\u2029 \u0085 c \u1680\u202F\u205F",
    "\U0001F600\U0010FFFF \U00010000\n\uFFFD\uE000\uD7FF",
    "\u00A0/* \u2028\u00A0\u2029 \u3000*/\u0085\u3000// x",
    "\u0080\u00BF \u07C0\u07FF\u0800 \u0E17\u0FFF\n\u1000\uF000\U00010000 \U00040000\U00100000",
    "a\u00A0\u00A0\u2028\u00A0\u00A0b",
    "\u200B\u2027\u202A\u00A1\u0084\u0086\u3001\u1681\u2060",
    "/\n/\n*\n/ / /\n* /\n /",
    "   \n   \r\n   \u2028   ",
    "x",
};

std::string repeated(std::string_view piece, std::size_t size) {
  std::string text;
  while (text.size() < size)
    text += piece;
  return text;
}

std::optional<TextCounts> measured(const Blocks& blocks,
                                   const TextScanTarget& target = textScanTargets().front()) {
  TextMeasurement measurement(target);
  for (const std::string_view block : blocks)
    measurement.add(block);
  return measurement.finish();
}

/// Each instruction set of the machine in turn.
class TextMeasurementOnTarget : public testing::TestWithParam<TextScanTarget> {
 protected:
  [[nodiscard]] static std::optional<TextCounts> measuredHere(const Blocks& blocks) {
    return measured(blocks, GetParam());
  }

  static void expectAsReference(std::string_view text) {
    ASSERT_EQ(measuredHere({text}), referenceMeasurement(text)) << testing::PrintToString(std::string(text));
  }
};

TEST_P(TextMeasurementOnTarget, AgreesAtEveryAlignment) {
  std::string text;
  for (const std::string_view delicate : kDelicateTexts)
    text += delicate;
  const std::optional<TextCounts> expected = referenceMeasurement(text);
  std::string memory;
  for (std::size_t alignment = 0; alignment < 128; ++alignment) {
    memory.assign(alignment, '/');
    memory += text;
    ASSERT_EQ(measuredHere({std::string_view(memory).substr(alignment)}), expected) << alignment;
  }
}

TEST_P(TextMeasurementOnTarget, AgreesAtEveryShiftOfTheText) {
  for (const std::string_view delicate : kDelicateTexts) {
    for (const std::string_view fill : {"x", " ", "\n", "/", "*", "\u00E9", "\u3000"}) {
      for (std::size_t size = 40; size < 68; ++size)
        expectAsReference(repeated(fill, size) + std::string(delicate));
    }
  }
}

TEST_P(TextMeasurementOnTarget, AgreesWhereverBlocksAreCut) {
  for (const std::string_view text : kDelicateTexts) {
    const std::optional<TextCounts> expected = referenceMeasurement(text);
    for (std::size_t first = 0; first <= text.size(); ++first) {
      for (std::size_t second = first; second <= text.size(); ++second) {
        const Blocks blocks{text.substr(0, first), text.substr(first, second - first), text.substr(second)};
        ASSERT_EQ(measuredHere(blocks), expected) << text << " at " << first << " and " << second;
      }
    }
  }
}

TEST_P(TextMeasurementOnTarget, AgreesByteByByte) {
  for (const std::string_view text : kDelicateTexts) {
    Blocks blocks;
    for (std::size_t i = 0; i < text.size(); ++i)
      blocks.push_back(text.substr(i, 1));
    ASSERT_EQ(measuredHere(blocks), referenceMeasurement(text)) << text;
  }
}

TEST_P(TextMeasurementOnTarget, AgreesOnEveryWhiteSpaceNearABorder) {
  for (const std::string_view white : kWhiteSpace) {
    for (std::size_t size = 58; size < 66; ++size) {
      for (const std::string_view before : {"x", " ", "\n", "\u3000"}) {
        for (const std::string_view after : {"x", " x", " \n", "\n//", "/* ", "*/", ""}) {
          for (std::size_t run = 1; run < 3; ++run) {
            std::string text = repeated(before, size);
            for (std::size_t i = 0; i < run; ++i)
              text += white;
            expectAsReference(text + std::string(after));
          }
        }
      }
    }
  }
}

TEST_P(TextMeasurementOnTarget, AgreesOnCommentsNearABorder) {
  for (const std::string_view state : {"", "/*\n"}) {
    for (const std::string_view mark : {"/*", "*/", "//", "/", "*", "/*/", "*/*", "/\u00E9", "*\u2028/"}) {
      for (const std::string_view before : {"", " ", "\u00A0", "x"}) {
        for (std::size_t size = 54; size < 70; ++size) {
          const std::string start = repeated(state, state.size()) + std::string(size, 'x') + "\n";
          expectAsReference(start + std::string(before) + std::string(mark) + "\ny\n//\n*/\nz");
        }
      }
    }
  }
}

TEST_P(TextMeasurementOnTarget, AgreesOnManyCommentsInOneBlock) {
  for (const std::string_view line :
       {"/*\n*/\n", "/*\n", "*/\n", "//\n", "//\n/*\n//\n*/\n", " /*\n \n*/\n\n"})
    expectAsReference(repeated(line, 500));
}

TEST_P(TextMeasurementOnTarget, AgreesOnLongRuns) {
  for (const std::size_t size :
       {63U, 64U, 65U, 66U, 67U, 127U, 128U, 129U, 192U, 300U, 4095U, 4096U, 4097U}) {
    for (const std::string_view run :
         {" ", "x", "\n", "\t", "\u3000", "\u2028", "\u00E9", "\U0001F600", "/"}) {
      const std::string middle = repeated(run, size);
      for (const std::string_view before : {"", "x", "/*\n"}) {
        for (const std::string_view after : {"", "x", " \n*/\ny"})
          expectAsReference(std::string(before) + middle + std::string(after));
      }
    }
  }
}

TEST_P(TextMeasurementOnTarget, AgreesOnRandomTextsInRandomBlocks) {
  static constexpr std::array<std::string_view, 36> kAlphabet{
      " ",      " ",      "  ",     "\t",     "\n",     "\n",     "\r\n",   "\r",         "\v",
      "/",      "*",      "//",     "/*",     "*/",     "\n/*",   "\n*/",   "\n//",       "\n  */",
      "x",      "y",      "word",   "{",      "\u00E9", "\u0085", "\u00A0", "\u2028",     "\u2029",
      "\u3000", "\u2003", "\u202F", "\u4E2D", "\u3042", "\u2014", "\uFEFF", "\U0001F600", "          "};
  std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same texts in every run
  for (int round = 0; round < 2000; ++round) {
    const std::size_t letters = 2 + random() % (kAlphabet.size() - 2);
    const std::size_t size = random() % 300;
    std::string text;
    while (text.size() < size)
      text += kAlphabet[(random() % letters + static_cast<std::size_t>(round)) % kAlphabet.size()];
    Blocks blocks;
    for (std::string_view rest = text; !rest.empty();) {
      const std::size_t count = std::min<std::size_t>(1 + random() % (1 + random() % 150), rest.size());
      blocks.push_back(rest.substr(0, count));
      rest.remove_prefix(count);
    }
    const std::optional<TextCounts> expected = referenceMeasurement(text);
    ASSERT_TRUE(expected.has_value());
    ASSERT_EQ(measuredHere({text}), expected) << round << testing::PrintToString(text);
    ASSERT_EQ(measuredHere(blocks), expected) << round << testing::PrintToString(text);
  }
}

INSTANTIATE_TEST_SUITE_P(Every, TextMeasurementOnTarget,
                         testing::ValuesIn(textScanTargets().begin(), textScanTargets().end()),
                         [](const auto& target) { return std::string(target.param.name); });

TEST(TextMeasurementDifferential, EveryCharacterIsOfTheKindItHasInUnicode) {
  const auto append = [](std::string& text, char32_t c) {
    const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
    const auto further = [&](unsigned shift) { byte(0x80U | ((c >> shift) & 0x3FU)); };
    if (c < 0x80) return byte(c);
    if (c < 0x800) {
      byte(0xC0U | (c >> 6U));
    } else {
      if (c < 0x10000) {
        byte(0xE0U | (c >> 12U));
      } else {
        byte(0xF0U | (c >> 18U));
        further(12);
      }
      further(6);
    }
    further(0);
  };
  for (char32_t first = 0; first <= 0x10FFFF; first += 64) {
    if (first >= 0xD800 && first <= 0xDFFF) continue;
    std::string text = ".";
    for (char32_t c = first; c < first + 64; ++c) {
      append(text, c);
      text += '.';
    }
    ASSERT_EQ(measured({text}), referenceMeasurement(text)) << "from " << static_cast<unsigned>(first);
  }
}

struct Bytes {
  const char* name;
  std::string_view bytes;
};

constexpr std::array<Bytes, 22> kInvalid{{
    {"lone continuation", "\x80"},
    {"last continuation", "\xBF"},
    {"overlong NUL", "\xC0\x80"},
    {"overlong of two", "\xC1\xBF"},
    {"overlong of three", "\xE0\x9F\xBF"},
    {"overlong of four", "\xF0\x8F\xBF\xBF"},
    {"first surrogate", "\xED\xA0\x80"},
    {"last surrogate", "\xED\xBF\xBF"},
    {"pair of surrogates", "\xED\xA0\xBD\xED\xB8\x80"},
    {"past the last character", "\xF4\x90\x80\x80"},
    {"lead past the last", "\xF5\x80\x80\x80"},
    {"five bytes", "\xF8\x88\x80\x80\x80"},
    {"six bytes", "\xFC\x84\x80\x80\x80\x80"},
    {"FE", "\xFE"},
    {"FF", "\xFF"},
    {"cut after one of two", "\xC3"},
    {"cut after one of three", "\xE2"},
    {"cut after two of three", "\xE2\x80"},
    {"cut after three of four", "\xF0\x9F\x98"},
    {"one continuation too many", "\xC3\xA9\xA9"},
    {"byte-order mark cut short", "\xEF\xBB"},
    {"lead before a lead", "\xE2\xE2\x80\xA8"},
}};

TEST(InvalidUtf8, IsRefusedWhereverItStands) {
  for (const Bytes& invalid : kInvalid) {
    for (const std::size_t size :
         {0U, 1U, 59U, 60U, 61U, 62U, 63U, 64U, 65U, 4092U, 4093U, 4094U, 4095U, 4096U, 4097U}) {
      const std::string start = std::string(size, 'x') + std::string(invalid.bytes);
      for (const std::string& text : {start, start + "y", start + "\u00E9", start + std::string(100, 'y')}) {
        ASSERT_EQ(measured({text}), std::nullopt) << invalid.name << " behind " << size;
        ASSERT_EQ(referenceMeasurement(text), std::nullopt) << invalid.name;
      }
    }
  }
}

TEST(InvalidUtf8, IsRefusedWhereverBlocksAreCut) {
  for (const Bytes& invalid : kInvalid) {
    for (const std::string_view after : {"", "y", "\u00E9"}) {
      const std::string text = "\u00E9" + std::string(invalid.bytes) + std::string(after);
      const std::string_view view = text;
      Blocks bytes;
      for (std::size_t i = 0; i < text.size(); ++i) {
        ASSERT_EQ(measured({view.substr(0, i), view.substr(i)}), std::nullopt) << invalid.name << " at " << i;
        bytes.push_back(view.substr(i, 1));
      }
      ASSERT_EQ(measured(bytes), std::nullopt) << invalid.name;
    }
  }
}

TEST(InvalidUtf8, ItsValidNeighboursAreTaken) {
  for (const std::string_view text : {"\u0080", "\u07FF", "\u0800", "\uD7FF", "\uE000", "\uFFFF",
                                      "\U00010000", "\U0010FFFF", "\uFFFE", "\U0001FFFF"}) {
    EXPECT_TRUE(measured({text}).has_value()) << text;
    for (std::size_t i = 0; i <= text.size(); ++i)
      EXPECT_EQ(measured({text.substr(0, i), text.substr(i)}), measured({text})) << text << " at " << i;
  }
}

TEST(InvalidUtf8, IsToldFromRandomBytesAsTheReferenceTellsIt) {
  static constexpr std::string_view kBytes = "\xC2\xE1\xE2\xE3\xED\xF0\xF4\x80\x85\xA0\x9A\x8F\xBF\x90 a\n";
  std::mt19937 random(11);  // NOLINT(cert-msc51-cpp): the same texts in every run
  int valid = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text(random() % 7, ' ');
    std::generate(text.begin(), text.end(), [&] { return kBytes[random() % kBytes.size()]; });
    const std::optional<TextCounts> expected = referenceMeasurement(text);
    valid += expected.has_value() ? 1 : 0;
    const std::size_t cut = random() % (text.size() + 1);
    const std::string_view view = text;
    ASSERT_EQ(measured({text}), expected) << testing::PrintToString(text);
    ASSERT_EQ(measured({view.substr(0, cut), view.substr(cut)}), expected) << testing::PrintToString(text);
  }
  EXPECT_GT(valid, 1000);
}

}  // namespace
}  // namespace quillmeter
