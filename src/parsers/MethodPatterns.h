#pragma once

#include <string_view>

#include "parsers/LinearPattern.h"

/// The patterns that tell a method or a function from any other text. They decide what is counted, down to
/// the last character, and are kept as they are, with everything that they take for a function and do not.
namespace quillmeter {

/// An Objective-C method from its "-" or "+" up to, and without, its "{". Matched against the whole text,
/// letter case respected.
[[nodiscard]] std::string_view methodPatternText();

/// A C or C++ function from its return type (or one word before that) up to its "{" and the white space
/// behind. Searched for, letter case ignored.
[[nodiscard]] std::string_view functionPatternText();

/// The patterns, ready for use; each is compiled once in the life of the program, when it is first asked for.
[[nodiscard]] const LinearPattern& methodPattern();
[[nodiscard]] const LinearPattern& functionPattern();
/// The word that a function begins with, letter case ignored.
[[nodiscard]] const LinearPattern& firstWordPattern();

}  // namespace quillmeter
