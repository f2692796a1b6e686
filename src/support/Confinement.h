#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillmeter {

/// What the kernel keeps a thread from, for good. A kernel that is too old for a part leaves that part out.
struct Confinement {
  int files = 0;         ///< the version of the file rules (Landlock) in force; 0 when there are none
  bool network = false;  ///< whether sockets are denied
};

/// What a confined thread can do with files all the same.
struct FileAccess {
  std::vector<std::string> writableFolders;  ///< files can be written in and below these
  /// The files that can be read, and the folders with all that is below them; beside these only the writable
  /// folders and what libraries need. What is not there by now cannot be read later. Absent: everything can.
  std::optional<std::vector<std::string>> readable;
};

/// Confines the calling thread, and every thread and process that it makes from now on: beyond `access` it
/// can write, create, remove, rename, truncate and execute nothing, and it can make no use of the network.
/// What is open stays usable.
Confinement confineThread(const FileAccess& access = {});

/// The same in words, for users.
[[nodiscard]] std::string confinementText(const Confinement& confinement);

}  // namespace quillmeter
