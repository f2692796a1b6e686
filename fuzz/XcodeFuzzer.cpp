#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "xcode/GroupWalk.h"
#include "xcode/ObjectGraph.h"
#include "xcode/ProjectFiles.h"
#include "xcode/ProjectTargets.h"
#include "xcode/PropertyList.h"

/// The input is a project description. What the parser takes is written out and must read back as the same;
/// then the groups and targets of its graph are gone through, with made-up files where it refers to any, so
/// that the disk is never touched.

namespace {

using quillmeter::ObjectGraph;
using quillmeter::ProjectFiles;
using quillmeter::PropertyList;
using quillmeter::PropertyListFault;

void require(bool condition) {
  if (!condition) std::abort();
}

void write(std::string& text, std::string_view string) {
  text += '"';
  for (const char c : string) {
    if (c == '"' || c == '\\') text += '\\';
    text += c;
  }
  text += '"';
}

void write(std::string& text, const PropertyList::Value& value) {
  if (value.isString()) return write(text, value.text());
  if (!value.isArray() && !value.isDictionary()) {
    text.append("<").append(value.text()).append(">");
    return;
  }
  text += value.isArray() ? '(' : '{';
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value.isDictionary()) {
      write(text, value.key(i));
      require(value.indexOf(value.key(i)) >= i);
    }
    text += value.isDictionary() ? "=" : "";
    write(text, value.at(i));
    text += value.isArray() ? ',' : ';';
  }
  text += value.isArray() ? ')' : '}';
}

std::string written(const PropertyList& list) {
  std::string text;
  write(text, list.root());
  return text;
}

std::size_t linesOf(std::string_view text) {
  std::size_t lines = 1;
  for (const char c : text)
    lines += c == '\n' || c == '\r' ? 1U : 0U;
  return lines;
}

void parseAndReadBack(const std::string& text) {
  const auto parsed = PropertyList::parse(text);
  if (const auto* fault = std::get_if<PropertyListFault>(&parsed)) {
    require(fault->line >= 1 && fault->line <= linesOf(text) && !fault->expected.empty());
    return;
  }
  const std::string first = written(std::get<PropertyList>(parsed));
  const auto again = PropertyList::parse(first);
  require(std::holds_alternative<PropertyList>(again));
  require(written(std::get<PropertyList>(again)) == first);
}

/// Takes it that each reference leads to a file, and each synchronised group to a folder with a few.
class MadeUpFiles final : public quillmeter::ReferenceSink {
 public:
  explicit MadeUpFiles(const ObjectGraph& graph) { files.references.resize(graph.size()); }

  void referenced(const ObjectGraph::Object& reference,
                  const quillmeter::ReferencedLocation& location) override {
    checkLocation(location.path);
    files.references[reference.index()] = origin({location.path});
  }
  void synchronised(const ObjectGraph::Object& group,
                    const quillmeter::ReferencedLocation& location) override {
    checkLocation(location.path);
    const std::string folder = location.path == "/" ? "" : location.path;
    files.synchronisedFolders.push_back(
        {group, location.path,
         origin({folder + "/a", folder + "/a/b", folder + "/a/en.lproj/b", folder + "/en.lproj/a"})});
  }

  ProjectFiles files;

 private:
  static void checkLocation(std::string_view location) {
    require(location.starts_with('/') && location.find("//") == std::string_view::npos);
    require(location == "/" || !location.ends_with('/'));
  }
  ProjectFiles::Origin origin(std::initializer_list<std::string> paths) {
    const auto first = static_cast<std::uint32_t>(files.appearances.size());
    for (const std::string& path : paths) {
      files.appearances.push_back(static_cast<std::uint32_t>(files.files.size()));
      files.files.push_back(path);
    }
    return {first, static_cast<std::uint32_t>(paths.size())};
  }
};

void followReferences(const std::string& text) {
  const auto read = ObjectGraph::read(text);
  if (!std::holds_alternative<ObjectGraph>(read)) return;
  const auto& graph = std::get<ObjectGraph>(read);
  MadeUpFiles sink(graph);
  const auto root = graph.root();
  const auto mainGroup = root ? root->object("mainGroup") : std::nullopt;
  const std::string folder = quillmeter::projectFolderOf(graph, "/w/app");
  if (mainGroup) quillmeter::GroupWalk(graph, folder, sink).walk(*mainGroup);
  for (const auto& target : quillmeter::projectTargetsOf(graph, sink.files))
    for (std::size_t i = 0; i < target.files.size(); ++i)
      require(target.files[i] < sink.files.files.size() && (i == 0 || target.files[i - 1] < target.files[i]));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  parseAndReadBack(text);
  followReferences(text);
  return 0;
}
