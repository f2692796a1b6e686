#include "support/NearestWord.h"

#include <algorithm>
#include <vector>

#include "support/Text.h"

namespace quillmeter {
namespace {

/// Longer words come from nobody's fingers; they are not worth a table of their square.
constexpr std::size_t kLongestWord = 64;

/// How many slips are still a slip: one in a short word, more in a longer one, none in a letter or two.
std::size_t tolerance(std::size_t letters) {
  return letters / 3;
}

/// Whether `word` is `whole` with letters left out, though not the first: "--fmt" for "--format". Fewer than
/// three letters may be anything.
bool isAbbreviation(std::string_view word, std::string_view whole) {
  const std::size_t first = word.find_first_not_of('-');
  if (first == std::string_view::npos || word.size() - first < 3) return false;
  if (whole.substr(0, first + 1) != word.substr(0, first + 1)) return false;
  std::size_t found = 0;
  for (const char letter : whole) {
    if (found < word.size() && letter == word[found]) ++found;
  }
  return found == word.size();
}

}  // namespace

std::size_t editDistance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> beforeLast(to.size() + 1);
  std::vector<std::size_t> last(to.size() + 1);
  std::vector<std::size_t> row(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j)
    row[j] = j;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    beforeLast.swap(last);
    last.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      const bool swapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (swapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row.back();
}

std::optional<std::string> nearestWord(std::string_view word, std::span<const std::string> known) {
  if (word.empty() || word.size() > kLongestWord) return std::nullopt;
  const std::string lowered = lowerCased(word);
  std::optional<std::string> nearest;
  std::size_t least = 0;
  for (const std::string& candidate : known) {
    const std::size_t distance = editDistance(lowered, lowerCased(candidate));
    // The beginning of a word is a slip as well: "meas", "com".
    const bool isBeginning = lowered.size() >= 2 && lowerCased(candidate).starts_with(lowered);
    const bool isShort = isBeginning || isAbbreviation(lowered, lowerCased(candidate));
    if (distance > tolerance(std::max(lowered.size(), candidate.size())) && !isShort) continue;
    if (nearest && distance >= least) continue;
    nearest = candidate;
    least = distance;
  }
  return nearest;
}

}  // namespace quillmeter
