#include "app/CommandLine.h"

#include <string_view>

#include "analysis/ProjectChooser.h"
#include "support/Addresses.h"

namespace quillmeter {
namespace {

constexpr auto kHelp =
    "Usage: quillmeter [PROJECT]\n"
    "\n"
    "Measures the source code of an Xcode project and shows the figures in windows.\n"
    "\n"
    "PROJECT is the folder that holds the .xcodeproj bundle, or the bundle itself. Without it the main "
    "screen waits\n"
    "for a project to be opened or dropped.\n"
    "\n"
    "Options:\n"
    "  -h, --help     Show this help and exit\n"
    "      --version  Show the version and exit\n";

}  // namespace

CommandLine readCommandLine(std::span<const char* const> arguments) {
  CommandLine result;
  bool optionsEnded = false;
  for (const std::string_view argument : arguments) {
    const bool option = !optionsEnded && argument.starts_with('-') && argument.size() > 1;
    if (option && argument == "--") {
      optionsEnded = true;
    } else if (option && (argument == "--help" || argument == "-h")) {
      return {.project = {}, .output = kHelp, .error = {}};
    } else if (option && argument == "--version") {
      return {.project = {}, .output = std::string("quillmeter ") + kVersion + "\n", .error = {}};
    } else if (option) {
      result.error = "unknown option: " + std::string(argument);
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
