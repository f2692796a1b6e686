#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "parsers/CPlusPlusParser.h"
#include "parsers/MemoryFile.h"
#include "parsers/ObjectiveCParser.h"
#include "parsers/RegulatorParser.h"

/// How fast the parsers read ordinary sources, and whether hostile ones cost more and grow faster than their
/// size. The files lie in memory, so that only the parsers are measured.
namespace quillmeter {
namespace {

using testing::MemoryFile;

std::string repeated(std::string_view piece, std::size_t bytes) {
  std::string text;
  text.reserve(bytes + piece.size());
  while (text.size() < bytes)
    text += piece;
  return text;
}

constexpr std::string_view kCSource = R"(
/*
 * Keeps the items of a list in order.
 */
#include <stdio.h>
#include "list.h"

#define LIMIT 100

struct item {
    const char *name;   /* not owned */
    struct item *next;
};

static int compare(struct item *left, struct item *right)
{
    // names first, then addresses
    int order = strcmp(left->name, right->name);
    if (order != 0) {
        return order < 0 ? -1 : 1;
    } else if (left == right) {
        return 0;
    }
    for (int i = 0; i < LIMIT; ++i) {
        printf("%d: %s, %s\n", i, left->name, right->name);
    }
    return left < right ? -1 : 1;
}

int insert(List *list, Item *item, int position) {
    while (position-- > 0 && list->next) {
        list = list->next; // walk on
    }
    return list == NULL ? EINVAL : link(list, item);
}
)";

constexpr std::string_view kObjectiveCSource = R"(
//  Shape.m
#import "Shape.h"

static NSString *describe(Shape *shape, int depth) {
    return [NSString stringWithFormat:@"%@ %d", [shape name], depth];
}

@implementation Shape

@synthesize name;

- (id)initWithName:(NSString *)aName sides:(int)count {
    self = [super init];
    if (self) {
        name = [aName copy];
        sides = count - 1;
    }
    return self;
}

+ (Shape *)shape
{
    // the caller releases it
    return [[[Shape alloc] initWithName:@"shape" sides:4] autorelease];
}

- (void)drawInRect:(NSRect)rect
           context:(CGContextRef)context
{
    for (int i = 0; i < sides; i++) {
        CGContextAddLineToPoint(context, points[i].x - rect.origin.x, points[i].y - rect.origin.y);
    }
}

@end
)";

constexpr std::size_t kMegabyte = 1'000'000;

/// The hostile shapes of text, each made to keep a search of one of the patterns going.
const std::map<std::string, std::string (*)(std::size_t)>& hostileSources() {
  static const std::map<std::string, std::string (*)(std::size_t)> sources = {
      {"prototypes",
       [](std::size_t size) {
         return repeated("int f(int a, char *b, char c[2], int d, long e, int g, int h, unsigned int i);\n",
                         size);
       }},
      {"one_word", [](std::size_t size) { return std::string(size, 'a'); }},
      {"nested_brackets", [](std::size_t size) { return repeated("int f(int a[[[[[[, b[3][4]((", size); }},
      {"unclosed_parameters",
       [](std::size_t size) { return "int f(" + repeated("int a, char *b[2] , ", size); }},
      {"blank_lines", [](std::size_t size) { return "int f(int a) {" + std::string(size, '\n'); }},
      {"blanks", [](std::size_t size) { return "int f" + std::string(size, ' ') + "(int a) {"; }},
      {"words", [](std::size_t size) { return repeated("a b ", size); }},
      {"stars", [](std::size_t size) { return "int " + std::string(size, '*'); }},
      {"braces", [](std::size_t size) { return std::string(size, '{'); }},
      {"short_functions", [](std::size_t size) { return repeated("a b(){", size); }},
      {"begins", [](std::size_t size) { return repeated("-\n", size); }},
      {"candidates", [](std::size_t size) { return repeated("-{\n", size); }},
      {"methods", [](std::size_t size) { return repeated("-(a)b{\n", size); }},
      {"endless_method",
       [](std::size_t size) { return "- (void)draw" + repeated(":(int)a\n", size) + "{\n"; }},
      {"spoiled_method",
       [](std::size_t size) { return "- (void)draw;\n" + repeated("    x = y; // none\n", size) + "{\n"; }},
      {"wide_blanks", [](std::size_t size) { return "- (void)draw\n" + repeated("\u3000", size) + "\n{\n"; }},
      {"not_text", [](std::size_t size) { return "- (void)draw\n" + std::string(size, '\xE3') + "{\n"; }},
  };
  return sources;
}

void measure(benchmark::State& state, const std::string& source, const std::string& name) {
  const MemoryFile file(source);
  std::int64_t methods = 0;
  for (auto _ : state) {
    RegulatorParser parser(file);
    methods = parser.parseFile(name)->noMethods();
    benchmark::DoNotOptimize(methods);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(source.size()) * state.iterations());
  state.counters["methods"] = static_cast<double>(methods);
}

void registerAll() {
  benchmark::RegisterBenchmark("ordinary/c", [](benchmark::State& state) {
    measure(state, repeated(kCSource, 10 * kMegabyte), "ordinary.c");
  });
  benchmark::RegisterBenchmark("ordinary/objective_c", [](benchmark::State& state) {
    measure(state, repeated(kObjectiveCSource, 10 * kMegabyte), "ordinary.m");
  });
  for (const auto& [name, make] : hostileSources()) {
    benchmark::RegisterBenchmark(("hostile/" + name).c_str(),
                                 [make = make](benchmark::State& state) {
                                   measure(state, make(static_cast<std::size_t>(state.range(0)) * kMegabyte),
                                           "hostile.m");
                                 })
        ->Arg(1)
        ->Arg(5)
        ->Arg(30);
  }
}

}  // namespace
}  // namespace quillmeter

int main(int argc, char** argv) {
  quillmeter::registerAll();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
