#pragma once

#include <string>

namespace quillmeter {

class WritingSystem;

/// The temporary files that outputs are written to before they take their place: ".quillmeter-NUMBER.part".
/// Whoever writes one holds a lock on it, so that one whose writer was killed can be told from one in use.

/// A path for a temporary file in `folder`, by a random number.
[[nodiscard]] std::string newPartPath(const std::string& folder);

/// Removes the temporary files in `folder` that no process holds. What cannot be removed stays, without a
/// word.
void removeLeftoverParts(const WritingSystem& system, const std::string& folder);

}  // namespace quillmeter
