#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"
#include "support/Confinement.h"

namespace quillmeter {
namespace {

using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;

Confinement inForceHere() {
  Confinement result;
  std::thread([&result] { result = confineThread(); }).join();
  return result;
}

TEST(ToolConfinement, SaysWhatIsInForce) {
  const ToolResult result = runTool({"--version", "--verbose"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output,
            runTool({"--version"}).output + "While it reads: " + confinementText(inForceHere()) + "\n");
  EXPECT_EQ(runTool({"--verbose", "measure", "/"}).status, 2);
}

#ifdef QUILLMETER_TRY_FORBIDDEN

/// The names under "Subcommands:" in the help.
std::set<std::string> commandsOfTheTool() {
  std::istringstream help(runTool({"--help"}).output);
  std::set<std::string> names;
  bool isList = false;
  for (std::string line; std::getline(help, line);) {
    if (isList && line.starts_with("  ")) names.insert(line.substr(2, line.find(' ', 2) - 2));
    isList = line == "Subcommands:" || (isList && line.starts_with(" "));
  }
  return names;
}

/// Everything that the tool can be asked for, with an output of its own where it has one.
class ConfinedCommands : public ::testing::Test {
 protected:
  ConfinedCommands() {
    source.file("a.m", "int a;\n");
    source.file("left.m", "int a;\n");
    bundle = testing::writeProject(source, {"a.m"});
    const std::string out = outputs / "out";
    EXPECT_EQ(runTool({"measure", "--format", "json", "-o", outputs / "before.json", bundle}).status, 0);
    commands = {{"measure", bundle},
                {"measure", "-o", out, bundle},
                {"measure", "--rules", "current", QUILLMETER_SOURCE_DIR "/samples/Weather"},
                {"measure", "--baseline", outputs / "before.json", bundle},
                {"cleanup", bundle},
                {"references", bundle},
                {"methods", source / "a.m"},
                {"methods", "--format", "json", source / "a.m", source / "left.m"},
                {"report", "--html", out, bundle},
                {"report", "--html", "-", bundle},
                {"compare", bundle, bundle},
                {"compare", "-o", out, outputs / "before.json", bundle},
                {"compare", outputs / "before.json", outputs / "before.json"},
                {"compare", "-o", out, outputs / "before.json", outputs / "before.json"},
                {"export", "--csv", out, bundle},
                {"export", "--csv", "-", bundle}};
#ifdef QUILLMETER_HAS_APPLICATION
    commands.push_back({"export", "--pdf", out, bundle});
    commands.push_back({"export", "--pdf", "-", bundle});
    commands.push_back({"export", "--pdf", out, "--csv", outputs / "table", bundle});
#endif
  }

  /// Whose references lead anywhere.
  [[nodiscard]] bool readsAProject(const std::vector<std::string>& arguments) const {
    return std::any_of(arguments.begin(), arguments.end(), [this](const std::string& argument) {
      return argument == bundle || argument == QUILLMETER_SOURCE_DIR "/samples/Weather";
    });
  }

  TemporaryFolder source;
  TemporaryFolder outputs;
  std::string bundle;
  std::vector<std::vector<std::string>> commands;
};

TEST_F(ConfinedCommands, AreAllOfTheTool) {
  std::set<std::string> tried;
  for (const auto& arguments : commands)
    tried.insert(arguments.front());
  EXPECT_EQ(tried, commandsOfTheTool()) << "a new command belongs into the list of this test";
}

TEST_F(ConfinedCommands, CanOnlyReadAndWriteTheirOutputs) {
  const Confinement inForce = inForceHere();
  if (inForce.files == 0 || !inForce.network) GTEST_SKIP() << "this kernel cannot confine all of it";
  const std::string forbidden = source / "forbidden";
  const testing::ToolSurroundings surroundings{
      .variables = {"LD_PRELOAD=" QUILLMETER_TRY_FORBIDDEN, "QUILLMETER_FORBIDDEN_FILE=" + forbidden}};
  for (const auto& arguments : commands) {
    const ToolResult result = runTool(arguments, surroundings);
    const std::string said = ::testing::PrintToString(arguments);
    EXPECT_EQ(result.status, 0) << said;
    const std::string tried = std::string("[cannot write][cannot connect][cannot execute]") +
                              (readsAProject(arguments) ? "[read]" : "[cannot read]");
    const bool areTwo = std::find(arguments.begin(), arguments.end(), "--pdf") != arguments.end();
    EXPECT_EQ(result.errors, areTwo ? tried + tried : tried)
        << said << ": the tool, and who makes the report";
    EXPECT_FALSE(std::filesystem::exists(forbidden)) << said;
  }
}

#endif

}  // namespace
}  // namespace quillmeter
