#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "files/Result.h"

namespace quillmeter {

/// What could not be listed or read although something is there. What is missing is no fault, and neither is
/// what was left undone because the read was given up.
struct ReadFaults {
  std::uint64_t count = 0;
  /// The first of them, in the order of the walk and then of the project's references.
  std::string firstPath;
  DiskError firstError;
  /// Whether one was for another reason than a missing permission: then a referenced file may look as if
  /// nothing referenced it.
  bool mayMislead = false;

  void note(const std::string& path, DiskError error);
  /// Adds faults that came later.
  void add(const ReadFaults& later);
};

/// A read that failed because too many files are open, in this process or in the whole system, also after it
/// had closed what it kept open. Its figures would be too small, so there are none.
class TooFewDescriptors final : public std::runtime_error {
 public:
  TooFewDescriptors(const std::string& path, DiskError error);
};

}  // namespace quillmeter
