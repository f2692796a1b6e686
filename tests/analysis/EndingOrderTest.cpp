#include "analysis/EndingOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;
using Node = PathTree::Node;

std::string pathOf(const PathTree& tree, Node node) {
  std::string path(tree.name(node));
  while ((node = tree.parent(node)) != PathTree::kNone)
    path = std::string(tree.name(node)) + "/" + path;
  return path;
}

std::set<Node> nodesIn(const EndingOrder& order, EndingOrder::Range range) {
  std::set<Node> nodes;
  for (Node position = range.begin; position < range.end; ++position)
    nodes.insert(order.nodeAt(position));
  return nodes;
}

std::set<Node> nodesThatEndIn(const std::vector<std::string>& paths, const std::string& ending) {
  std::set<Node> nodes;
  for (Node node = 0; node < paths.size(); ++node) {
    const std::string& path = paths[node];
    if (path == ending || path.ends_with("/" + ending)) nodes.insert(node);
  }
  return nodes;
}

/// Compares every ending of every path, and some that no path has, with a look at all paths.
void expectAllEndings(const FolderWalk& walk) {
  const PathTree tree(walk);
  const EndingOrder order(tree);
  std::vector<std::string> paths;
  for (Node node = 0; node < tree.size(); ++node) {
    paths.push_back(pathOf(tree, node));
    ASSERT_EQ(order.nodeAt(order.positionOf(node)), node);
  }
  std::set<std::string> endings = {"", "none", "none/a", "a/none", "/a", "a//a", "a/"};
  for (const std::string& path : paths) {
    for (std::size_t begin = 0; begin != std::string::npos + 1; begin = path.find('/', begin) + 1)
      endings.insert(path.substr(begin));
    endings.insert("x" + path);
    endings.insert("a" + path);
  }
  for (const std::string& ending : endings)
    ASSERT_EQ(nodesIn(order, order.find(ending)), nodesThatEndIn(paths, ending)) << ending;
}

TEST(EndingOrder, FindsAllEndingsOfATreeOfFewNames) {
  for (unsigned seed = 0; seed < 30; ++seed) {
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    const TemporaryFolder folder;
    for (int i = below(60); i > 0; --i) {
      std::string path = "a";
      for (int depth = below(6); depth > 0; --depth)
        path += std::string("/") + "abA"[below(3)];
      folder.folder(path);
    }
    expectAllEndings(FolderWalk(folder.path()));
  }
}

TEST(EndingOrder, FindsAllEndingsOfOneNameInsideItself) {
  const TemporaryFolder folder;
  std::string path = "a";
  for (int i = 0; i < 100; ++i)
    path += "/a";
  folder.folder(path);
  folder.folder("b/" + path);
  expectAllEndings(FolderWalk(folder.path()));
}

TEST(EndingOrder, FindsNothingInAnEmptyWalk) {
  const FolderWalk walk("/missing/folder");
  expectAllEndings(walk);
}

}  // namespace
}  // namespace quillmeter
