#pragma once

#include <string>
#include <vector>

namespace quillmeter {

/// What the kernel keeps a thread from, for good. A kernel that is too old for a part leaves that part out.
struct Confinement {
  int files = 0;         ///< the version of the file rules (Landlock) in force; 0 when there are none
  bool network = false;  ///< whether sockets are denied
};

/// Confines the calling thread, and every thread and process that it makes from now on: it can read any file,
/// but write, create, remove, rename, truncate and execute nothing, except that files can be written in and
/// below `writableFolders`; and it can make no use of the network. What is open stays usable. Reading is not
/// confined: a project's references and links lead to any folder, and they are followed.
Confinement confineThread(const std::vector<std::string>& writableFolders = {});

/// The same in words, for users.
[[nodiscard]] std::string confinementText(const Confinement& confinement);

}  // namespace quillmeter
