#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillmeter {

/// The number of letters to insert, delete, replace or swap with their neighbour to make `to` of `from`
/// (the "optimal string alignment" distance), by bytes.
[[nodiscard]] std::size_t editDistance(std::string_view from, std::string_view to);

/// The word that somebody who wrote `word` most likely meant: the one of `known` that is nearest to it,
/// letter case ignored, the first of equals. Nothing when all are so far away that naming one would only
/// puzzle.
[[nodiscard]] std::optional<std::string> nearestWord(std::string_view word,
                                                     std::span<const std::string> known);

}  // namespace quillmeter
