#include "xcode/LeftOut.h"

#include <algorithm>
#include <map>
#include <set>

#include "measuring/FileObject.h"
#include "xcode/CurrentProject.h"

namespace quillmeter {

std::size_t LeftOut::count() const {
  std::size_t sum = 0;
  for (const auto& [extension, files] : sources)
    sum += files;
  return sum;
}

LeftOut leftOutByClassic(const MeasuredProject& classic, const FileSystem& fileSystem) {
  std::set<std::string> measured;
  for (const auto& file : classic.files())
    measured.insert(file->filePath().value_or(""));
  CurrentProject current(fileSystem);
  current.parseFileAtPathAndDelegate(classic.initialPath(), nullptr);
  std::map<std::string, std::size_t> counts;
  for (const auto& file : current.files()) {
    if (current.isSourceFileType(*file) && !measured.contains(file->filePath().value_or("")))
      ++counts[file->getFileExtension().value_or("")];
  }
  LeftOut result;
  result.sources.assign(counts.begin(), counts.end());
  std::stable_sort(result.sources.begin(), result.sources.end(),
                   [](const auto& a, const auto& b) { return a.second > b.second; });
  result.isMuch = classic.files().empty() || result.count() > classic.getNumberCodeFiles();
  return result;
}

}  // namespace quillmeter
