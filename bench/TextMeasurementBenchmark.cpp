/// How fast texts are measured, in bytes per second, beside a plain memcpy of the same bytes. Where a text is
/// long, the goal is a quarter of what memcpy does with it, and an eighth is the very least.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "measuring/TextMeasurement.h"

namespace {

using quillmeter::TextMeasurement;

constexpr std::size_t kLongText = std::size_t{64} << 20;
constexpr std::size_t kSmallText = 5000;
constexpr std::size_t kReadBlock = std::size_t{1} << 16;

/// Lines picked by a fixed seed from `lines`, indented, until there are `size` bytes.
std::string textOf(std::span<const std::string_view> lines, std::size_t size) {
  std::mt19937 random(20240229);  // NOLINT(cert-msc51-cpp): the same text in every run
  std::string text;
  text.reserve(size + 256);
  std::size_t depth = 0;
  while (text.size() < size) {
    const std::string_view line = lines[random() % lines.size()];
    if (!line.empty()) text.append(4 * depth, ' ');
    text.append(line);
    text += '\n';
    if (random() % 4 == 0) depth = random() % 4;
  }
  text.resize(size);
  while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0x80U) != 0)
    text.pop_back();
  return text;
}

std::string objectiveCText(std::size_t size) {
  static constexpr std::array<std::string_view, 36> lines{
      "",
      "",
      "",
      "",
      "",
      "#import \"NotebookController.h\"",
      "#import <Cocoa/Cocoa.h>",
      "@interface NotebookController () <NSTableViewDelegate>",
      "@property (nonatomic, strong) NSMutableArray *pages;",
      "@end",
      "- (void)viewDidLoad {",
      "[super viewDidLoad];",
      "self.pages = [NSMutableArray arrayWithCapacity:kInitialCapacity];",
      "for (NSUInteger index = 0; index < [self.pages count]; index++) {",
      "NotebookPage *page = [self.pages objectAtIndex:index];",
      "if (page.title == nil || [page.title length] == 0) {",
      "page.title = NSLocalizedString(@\"Untitled page\", @\"Shown for pages without a title\");",
      "}",
      "}",
      "}",
      "}",
      "return YES;",
      "return nil;",
      "// The list is sorted by the date of the last change.",
      "// MARK: - Table view",
      "//",
      "/*\n * Reads the page from disk.\n * Returns nil when there is none.\n */",
      "/**\n    The title as the reader sees it.\n*/",
      "[self.tableView reloadData];  ",
      "\tNSLog(@\"%s: %@ has %lu pages\", __PRETTY_FUNCTION__, self.name, (unsigned long)count);",
      "static NSString *const kGreeting = @\"Grüße aus Köln – schön, dass du da bist\";",
      "// Wird aufgerufen, wenn sich die Größe des Fensters ändert.",
      "[[NSNotificationCenter defaultCenter] addObserver:self selector:@selector(changed:) name:kChanged "
      "object:nil];",
      "dispatch_async(dispatch_get_main_queue(), ^{",
      "});",
      "CGFloat width = CGRectGetWidth(self.bounds) - 2.0 * kMargin; // without the margins",
  };
  return textOf(lines, size);
}

std::string internationalText(std::size_t size) {
  static constexpr std::array<std::string_view, 12> lines{
      "",
      "// Возвращает заголовок страницы, как его видит читатель.",
      "NSString *заголовок = @\"Записная книжка\";",
      "// 読者が見るページの題名を返します。",
      "NSString *title = @\"ノートブックの新しいページ\";",
      "/// Gibt „Ungültig“ zurück, wenn die Seite – aus welchem Grund auch immer – fehlt…",
      "NSString *étiquette = @\"Où est passé l’élève\u00A0?\";",
      "return @\"😀🎉 完成了 👍\";",
      "Ελληνικό κείμενο με αρκετές λέξεις για να γεμίσει τη γραμμή",
      "\u3000全角の空白で字下げした行です\u3000終わり",
      "페이지의 제목을 돌려줍니다. 없으면 빈 문자열입니다.",
      "[self.tableView reloadData];",
  };
  return textOf(lines, size);
}

std::string singleLine(std::size_t size) {
  std::string text = objectiveCText(size);
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

std::string blankLines(std::size_t size) {
  return std::string(size, '\n');
}

void countBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(bytes));
}

template <std::string (*makeText)(std::size_t)>
void copyLongText(benchmark::State& state) {
  const std::string text = makeText(kLongText);
  std::vector<char> copy(text.size());
  for (auto _ : state) {
    std::memcpy(copy.data(), text.data(), text.size());
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }
  countBytes(state, text.size());
}

template <std::string (*makeText)(std::size_t)>
void measureLongText(benchmark::State& state) {
  const std::string text = makeText(kLongText);
  for (auto _ : state)
    benchmark::DoNotOptimize(quillmeter::measuredText(text));
  countBytes(state, text.size());
}

/// The same as it comes from a file.
void measureInReadBlocks(benchmark::State& state) {
  const std::string text = objectiveCText(kLongText);
  for (auto _ : state) {
    TextMeasurement measurement;
    for (std::span<const char> rest = text; !rest.empty();) {
      const std::size_t count = std::min(rest.size(), kReadBlock);
      measurement.add(rest.first(count));
      rest = rest.subspan(count);
    }
    benchmark::DoNotOptimize(measurement.finish());
  }
  countBytes(state, text.size());
}

/// Thousands of files of a usual size, each with a measurement of its own.
void measureSmallTexts(benchmark::State& state) {
  const std::string text = objectiveCText(kLongText / 16);
  const std::size_t texts = text.size() / kSmallText;
  for (auto _ : state) {
    for (std::size_t i = 0; i < texts; ++i)
      benchmark::DoNotOptimize(quillmeter::measuredText(std::span(text).subspan(i * kSmallText, kSmallText)));
  }
  countBytes(state, texts * kSmallText);
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(texts));
}

void measureEmptyText(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(quillmeter::measuredText({}));
}

BENCHMARK(copyLongText<objectiveCText>)->Name("memcpy/Objective-C")->Unit(benchmark::kMillisecond);
BENCHMARK(measureLongText<objectiveCText>)->Name("measure/Objective-C")->Unit(benchmark::kMillisecond);
BENCHMARK(measureInReadBlocks)
    ->Name("measure/Objective-C in blocks of 64 KiB")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(measureSmallTexts)->Name("measure/Objective-C in texts of 5 kB")->Unit(benchmark::kMillisecond);
BENCHMARK(measureLongText<internationalText>)->Name("measure/international")->Unit(benchmark::kMillisecond);
BENCHMARK(measureLongText<singleLine>)->Name("measure/single line")->Unit(benchmark::kMillisecond);
BENCHMARK(measureLongText<blankLines>)->Name("measure/blank lines")->Unit(benchmark::kMillisecond);
BENCHMARK(measureEmptyText)->Name("measure/empty text");

}  // namespace
