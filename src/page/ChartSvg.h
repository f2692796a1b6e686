#pragma once

#include <string>

#include "charts/ChartContents.h"

namespace quillmeter {

/// A chart as SVG of its own: the drawing of the Charts tab in its colours, with ink that follows the page's.
/// Bars and slices name themselves to pointers and to assistive technology; under each bar stands its rank
/// in place of the magnifier.
[[nodiscard]] std::string chartSvg(const ChartContents& contents);

}  // namespace quillmeter
