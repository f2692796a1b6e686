#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ProjectInput.h"
#include "Require.h"
#include "analysis/LinearRule.h"
#include "analysis/ParseProject.h"
#include "measuring/ReferenceMeasurement.h"
#include "support/Paths.h"
#include "support/Text.h"

/// A whole read by the classic rules against the rules in their plain form: each line taken apart by itself,
/// each reference looked for among all paths, each file measured as a whole. The input is a `ProjectInput`.

namespace {

using namespace quillmeter;
using fuzzing::ProjectInput;

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + separator.size());
  }
}

std::vector<std::string> plainReferences(const std::string& description) {
  std::vector<std::string> references;
  if (!isValidUtf8(description)) return references;
  const auto begin = split(description, "/* Begin PBXFileReference section */");
  if (begin.size() < 2) return references;
  const std::string_view behind(
      begin[1].data(), static_cast<std::size_t>(description.data() + description.size() - begin[1].data()));
  const auto end = split(behind, "/* End PBXFileReference section */");
  if (end.size() < 2) return references;
  for (const std::string_view line : split(trimmed(end[0]), "\n")) {
    const auto halves = split(line, "*/ = {");
    if (halves.size() < 2) continue;
    const std::string entries(trimmed(split(halves[1], "}")[0]));
    const auto values = split(entries, "path =");
    if (values.size() < 2) continue;
    std::string path(trimmed(split(values[1], ";")[0]));
    if (path.starts_with('"')) path = removingOccurrences(path, "\"");
    if (classicKinds().kindOfPath(path) != FileKind::none) references.push_back(path);
  }
  return references;
}

bool isAt(const ProjectInput& project, const std::string& path) {
  return static_cast<bool>(project.disk.status(path));
}

/// Where a reference leads; empty for nowhere.
std::string plainPath(const ProjectInput& project, const std::vector<std::string>& paths,
                      const std::string& reference) {
  for (const std::string& path : testing::candidatesLinearly(paths, reference))
    if (isAt(project, path)) return path;
  if (!reference.starts_with("../")) return {};
  const auto exists = [&](const std::string& path) { return isAt(project, path); };
  const std::string linked =
      testing::linkedLinearly(std::string(ProjectInput::kFolder), reference, exists).path;
  return exists(linked) ? linked : std::string();
}

void checkRecord(const ProjectInput& project, const FileObject& file, const std::string& path) {
  require(path.find('\0') == std::string::npos);
  require(file.filePath() == path && file.fileName() == lastPathComponent(path));
  require(file.fileSize() &&
          static_cast<std::uint64_t>(integerValue(file.fileSize())) == project.disk.status(path)->size);
  TextCounts counts;
  const FileKind kind = classicKinds().kindOfPath(lastPathComponent(path));
  const bool isText = kind == FileKind::code || kind == FileKind::interface;
  const std::string* content = isText ? project.disk.contentOf(path) : nullptr;
  if (content != nullptr) counts = referenceMeasurement(*content).value_or(TextCounts{});
  const auto has = [](const std::optional<Number>& number, std::uint64_t count) {
    require(number && static_cast<std::uint64_t>(integerValue(number)) == count);
  };
  has(file.noLinesTotal(), counts.noLinesTotal);
  has(file.noLinesWithoutSpaces(), counts.noLinesWithoutSpaces);
  require(file.noWords().has_value() == isText);
  if (!isText) return;
  has(file.noLinesComments(), counts.noLinesComments);
  has(file.noWords(), counts.noWords);
  has(file.noCharactersWithoutSpaces(), counts.noCharactersWithoutSpaces);
  has(file.noCharactersTotal(), counts.noCharactersTotal);
}

/// The files of a known kind that lie in the project's folder and are none of `files`.
std::vector<std::string> plainLeftOvers(const ProjectInput& project, const std::vector<std::string>& paths,
                                        const FileList& files) {
  std::vector<std::string> left;
  for (const std::string& path : paths) {
    const std::string_view name = lastPathComponent(path);
    if (name.starts_with('.') || classicKinds().kindOfPath(name) == FileKind::none) continue;
    const auto status = project.disk.status(path);
    bool isListed = status && status->type == FileStatus::Type::regular;
    for (const auto& file : files)
      isListed = isListed && file->filePath() != path;
    if (isListed) left.push_back(path);
  }
  return left;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ProjectInput project({reinterpret_cast<const char*>(data), size});
  ParseProject reader(project.disk);
  // Threads take much longer to start than small projects to read.
  const std::size_t threads = size % 16 == 0 ? 3 : 1;
  reader.setThreads({threads, threads});
  reader.parseFileAtPathAndDelegate(std::string(ProjectInput::kBundle), nullptr);

  const std::string* description =
      project.disk.contentOf(std::string(ProjectInput::kBundle) + "/project.pbxproj");
  const auto paths = project.disk.pathsBelow(std::string(ProjectInput::kFolder));
  std::size_t next = 0;
  std::size_t missing = 0;
  if (description != nullptr) {
    for (const std::string& reference : plainReferences(*description)) {
      const std::string path = plainPath(project, paths, reference);
      missing += path.empty() ? 1U : 0U;
      if (path.empty()) continue;
      require(next < reader.files().size());
      checkRecord(project, *reader.files()[next++], path);
    }
  }
  require(next == reader.files().size() && missing == reader.findings().missing.size());
  require(project.hasErrors || description == nullptr || reader.faults().count == 0);

  if (size % 8 != 0) return 0;
  const auto left = plainLeftOvers(project, paths, reader.files());
  const FileList found = reader.unreferencedFiles();
  require(found.size() == left.size());
  for (std::size_t i = 0; i < left.size(); ++i)
    require(found[i]->filePath() == left[i]);
  return 0;
}
