#pragma once

#include <ostream>

namespace quillmeter::testing {

/// What a parser counted in a source.
struct MethodCounts {
  int methods;
  int staticOnes;
  int instanceOnes;
  bool operator==(const MethodCounts&) const = default;
};

inline void PrintTo(const MethodCounts& counts, std::ostream* stream) {
  *stream << counts.methods << " methods, " << counts.staticOnes << " static, " << counts.instanceOnes
          << " instance";
}

}  // namespace quillmeter::testing
