#pragma once

#include <memory>
#include <string>

#include "parsers/FMethodStats.h"

namespace quillmeter {

/// A way to count the methods of a source file.
class Strategy {
 public:
  virtual ~Strategy() = default;

  /// Counts the file at `path`; null when there is no result.
  virtual std::shared_ptr<FMethodStats> execute(const std::string& path) = 0;
};

}  // namespace quillmeter
