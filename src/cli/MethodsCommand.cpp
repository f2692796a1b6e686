#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Commands.h"
#include "cli/JsonWriter.h"
#include "cli/Measurement.h"
#include "cli/MethodCounts.h"
#include "cli/Output.h"
#include "cli/Suggestions.h"
#include "support/CommandConfinement.h"
#include "support/ExitStatus.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

struct MethodsOptions {
  std::vector<std::string> files;
  std::string format = "table";
};

/// What a format does with the result of each file, in the order of the arguments.
class CountsFormat {
 public:
  virtual ~CountsFormat() = default;
  virtual void begin() = 0;
  /// `counts` are absent for a file without a parser and for one that cannot be read.
  virtual void file(const std::string& path, const std::optional<MethodCounts>& counts) = 0;
  virtual void end() = 0;
};

class JsonFormat final : public CountsFormat {
 public:
  explicit JsonFormat(Output& output) : writer_(output) {}

  void begin() override {
    writer_.beginObject();
    writer_.key("files");
    writer_.beginArray();
  }

  void file(const std::string& path, const std::optional<MethodCounts>& counts) override {
    writer_.beginObject();
    writer_.member("filePath", std::string_view(path));
    count("noMethods", counts, &MethodCounts::methods);
    count("noStaticMethods", counts, &MethodCounts::staticMethods);
    count("noInstanceMethods", counts, &MethodCounts::instanceMethods);
    writer_.endObject();
  }

  void end() override {
    writer_.endArray();
    writer_.endObject();
  }

 private:
  void count(std::string_view name, const std::optional<MethodCounts>& counts,
             std::int64_t MethodCounts::*field) {
    writer_.key(name);
    if (counts) {
      writer_.value((*counts).*field);
    } else {
      writer_.null();
    }
  }

  JsonWriter writer_;
};

class TableFormat final : public CountsFormat {
 public:
  explicit TableFormat(Output& output) : output_(output) {}

  void begin() override { row("Instance", "Static", "Methods", "File"); }

  void file(const std::string& path, const std::optional<MethodCounts>& counts) override {
    if (!counts) return row("-", "-", "-", path);
    row(*counts, path);
    sum_.methods += counts->methods;
    sum_.staticMethods += counts->staticMethods;
    sum_.instanceMethods += counts->instanceMethods;
  }

  void end() override { row(sum_, "in sum"); }

 private:
  void row(const MethodCounts& counts, std::string_view label) {
    row(std::to_string(counts.instanceMethods), std::to_string(counts.staticMethods),
        std::to_string(counts.methods), label);
  }

  void row(std::string_view instance, std::string_view staticOnes, std::string_view methods,
           std::string_view label) {
    for (const std::string_view cell : {instance, staticOnes, methods}) {
      constexpr std::size_t width = 8;
      if (cell.size() < width) output_.write(std::string(width - cell.size(), ' '));
      output_.write(cell);
      output_.write("  ");
    }
    output_.write(onOneLine(label));
    output_.write("\n");
  }

  Output& output_;
  MethodCounts sum_;
};

std::unique_ptr<CountsFormat> formatNamed(const std::string& name, Output& output) {
  if (name == "json") return std::make_unique<JsonFormat>(output);
  return std::make_unique<TableFormat>(output);
}

int countMethods(const MethodsOptions& options) {
  confineToInputs(options.files);
  int status = kSuccess;
  Output output(std::nullopt);
  const auto format = formatNamed(options.format, output);
  format->begin();
  for (const std::string& path : options.files) {
    const CountedFile counted = countedFile(path);
    if (counted.obstacle) {
      complain(path + ": " + *counted.obstacle);
      status = kNothingMeasured;
    }
    format->file(path, counted.counts);
  }
  format->end();
  return statusAfter(output, status);
}

}  // namespace

void addMethodsCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<MethodsOptions>();
  CLI::App* command =
      app.add_subcommand("methods", "Count the methods and functions that source files define");
  command->add_option("FILE", options->files, "C, C++ and Objective-C sources: .c, .cpp, .m, .mm")
      ->required();
  command->add_option("--format", options->format, "table: to read; json: to process further")
      ->check(oneOf({"table", "json"}))
      ->capture_default_str();
  command->footer(
      "Functions declared static and methods with a \"+\" count as static, all others as instance\n"
      "methods. A file of another kind has no counts. Exit status 3 when a file cannot be read.\n"
      "\n"
      "Examples:\n"
      "  quillmeter-cli methods Classes/*.m\n"
      "  quillmeter-cli methods --format json main.c | jq '.files[].noMethods'");
  command->callback([options, &status] { status = countMethods(*options); });
}

}  // namespace quillmeter
