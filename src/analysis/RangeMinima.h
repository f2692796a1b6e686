#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace quillmeter {

/// The least of any run of a list of numbers, in logarithmic time, while numbers may be taken out: a segment
/// tree.
class RangeMinima {
 public:
  using Number = std::uint32_t;
  /// What is no number: greater than all.
  static constexpr Number kNone = std::numeric_limits<Number>::max();

  /// `valueAt(i)` gives the number at i, or `kNone`.
  template <class ValueAt>
  RangeMinima(std::size_t size, const ValueAt& valueAt) : size_(size), tree_(2 * size, kNone) {
    for (std::size_t i = 0; i < size_; ++i)
      tree_[size_ + i] = valueAt(i);
    for (std::size_t i = size_; i-- > 1;)
      tree_[i] = std::min(tree_[2 * i], tree_[2 * i + 1]);
  }

  /// The least number from `begin` up to but not including `end`; `kNone` when there is none.
  [[nodiscard]] Number least(std::size_t begin, std::size_t end) const {
    Number result = kNone;
    for (begin += size_, end += size_; begin < end; begin /= 2, end /= 2) {
      if (begin % 2 != 0) result = std::min(result, tree_[begin++]);
      if (end % 2 != 0) result = std::min(result, tree_[--end]);
    }
    return result;
  }

  void remove(std::size_t i) {
    i += size_;
    tree_[i] = kNone;
    for (i /= 2; i > 0; i /= 2)
      tree_[i] = std::min(tree_[2 * i], tree_[2 * i + 1]);
  }

 private:
  std::size_t size_;
  std::vector<Number> tree_;
};

}  // namespace quillmeter
