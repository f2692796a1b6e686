#pragma once

#include "measuring/FileObject.h"

namespace quillmeter {

/// One of a record's counters, or its size: `(file.*measure)()`.
using FileMeasure = const std::optional<Number>& (FileObject::*)() const;

/// `files` in descending order of a measure; an absent one counts as 0, and files of equal measures keep
/// their order. No entry may be null.
[[nodiscard]] FileList rankedFiles(const FileList& files, FileMeasure measure);

}  // namespace quillmeter
