#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "ProjectInput.h"
#include "Require.h"
#include "measuring/ReferenceMeasurement.h"
#include "support/Paths.h"
#include "xcode/CurrentKinds.h"
#include "xcode/CurrentProject.h"

/// A whole read by the current rules: whatever the description and the disk hold, each file is there once and
/// measured as it is, what targets and the clean-up say fits the files, and a second read with more threads
/// gives the same. The input is a `ProjectInput`.

namespace {

using namespace quillmeter;
using fuzzing::ProjectInput;

void checkFile(const ProjectInput& project, const FileObject& file) {
  require(file.filePath() && file.fileName() == lastPathComponent(*file.filePath()));
  const std::string& path = *file.filePath();
  require(path.starts_with('/') && currentKind(path) != FileKind::none);
  const auto status = project.disk.status(path);
  require(status && status->type == FileStatus::Type::regular);
  require(static_cast<std::uint64_t>(integerValue(file.fileSize())) == status->size);
  if (currentKind(path) == FileKind::image) return;
  const std::string* content = project.disk.contentOf(path);
  TextCounts counts;
  if (content != nullptr) counts = referenceMeasurement(*content).value_or(TextCounts{});
  require(static_cast<std::uint64_t>(integerValue(file.noLinesTotal())) == counts.noLinesTotal);
  require(static_cast<std::uint64_t>(integerValue(file.noWords())) == counts.noWords);
  require(static_cast<std::uint64_t>(integerValue(file.noCharactersTotal())) == counts.noCharactersTotal);
}

void checkTargets(const ProjectFindings& found, std::size_t files) {
  for (const ProjectTarget& target : found.targets) {
    require(std::is_sorted(target.files.begin(), target.files.end()));
    require(std::adjacent_find(target.files.begin(), target.files.end()) == target.files.end());
    require(target.files.empty() || target.files.back() < files);
  }
}

void checkLeftOvers(const CurrentProject& reader, const std::set<std::string>& paths) {
  std::set<std::string> seen;
  const std::string& folder = reader.projectFolder();
  for (const auto& file : reader.unreferencedFiles()) {
    const std::string& path = *file->filePath();
    require(!paths.contains(path) && seen.insert(path).second);
    require(path.starts_with(folder == "/" ? folder : folder + "/"));
    require(currentKind(path) != FileKind::none);
  }
}

std::set<std::string> pathsOf(const CurrentProject& reader) {
  std::set<std::string> paths;
  for (const auto& file : reader.files())
    paths.insert(file->filePath().value_or(""));
  return paths;
}

void read(CurrentProject& reader, std::size_t threads) {
  reader.setThreads({threads, threads});
  reader.parseFileAtPathAndDelegate(std::string(ProjectInput::kBundle), nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ProjectInput project({reinterpret_cast<const char*>(data), size});
  CurrentProject reader(project.disk);
  read(reader, 1);
  const auto paths = pathsOf(reader);
  require(paths.size() == reader.files().size());
  for (const auto& file : reader.files())
    checkFile(project, *file);
  checkTargets(reader.findings(), reader.files().size());
  require(reader.findings().error.empty() || reader.files().empty());
  require(reader.findings().error.empty() || reader.findings().error.starts_with("project.pbxproj:"));
  checkLeftOvers(reader, paths);
  require(project.hasErrors || reader.faults().count == 0);

  // Threads take much longer to start than small projects to read.
  if (size % 16 != 0) return 0;
  CurrentProject again(project.disk);
  read(again, 3);
  require(again.files().size() == reader.files().size());
  for (std::size_t i = 0; i < reader.files().size(); ++i)
    require(again.files()[i]->filePath() == reader.files()[i]->filePath());
  return 0;
}
