#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "helpers/TemporaryFolder.h"
#include "xcode/CurrentProject.h"

namespace quillmeter::testing {

/// An object of a description: its identifier and what stands between its braces.
using DescribedObject = std::pair<std::string, std::string>;

/// A description whose root object has `rootEntries` and a main group "main" with `children`.
inline std::string descriptionText(const std::string& children, const std::vector<DescribedObject>& objects,
                                   const std::string& rootEntries = {}) {
  std::string text = "// !$*UTF8*$!\n{\n\tobjects = {\n";
  text += "\t\troot = {isa = PBXProject; mainGroup = main; " + rootEntries + "};\n";
  text += "\t\tmain = {isa = PBXGroup; children = (" + children + "); sourceTree = \"<group>\"; };\n";
  for (const auto& [identifier, entries] : objects)
    text += "\t\t" + identifier + " = {" + entries + "};\n";
  return text + "\t};\n\trootObject = root;\n}\n";
}

/// A file reference to a path, from the group it lies in.
inline DescribedObject fileReference(const std::string& identifier, const std::string& path,
                                     const std::string& sourceTree = "<group>") {
  return {identifier,
          "isa = PBXFileReference; path = \"" + path + "\"; sourceTree = \"" + sourceTree + "\"; "};
}

inline DescribedObject group(const std::string& identifier, const std::string& children,
                             const std::string& more = {}) {
  return {identifier, "isa = PBXGroup; children = (" + children + "); sourceTree = \"<group>\"; " + more};
}

inline DescribedObject synchronisedGroup(const std::string& identifier, const std::string& path,
                                         const std::string& more = {}) {
  return {identifier, "isa = PBXFileSystemSynchronizedRootGroup; path = \"" + path +
                          "\"; sourceTree = \"<group>\"; " + more};
}

/// A project in a folder of its own, "work/app" below a temporary one, so that there is something above it.
class DescribedProject : public ::testing::Test {
 protected:
  using Strings = std::vector<std::string>;

  std::string folder(std::string_view relative = {}) const {
    return disk_ / "work/app" + (relative.empty() ? "" : "/" + std::string(relative));
  }
  void file(const std::string& relative, std::string_view content = {}) const {
    disk_.file("work/app/" + relative, content);
  }

  void writeText(std::string_view text) const { file("App.xcodeproj/project.pbxproj", text); }
  void readText(std::string_view text) {
    writeText(text);
    project_.parseFileAtPathAndDelegate(folder("App.xcodeproj"), nullptr);
  }
  void read(const std::string& children, const std::vector<DescribedObject>& objects,
            const std::string& rootEntries = {}) {
    readText(descriptionText(children, objects, rootEntries));
    EXPECT_EQ(project_.findings().error, "");
  }

  /// A path below the project's folder without that, any other below the temporary one with "//" before it.
  std::string shown(const std::string& path) const {
    const std::string above = disk_.path() + "/";
    if (path.starts_with(folder() + "/")) return path.substr(folder().size() + 1);
    return path.starts_with(above) ? "//" + path.substr(above.size()) : path;
  }
  Strings files() const {
    Strings paths;
    for (const auto& file : project_.files())
      paths.push_back(shown(*file->filePath()));
    return paths;
  }
  Strings missing() const {
    Strings lines;
    for (const auto& reference : project_.findings().missing)
      lines.push_back(reference.identifier + " " + shown(reference.location));
    return lines;
  }
  Strings otherCase() const {
    Strings lines;
    for (const auto& reference : project_.findings().otherCase)
      lines.push_back(reference.identifier + " " + shown(reference.location) + " is " +
                      shown(reference.path));
    return lines;
  }
  std::map<std::string, std::size_t> other() const {
    return {project_.findings().other.begin(), project_.findings().other.end()};
  }
  Strings unreferenced() const {
    Strings paths;
    for (const auto& file : project_.unreferencedFiles())
      paths.push_back(shown(*file->filePath()));
    return paths;
  }
  /// The files of a target by its name; fails when there is none.
  Strings target(const std::string& name) const {
    const auto found = std::find_if(project_.findings().targets.begin(), project_.findings().targets.end(),
                                    [&](const ProjectTarget& target) { return target.name == name; });
    EXPECT_NE(found, project_.findings().targets.end()) << name;
    Strings paths;
    if (found == project_.findings().targets.end()) return paths;
    for (const auto index : found->files)
      paths.push_back(files().at(index));
    return paths;
  }

  TemporaryFolder disk_;
  CurrentProject project_;
};

}  // namespace quillmeter::testing
