#include "cli/ToolConfinement.h"

#include <vector>

#include "support/AtomicFile.h"
#include "support/Confinement.h"

namespace quillmeter {

void confineToOutputs(std::initializer_list<std::optional<std::string>> outputs) {
  std::vector<std::string> folders;
  for (const auto& output : outputs) {
    if (output && *output != "-") folders.push_back(folderOfOutput(*output));
  }
  // There is no other thread yet, so that of the command is the process.
  confineThread(folders);
}

}  // namespace quillmeter
