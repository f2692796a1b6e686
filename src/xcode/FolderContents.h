#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "xcode/DiskView.h"

namespace quillmeter {

/// Whether a folder of this name is one thing to its user, such as a bundle or a data model: its contents are
/// no files of a project.
[[nodiscard]] bool isClosedFolder(std::string_view location);

/// Calls `action` with the path of each file that belongs to a folder, at any depth: entries in ascending
/// byte order, each folder followed by its own contents. Left out are hidden entries, links to folders, links
/// that lead nowhere, whatever is no file, and closed folders; those below `folder` that `isEntered` refuses,
/// too. An unreadable folder is empty. `folder` itself may be hidden or closed.
void forEachFileIn(
    DiskView& disk, const std::string& folder, const std::function<void(const std::string& path)>& action,
    const std::function<bool(const std::string& folder)>& isEntered = [](const std::string&) {
      return true;
    });

}  // namespace quillmeter
