#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "analysis/ParseProject.h"
#include "files/FileSystem.h"
#include "helpers/TemporaryFolder.h"
#include "measuring/FileObject.h"

namespace quillmeter::testing {

/// A record as the reader would make it, without a file on disk. Counters left negative stay absent.
struct RecordValues {
  std::string name;
  std::int64_t size = 0;
  std::int64_t lines = 0;
  std::int64_t linesWithoutSpaces = 0;
  std::int64_t comments = 0;
  std::int64_t words = 0;
  std::int64_t characters = 0;
  std::string folder = "/project";
};

inline std::shared_ptr<FileObject> record(const RecordValues& values) {
  const auto number = [](std::int64_t value) {
    return value < 0 ? std::optional<Number>() : std::optional<Number>(Number(value));
  };
  auto file = std::make_shared<FileObject>();
  file->setFileName(values.name);
  file->setFilePath(values.folder + "/" + values.name);
  file->setFileSize(number(values.size));
  file->setNoLinesTotal(number(values.lines));
  file->setNoLinesWithoutSpaces(number(values.linesWithoutSpaces));
  file->setNoLinesComments(number(values.comments));
  file->setNoWords(number(values.words));
  file->setNoCharactersTotal(number(values.characters));
  file->setNoCharactersWithoutSpaces(number(values.characters));
  return file;
}

/// A project that holds the given records, as if it had been read.
inline std::shared_ptr<ParseProject> projectWith(FileList files, const std::string& title = "Fixture",
                                                 const FileKindTable& kinds = classicKinds()) {
  auto project = std::make_shared<ParseProject>(FileSystem::real(), kinds);
  project->setInitialPath("/project/" + title + ".xcodeproj");
  project->setProjectTitle(title);
  project->setArrayFiles(std::move(files));
  return project;
}

/// The text of a project.pbxproj whose file section references `paths`, one a line.
inline std::string projectText(const std::vector<std::string>& paths) {
  std::string text = "// !$*UTF8*$!\n{\n/* Begin PBXFileReference section */\n";
  int number = 0;
  for (const std::string& path : paths) {
    const bool quoted = path.find_first_of(" ()+-<>@") != std::string::npos;
    text += "\t\t" + std::to_string(1000 + number++) + " /* " + path +
            " */ = {isa = PBXFileReference; lastKnownFileType = text; path = " +
            (quoted ? "\"" + path + "\"" : path) + "; sourceTree = \"<group>\"; };\n";
  }
  return text + "/* End PBXFileReference section */\n}\n";
}

/// Writes `NAME.xcodeproj` into `folder` and gives the bundle's path.
inline std::string writeProject(const TemporaryFolder& folder, const std::vector<std::string>& paths,
                                const std::string& name = "App") {
  folder.file(name + ".xcodeproj/project.pbxproj", projectText(paths));
  return folder / (name + ".xcodeproj");
}

}  // namespace quillmeter::testing
