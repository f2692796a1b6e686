#include "xcode/ObjectGraph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillmeter {
namespace {

using ::testing::ElementsAre;

ObjectGraph graphOf(std::string_view objects, std::string_view root = "r") {
  auto result = ObjectGraph::read("{objects = {" + std::string(objects) +
                                  "}; rootObject = " + std::string(root) + ";}");
  return std::get<ObjectGraph>(std::move(result));
}

std::string graphFaultOf(std::string_view text) {
  const auto result = ObjectGraph::read(std::string(text));
  const auto* fault = std::get_if<PropertyListFault>(&result);
  return fault != nullptr ? std::to_string(fault->line) + ": " + fault->expected : "";
}

TEST(ObjectGraph, FindsObjectsByIdentifier) {
  const ObjectGraph graph = graphOf("r = {isa = PBXProject; }; a = {isa = PBXGroup; name = n; };");
  ASSERT_TRUE(graph.root());
  EXPECT_EQ(graph.root()->isa(), "PBXProject");
  EXPECT_EQ(graph.object("a")->identifier(), "a");
  EXPECT_EQ(graph.object("a")->text("name"), "n");
  EXPECT_FALSE(graph.object("b"));
}

TEST(ObjectGraph, FollowsWhatAnObjectNamesAndLists) {
  const ObjectGraph graph = graphOf("r = {one = a; many = (b, nowhere, a, {}, b);}; a = {}; b = {};");
  EXPECT_EQ(graph.root()->object("one")->identifier(), "a");
  std::vector<std::string> listed;
  graph.root()->objects("many").forEach(
      [&](const ObjectGraph::Object& object) { listed.emplace_back(object.identifier()); });
  EXPECT_THAT(listed, ElementsAre("b", "a", "b"));
}

TEST(ObjectGraph, TakesValuesOfTheWrongTypeForAbsent) {
  const ObjectGraph graph = graphOf("r = {isa = (x); text = {}; one = (a); many = a; data = <00>;}; a = b;");
  EXPECT_EQ(graph.root()->isa(), "");
  EXPECT_FALSE(graph.root()->text("text"));
  EXPECT_FALSE(graph.root()->text("data"));
  EXPECT_FALSE(graph.root()->object("one"));
  EXPECT_EQ(graph.root()->objects("many").size(), 0U);
  EXPECT_FALSE(graph.root()->array("many"));
  EXPECT_FALSE(graph.object("a")) << "an object is a dictionary";
}

TEST(ObjectGraph, TellsEmptyTextsApart) {
  const ObjectGraph graph = graphOf("r = {empty = \"\"; full = x;};");
  EXPECT_EQ(graph.root()->text("empty"), "");
  EXPECT_FALSE(graph.root()->nonEmptyText("empty"));
  EXPECT_EQ(graph.root()->nonEmptyText("full"), "x");
}

TEST(ObjectGraph, KeepsTheLastOfTwoObjectsOfOneIdentifier) {
  EXPECT_EQ(graphOf("r = {isa = old;}; r = {isa = new;};").root()->isa(), "new");
}

TEST(ObjectGraph, MayHaveARootThatLeadsNowhere) {
  EXPECT_FALSE(graphOf("a = {};", "nowhere").root());
  EXPECT_FALSE(graphOf("a = {};", "\"\"").root());
}

TEST(ObjectGraph, NeedsADictionaryOfObjectsAndTheNameOfARoot) {
  EXPECT_EQ(graphFaultOf("\n{rootObject = a;}"), "1: expected a dictionary called 'objects'");
  EXPECT_EQ(graphFaultOf("{objects = (); rootObject = a;}"), "1: expected a dictionary called 'objects'");
  EXPECT_EQ(graphFaultOf("\n(a)"), "1: expected a dictionary called 'objects'");
  EXPECT_EQ(graphFaultOf("{objects = {};}"), "1: expected a string called 'rootObject'");
  EXPECT_EQ(graphFaultOf("{objects = {}; rootObject = (a);}"), "1: expected a string called 'rootObject'");
  EXPECT_EQ(graphFaultOf("{\nobjects"), "2: expected '=' after the key");
}

}  // namespace
}  // namespace quillmeter
