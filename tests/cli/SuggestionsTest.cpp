#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/RunTool.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::runTool;

/// The one line that names the mistake; the other points to `help`.
std::string mistake(const std::vector<std::string>& arguments, const std::string& help) {
  const testing::ToolResult result = runTool(arguments);
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.output, "");
  const std::string prefix = "quillmeter-cli: ";
  const std::string pointer = "\nRun 'quillmeter-cli " + help + "' to see how it is used.\n";
  EXPECT_TRUE(result.errors.starts_with(prefix) && result.errors.ends_with(pointer)) << result.errors;
  const std::string line =
      result.errors.substr(prefix.size(), result.errors.size() - prefix.size() - pointer.size());
  EXPECT_EQ(line.find('\n'), std::string::npos) << line;
  return line;
}

TEST(Suggestions, AWrongCommandNamesTheNearest) {
  EXPECT_EQ(mistake({"mesure", "."}, "--help"), "there is no command 'mesure', did you mean measure?");
  EXPECT_EQ(mistake({"comp"}, "--help"), "there is no command 'comp', did you mean compare?");
  EXPECT_EQ(mistake({"help"}, "--help"), "there is no command 'help', did you mean --help?");
  EXPECT_EQ(mistake({"zebra"}, "--help"),
            "there is no command 'zebra', there are measure, compare, cleanup, export, references, report, "
            "methods");
  EXPECT_EQ(mistake({"two\nlines"}, "--help").find("there is no command 'two lines'"), 0U);
}

TEST(Suggestions, AProjectInPlaceOfACommandIsToBeMeasured) {
  const testing::TemporaryFolder folder;
  EXPECT_EQ(mistake({folder.path()}, "--help"),
            "there is no command '" + folder.path() + "', did you mean 'measure " + folder.path() + "'?");
}

TEST(Suggestions, AMissingCommandNamesAll) {
  EXPECT_EQ(mistake({}, "--help"),
            "a command is missing, there are measure, compare, cleanup, export, references, report, methods");
}

TEST(Suggestions, AnUnknownOptionNamesTheNearestOfItsCommand) {
  EXPECT_EQ(mistake({"measure", "--fromat", "json", "/"}, "measure --help"),
            "measure: there is no option --fromat, did you mean --format?");
  EXPECT_EQ(mistake({"measure", "--fromat=json", "/"}, "measure --help"),
            "measure: there is no option --fromat, did you mean --format?");
  EXPECT_EQ(mistake({"measure", "--fmt", "json", "/"}, "measure --help"),
            "measure: there is no option --fmt, did you mean --format?");
  EXPECT_EQ(mistake({"cleanup", "--chek", "/"}, "cleanup --help"),
            "cleanup: there is no option --chek, did you mean --check?");
  EXPECT_EQ(mistake({"measure", "--zebra", "/"}, "measure --help"), "measure: there is no option --zebra");
  EXPECT_EQ(mistake({"--versoin"}, "--help"), "there is no option --versoin, did you mean --version?");
}

TEST(Suggestions, AnOptionOfAnotherCommandNamesThatCommand) {
  EXPECT_EQ(mistake({"report", "--pdf", "a.pdf", "/"}, "report --help"),
            "report: there is no option --pdf, it belongs to export");
  EXPECT_EQ(mistake({"cleanup", "--output=a", "/"}, "cleanup --help"),
            "cleanup: there is no option --output, it belongs to measure, compare");
  EXPECT_EQ(mistake({"--baseline", "a", "/"}, "--help"),
            "there is no option --baseline, it belongs to measure");
}

TEST(Suggestions, AnOptionBeforeItsCommandIsSentBehindIt) {
  EXPECT_EQ(mistake({"--format", "json", "measure", "/"}, "measure --help"),
            "measure: --format belongs behind the command: 'measure --format'");
}

TEST(Suggestions, AValueInPlaceOfItsOptionNamesBoth) {
  EXPECT_EQ(mistake({"measure", "--json", "/"}, "measure --help"),
            "measure: there is no option --json, did you mean --format json?");
  EXPECT_EQ(mistake({"cleanup", "--current", "/"}, "cleanup --help"),
            "cleanup: there is no option --current, did you mean --rules current?");
}

TEST(Suggestions, ALetterNamesTheOptionsThatBeginSo) {
  EXPECT_EQ(mistake({"-V"}, "--help"), "there is no option -V, did you mean --verbose or --version?");
  EXPECT_EQ(mistake({"measure", "-f", "json", "/"}, "measure --help"),
            "measure: there is no option -f, did you mean --format or --fail-if?");
  EXPECT_EQ(mistake({"measure", "-z", "/"}, "measure --help"), "measure: there is no option -z");
}

TEST(Suggestions, HelpForACommandIsAnOptionOfIt) {
  EXPECT_EQ(mistake({"help", "measure"}, "measure --help"),
            "measure: there is no command 'help', did you mean 'measure --help'?");
}

TEST(Suggestions, AMissingArgumentIsNamedAndExplained) {
  EXPECT_EQ(mistake({"measure"}, "measure --help"),
            "measure: PROJECT is missing: A folder that holds an .xcodeproj bundle, or the bundle");
  EXPECT_EQ(mistake({"compare", "old.json"}, "compare --help"),
            "compare: NEW is missing: What is: a JSON file of 'measure', or a project");
  EXPECT_EQ(mistake({"measure", "/", "--format"}, "measure --help"), "measure: --format needs a value");
}

TEST(Suggestions, AnOptionThatIsGivenTwiceHasNotLostItsValue) {
  EXPECT_EQ(mistake({"measure", "-o", "a", "--output", "b", "/"}, "measure --help"),
            "measure: --output can be given once");
}

TEST(Suggestions, OneArgumentTooManyIsNamed) {
  EXPECT_EQ(mistake({"measure", "a", "b"}, "measure --help"), "measure: 'b' is one argument too many");
}

TEST(Suggestions, AWrongValueNamesTheNearest) {
  for (const std::string command : {"measure", "cleanup", "methods"}) {
    const std::string line = mistake({command, "--format", "jsno", "/"}, command + " --help");
    EXPECT_EQ(line.find(command + ": --format: 'jsno' is none of table, "), 0U) << line;
    EXPECT_TRUE(line.ends_with(", did you mean json?")) << line;
  }
}

TEST(Suggestions, AWrongLimitSaysWhatIsUnderstood) {
  EXPECT_EQ(
      mistake({"measure", "--fail-if", "noLineTotal>5", "/"}, "measure --help"),
      "measure: --fail-if: 'noLineTotal>5' is no limit: there is no number 'noLineTotal' (did you mean "
      "noLinesTotal?); a limit is written like noLinesTotal>2000, noLinesTotal>+5% or file:noLinesTotal>800");
}

TEST(Suggestions, ALimitThatTheShellTookItsSignFromAsksForQuotes) {
  EXPECT_EQ(
      mistake({"measure", "--fail-if", "noLinesTotal", "/"}, "measure --help"),
      "measure: --fail-if: 'noLinesTotal' is no limit: it has none of > >= < <=, which a shell keeps for "
      "itself unless the limit is in quotes; a limit is written like noLinesTotal>2000, noLinesTotal>+5% "
      "or file:noLinesTotal>800");
}

}  // namespace
}  // namespace quillmeter
