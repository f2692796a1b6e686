#pragma once

#include <string>

#include "analysis/ProjectReader.h"

/// What the tool tells its user about a read beside its figures.
namespace quillmeter {

/// Why a project that was read has not one measured file, in one line.
[[nodiscard]] std::string whyNothingIsMeasured(const MeasuredProject& project);

/// How many source files the classic rules left out, by extension, and how to measure them; empty when they
/// measured more than they left out, and for other rules.
[[nodiscard]] std::string hintAtCurrentRules(const MeasuredProject& project);

/// Says which of several bundles in a folder was taken, and names the others. Says nothing when there is one.
void tellOfOtherProjects(const std::string& folder, const std::string& taken);

}  // namespace quillmeter
