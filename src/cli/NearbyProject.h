#pragma once

#include <string>

namespace quillmeter {

/// What somebody most likely meant who gave `path`, absolute and no project, as their project: for a path
/// that does not exist the entry beside it with the nearest name; else the project above it that it lies in,
/// or the first few folders inside it that hold one. As ", did you mean … or …?"; empty when nothing is near.
[[nodiscard]] std::string questionForNearbyProject(const std::string& path);

}  // namespace quillmeter
