#pragma once

#include <chrono>
#include <string>

namespace quillmeter {

/// A moment as the report prints it, "MMM dd, yyyy hh:mm a", in the words of an ICU locale and by the clock
/// of an ICU time zone; an empty name means the user's own.
[[nodiscard]] std::string reportDate(std::chrono::system_clock::time_point time, const std::string& locale,
                                     const std::string& timeZone);

}  // namespace quillmeter
