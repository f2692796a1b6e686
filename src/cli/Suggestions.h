#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

/// What the tool says when it does not understand its user: what is wrong, what was probably meant, and where
/// to read on.
namespace quillmeter {

/// Two lines for standard error: one that names the mistake and the nearest command, option or value, and
/// one that points to the help of the command in question.
[[nodiscard]] std::string wrongUsageMessage(const CLI::App* app, const CLI::Error& error);

/// "'jsno' is none of table, json, did you mean json?"
[[nodiscard]] std::string noneOf(const std::string& word, const std::vector<std::string>& known);

/// Takes one of a few words and names the nearest to any other; the help lists them.
[[nodiscard]] CLI::Validator oneOf(std::vector<std::string> words);

}  // namespace quillmeter
