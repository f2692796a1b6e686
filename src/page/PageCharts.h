#pragma once

#include <string>

namespace quillmeter {

class MeasuredProject;
struct OverviewFigures;

/// The five charts of the Charts tab as figures of a page, each with its contents in words beneath it.
[[nodiscard]] std::string pageCharts(const MeasuredProject& project, const OverviewFigures& figures);

}  // namespace quillmeter
