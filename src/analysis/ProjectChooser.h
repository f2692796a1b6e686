#pragma once

#include <string>

namespace quillmeter {

class FileSystem;

/// The project to open for a folder that the user gave: the first entry directly inside it (in ascending byte
/// order) whose name ends in ".xcodeproj" in any letter case, as a path; `folder` itself when there is none,
/// which is how a bundle given directly is opened.
[[nodiscard]] std::string chosenProject(const std::string& folder);
[[nodiscard]] std::string chosenProject(const std::string& folder, const FileSystem& fileSystem);

/// The absolute path of a folder that a command line names: without steps of "." and a "/" at its end. Steps
/// of ".." go up from where links lead, as everywhere in a terminal; in what does not exist, by name.
[[nodiscard]] std::string absoluteFolder(const std::string& argument);

/// Whether a folder directly holds a project bundle. False for anything that is not a readable folder.
[[nodiscard]] bool holdsProject(const std::string& folder);
[[nodiscard]] bool holdsProject(const std::string& folder, const FileSystem& fileSystem);

}  // namespace quillmeter
