#include "app/CommandLine.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "analysis/ProjectChooser.h"
#include "support/Addresses.h"
#include "support/NearestWord.h"

namespace quillmeter {
namespace {

constexpr auto kHelp =
    "Usage: quillmeter [--rules classic|current] [PROJECT]\n"
    "\n"
    "Measures the source code of an Xcode project and shows the figures in windows.\n"
    "\n"
    "PROJECT is the folder that holds the .xcodeproj bundle, or the bundle itself. Without it the main "
    "screen waits\n"
    "for a project to be opened or dropped.\n"
    "\n"
    "Options:\n"
    "      --rules RULES  Which files a project has: by the classic rules, or by the current ones (Swift,\n"
    "                     storyboards, folders and packages, too); without it those chosen last\n"
    "  -h, --help         Show this help and exit\n"
    "      --version      Show the version and exit\n";

/// The toolkit's options that take the argument behind them, and those that stand alone. It takes each with
/// one dash or two.
constexpr std::array<std::string_view, 15> kToolkitOptionsWithValue{
    "display",         "geometry",           "icon",          "name",
    "platform",        "platformpluginpath", "platformtheme", "plugin",
    "qwindowgeometry", "qwindowicon",        "qwindowtitle",  "session",
    "style",           "stylesheet",         "title"};
constexpr std::array<std::string_view, 4> kToolkitFlags{"dograb", "nograb", "reverse", "widgetcount"};

enum class ToolkitOption { none, flag, withValue };

ToolkitOption toolkitOption(std::string_view argument) {
  argument.remove_prefix(argument.starts_with("--") ? 2 : 1);
  const auto isIn = [argument](const auto& names) {
    return std::find(names.begin(), names.end(), argument) != names.end();
  };
  if (isIn(kToolkitOptionsWithValue)) return ToolkitOption::withValue;
  const bool hasItsValue = argument.starts_with("style=") || argument.starts_with("stylesheet=");
  return hasItsValue || isIn(kToolkitFlags) ? ToolkitOption::flag : ToolkitOption::none;
}

constexpr std::string_view kRules = "--rules";

bool asksForRules(std::string_view argument) {
  return argument == kRules ||
         (argument.starts_with(kRules) && argument.substr(kRules.size()).starts_with('='));
}

std::string unknownOption(std::string_view argument) {
  const std::array<std::string, 3> known{std::string(kRules), "--help", "--version"};
  const auto nearest = nearestWord(argument.substr(0, argument.find('=')), known);
  return "unknown option: " + std::string(argument) + (nearest ? ", did you mean " + *nearest + "?" : "");
}

CommandLine withOutput(std::string output) {
  CommandLine result;
  result.output = std::move(output);
  return result;
}

}  // namespace

CommandLine readCommandLine(std::span<const char* const> arguments) {
  CommandLine result;
  bool optionsEnded = false;
  for (std::size_t at = 0; at < arguments.size(); ++at) {
    const std::string_view argument = arguments[at];
    const bool option = !optionsEnded && argument.starts_with('-') && argument.size() > 1;
    const ToolkitOption toolkit = option ? toolkitOption(argument) : ToolkitOption::none;
    if (option && argument == "--") {
      optionsEnded = true;
    } else if (option && (argument == "--help" || argument == "-h")) {
      return withOutput(kHelp);
    } else if (option && argument == "--version") {
      return withOutput(std::string("quillmeter ") + kVersion + "\n");
    } else if (option && asksForRules(argument)) {
      const bool isNext = argument == kRules;
      const std::string_view name = !isNext                     ? argument.substr(kRules.size() + 1)
                                    : at + 1 < arguments.size() ? arguments[++at]
                                                                : std::string_view();
      result.rules = rulesNamed(name);
      if (!result.rules) {
        result.error = "--rules takes classic or current";
        return result;
      }
    } else if (toolkit == ToolkitOption::withValue && at + 1 == arguments.size()) {
      result.error = std::string(argument) + " needs a value";
      return result;
    } else if (toolkit != ToolkitOption::none) {
      result.toolkitArguments.emplace_back(argument);
      if (toolkit == ToolkitOption::withValue) result.toolkitArguments.emplace_back(arguments[++at]);
    } else if (option) {
      result.error = unknownOption(argument);
      return result;
    } else if (result.project) {
      result.error = "only one project can be opened";
      return result;
    } else if (argument.empty()) {
      result.error = "the project's path is empty";
      return result;
    } else {
      result.project = absoluteFolder(std::string(argument));
    }
  }
  return result;
}

}  // namespace quillmeter
