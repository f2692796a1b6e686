#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "files/FileSystem.h"

namespace quillmeter {

struct MethodCounts {
  std::int64_t methods = 0;
  std::int64_t staticMethods = 0;
  std::int64_t instanceMethods = 0;
};

/// What came of counting the methods of a file.
struct CountedFile {
  std::optional<MethodCounts> counts;  ///< absent for a file without a parser, and where there is an obstacle
  std::optional<std::string> obstacle;  ///< why the file could not be read to its end
};

/// Counts the methods that the file at `path` defines. A file that cannot be read to its end has an obstacle
/// and no counts: half a file is never counted as a whole one.
[[nodiscard]] CountedFile countedFile(const std::string& path,
                                      const FileSystem& fileSystem = FileSystem::real());

}  // namespace quillmeter
