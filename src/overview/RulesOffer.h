#pragma once

#include <string>

namespace quillmeter {

struct LeftOut;

/// What the classic rules left out, for users that may want the current ones: "172 Swift and 12 C++ files are
/// not measured by the classic rules." Empty when that is not much.
[[nodiscard]] std::string rulesOffer(const LeftOut& leftOut);

}  // namespace quillmeter
