#pragma once

#include <string>

namespace quillmeter {

class MeasuredProject;

/// A measured project as one HTML page that loads nothing else: the overview's figures, the five charts and a
/// table of every file that sorts and filters in the browser. It is readable in light and dark surroundings,
/// without scripts and on paper. Names may hold anything: they are shown and never run.
///
/// The same project gives the same page, in the user's locale.
[[nodiscard]] std::string measurementPage(const MeasuredProject& project);

}  // namespace quillmeter
