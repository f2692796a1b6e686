#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillmeter {

/// How many files there are of each extension ("" for none), in the order in which the extensions came.
class ExtensionCounts {
 public:
  using Count = std::pair<std::string, std::size_t>;

  void add(const std::string& extension) {
    const auto [known, isNew] = places_.try_emplace(extension, counts_.size());
    if (isNew) counts_.emplace_back(extension, 0);
    ++counts_[known->second].second;
  }

  [[nodiscard]] const std::vector<Count>& counts() const { return counts_; }
  [[nodiscard]] std::vector<Count>::const_iterator begin() const { return counts_.begin(); }
  [[nodiscard]] std::vector<Count>::const_iterator end() const { return counts_.end(); }
  [[nodiscard]] std::size_t size() const { return counts_.size(); }
  [[nodiscard]] bool empty() const { return counts_.empty(); }

 private:
  std::vector<Count> counts_;
  std::unordered_map<std::string, std::size_t> places_;  ///< into `counts_`
};

}  // namespace quillmeter
