#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "measuring/FileCounters.h"
#include "support/Paths.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter::fuzzing {

/// A project that was measured, made from a fuzzer's input without any disk: its first line is the title, the
/// second one the path of the bundle, each further one says what it is about with its first letter. Fields
/// are separated by tabs; a name may hold any other byte but a line feed, for which a vertical tab stands.
///   f: a file's path and its counters as `kFileCounterFields` has them (none for an absent one)
///   t: a target's name and the numbers of its files    o: the extension of another file
///   m: a missing reference and its identifier          c: measured by the current rules
class RecordsProject final : public MeasuredProject {
 public:
  explicit RecordsProject(std::string_view input)
      : MeasuredProject(isCurrentIn(input) ? currentKinds() : classicKinds()),
        isCurrent_(isCurrentIn(input)) {
    setProjectTitle(takeLine(input));
    setInitialPath("/" + takeLine(input));
    FileList files;
    ProjectFindings found;
    found.folder = parentFolder(initialPath());
    while (!input.empty()) {
      const std::string line = takeLine(input);
      if (!line.empty()) add(line.front(), fieldsOf(std::string_view(line).substr(1)), files, found);
    }
    for (ProjectTarget& target : found.targets)
      target.files.erase(std::lower_bound(target.files.begin(), target.files.end(), files.size()),
                         target.files.end());
    setArrayFiles(std::move(files));
    setFindings(std::move(found));
  }

  [[nodiscard]] ProjectRules rules() const override {
    return isCurrent_ ? ProjectRules::current : ProjectRules::classic;
  }
  [[nodiscard]] FileList unreferencedFiles(ReadFaults& /*faults*/) const override { return {}; }

 private:
  using Fields = std::vector<std::string>;

  static bool isCurrentIn(std::string_view input) { return input.find("\nc") != std::string_view::npos; }

  static std::string takeLine(std::string_view& input) {
    std::string line(input.substr(0, input.find('\n')));
    input.remove_prefix(std::min(line.size() + 1, input.size()));
    std::replace(line.begin(), line.end(), '\v', '\n');
    std::erase(line, '\0');  // which no name holds
    return line;
  }

  static Fields fieldsOf(std::string_view line) {
    Fields fields;
    for (;;) {
      fields.emplace_back(line.substr(0, line.find('\t')));
      if (fields.back().size() == line.size()) return fields;
      line.remove_prefix(fields.back().size() + 1);
    }
  }

  /// A count, as large as it may be; absent for any other text.
  static std::optional<std::int64_t> countIn(const Fields& fields, std::size_t field) {
    std::int64_t count = -1;
    if (field >= fields.size()) return std::nullopt;
    const std::string& text = fields[field];
    const auto end = std::from_chars(text.data(), text.data() + text.size(), count);
    if (end.ec != std::errc() || count < 0) return std::nullopt;
    return count;
  }

  void add(char kind, const Fields& fields, FileList& files, ProjectFindings& found) const {
    const std::string second = fields.size() > 1 ? fields[1] : std::string();
    if (kind == 'f') files.push_back(record(fields));
    if (kind == 'o') found.other.add(fields[0]);
    if (kind == 'm') found.missing.push_back({fields[0], second});
    if (kind != 't') return;
    ProjectTarget& target = found.targets.emplace_back(ProjectTarget{fields[0], {}});
    for (std::size_t i = 1; i < fields.size(); ++i)
      target.files.push_back(static_cast<std::uint32_t>(countIn(fields, i).value_or(0)));
    std::sort(target.files.begin(), target.files.end());
    target.files.erase(std::unique(target.files.begin(), target.files.end()), target.files.end());
  }

  static std::shared_ptr<FileObject> record(const Fields& fields) {
    auto file = std::make_shared<FileObject>();
    file->setFilePath("/" + fields[0]);
    file->setFileName(std::string(lastPathComponent(*file->filePath())));
    using Setter = void (FileObject::*)(std::optional<Number>);
    constexpr std::array<Setter, kFileCounters> setters = {
        &FileObject::setFileSize,         &FileObject::setNoLinesTotal,
        &FileObject::setNoLinesComments,  &FileObject::setNoLinesWithoutSpaces,
        &FileObject::setNoWords,          &FileObject::setNoCharactersWithoutSpaces,
        &FileObject::setNoCharactersTotal};
    for (std::size_t i = 0; i < kFileCounters; ++i) {
      const auto count = countIn(fields, i + 1);
      if (count) ((*file).*setters[i])(Number(*count));
    }
    return file;
  }

  bool isCurrent_;
};

}  // namespace quillmeter::fuzzing
