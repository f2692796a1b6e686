#pragma once

#include <cstdlib>

/// Ends the process, as a fuzzer wants it, when something that must hold does not.
inline void require(bool condition) {
  if (!condition) std::abort();
}
