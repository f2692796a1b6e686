#include "cli/Suggestions.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "support/NearestWord.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words)
    text += (text.empty() ? "" : ", ") + word;
  return text;
}

std::string inQuotes(std::string_view text) {
  return "'" + onOneLine(text) + "'";
}

/// ", did you mean X?", or `otherwise`.
std::string question(const std::string& word, const std::vector<std::string>& known,
                     const std::string& otherwise) {
  const auto nearest = nearestWord(word, known);
  return nearest ? ", did you mean " + *nearest + "?" : otherwise;
}

std::vector<std::string> commandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({}))
    names.push_back(command->get_name());
  return names;
}

std::vector<std::string> optionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames())
      names.push_back("--" + name);
    for (const std::string& name : option->get_snames())
      names.push_back("-" + name);
  }
  return names;
}

bool hasOption(const CLI::App& command, const std::string& name) {
  const std::vector<std::string> known = optionNames(command);
  return std::find(known.begin(), known.end(), name) != known.end();
}

bool exists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

/// What the library left over because nothing takes it; an option before anything else.
std::optional<std::string> leftOver(const CLI::App& app) {
  const std::vector<std::string> words = app.remaining(true);
  if (words.empty()) return std::nullopt;
  const auto option = std::find_if(words.begin(), words.end(),
                                   [](const std::string& word) { return word.size() > 1 && word[0] == '-'; });
  return option != words.end() ? *option : words.front();
}

/// The words that an option takes, which its type shows as "{table,json}"; none where it takes any.
std::vector<std::string> valuesOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t begin = type.find('{');
  const std::size_t end = type.find('}');
  if (begin == std::string::npos || end == std::string::npos) return {};
  return CLI::detail::split(type.substr(begin + 1, end - begin - 1), ',');
}

/// What somebody meant who wrote a value or the first letter of an option as an option of its own: "--json"
/// for "--format json", "-v" for "--version". Empty when it is neither.
std::string meantBy(const std::string& name, const CLI::App& command) {
  std::string meant;
  for (const CLI::Option* option : command.get_options()) {
    const std::string longName = option->get_lnames().empty() ? "" : option->get_lnames().front();
    if (longName.empty()) continue;
    const std::vector<std::string> values = valuesOf(*option);
    const bool isFirstLetter =
        name.size() == 2 && name[1] != '-' && lowerCased(longName).starts_with(lowerCased(name.substr(1)));
    const bool isValue =
        name.starts_with("--") && std::find(values.begin(), values.end(), name.substr(2)) != values.end();
    if (!isFirstLetter && !isValue) continue;
    meant += (meant.empty() ? "--" : " or --") + longName + (isValue ? " " + name.substr(2) : "");
  }
  return meant;
}

/// ", it belongs to X, Y", the commands that have an option of that long name; nothing when none has.
std::string owners(const std::string& name, const CLI::App& app) {
  if (!name.starts_with("--")) return "";
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) {
    if (hasOption(*command, name)) names.push_back(command->get_name());
  }
  return names.empty() ? "" : ", it belongs to " + joined(names);
}

/// What is wrong with an option that nothing takes where it stands.
std::string misplacedOption(const std::string& word, const CLI::App& app, const CLI::App& command) {
  const std::string name = word.substr(0, word.find('='));
  if (hasOption(command, name))
    return name + " belongs behind the command: '" + command.get_name() + " " + name + "'";
  const std::string wrong = "there is no option " + onOneLine(name);
  if (const std::string meant = meantBy(name, command); !meant.empty())
    return wrong + ", did you mean " + meant + "?";
  const std::string others = owners(name, app);
  return wrong + (others.empty() ? question(name, optionNames(command), "") : others);
}

std::string noCommand(const std::string& word, const CLI::App& app) {
  const std::vector<std::string> names = commandNames(app);
  std::string others = ", there are " + joined(names);
  if (exists(word)) others = ", did you mean 'measure " + onOneLine(word) + "'?";
  if (const auto option = nearestWord("--" + word, optionNames(app)))
    others = ", did you mean " + *option + "?";
  return "there is no command " + inQuotes(word) + question(word, names, others);
}

bool isError(const CLI::Error& error, CLI::ExitCodes code) {
  return error.get_exit_code() == static_cast<int>(code);
}

/// The library's own words on an error, on one line and without its terms for types.
std::string libraryMessage(const CLI::Error& error, const CLI::App& command) {
  std::string text = onOneLine(error.what());
  if (isError(error, CLI::ExitCodes::RequiredError)) {
    for (const CLI::Option* option : command.get_options()) {
      if (!option->get_required() || option->count() > 0) continue;
      return option->get_name() + " is missing: " + onOneLine(option->get_description());
    }
  }
  if (isError(error, CLI::ExitCodes::ArgumentMismatch)) {
    const bool hasTooMany = text.find("At Most") != std::string::npos;
    return text.substr(0, text.find(':')) + (hasTooMany ? " can be given once" : " needs a value");
  }
  return text;
}

std::string mistake(const CLI::App& app, const CLI::App& command, const CLI::Error& error) {
  const bool hasCommand = &command != &app;
  if (const auto word = leftOver(app)) {
    if (word->size() > 1 && word->front() == '-') return misplacedOption(*word, app, command);
    if (!hasCommand) return noCommand(*word, app);
    if (*word == "help")
      return "there is no command 'help', did you mean '" + command.get_name() + " --help'?";
    if (isError(error, CLI::ExitCodes::ExtrasError)) return inQuotes(*word) + " is one argument too many";
  }
  if (!hasCommand && isError(error, CLI::ExitCodes::RequiredError)) {
    return "a command is missing, there are " + joined(commandNames(app));
  }
  return libraryMessage(error, command);
}

}  // namespace

std::string wrongUsageMessage(const CLI::App* app, const CLI::Error& error) {
  const std::vector<CLI::App*> chosen = app->get_subcommands();
  const CLI::App& command = chosen.empty() ? *app : *chosen.front();
  const std::string whose = chosen.empty() ? "" : command.get_name() + " ";
  return app->get_name() + ": " + (chosen.empty() ? "" : command.get_name() + ": ") +
         mistake(*app, command, error) + "\nRun '" + app->get_name() + " " + whose +
         "--help' to see how it is used.\n";
}

std::string noneOf(const std::string& word, const std::vector<std::string>& known) {
  return inQuotes(word) + " is none of " + joined(known) + question(word, known, "");
}

CLI::Validator oneOf(std::vector<std::string> words) {
  const std::string description = "{" + CLI::detail::join(words, ",") + "}";
  return {[words = std::move(words)](std::string& value) {
            if (std::find(words.begin(), words.end(), value) != words.end()) return std::string();
            return noneOf(value, words);
          },
          description};
}

}  // namespace quillmeter
