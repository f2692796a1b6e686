#include "support/CommandConfinement.h"

#include <utility>

#include "support/AtomicFile.h"
#include "support/Confinement.h"

namespace quillmeter {
namespace {

std::vector<std::string> foldersOf(std::initializer_list<std::optional<std::string>> outputs) {
  std::vector<std::string> folders;
  for (const auto& output : outputs) {
    if (output && *output != "-") folders.push_back(folderOfOutput(*output));
  }
  return folders;
}

}  // namespace

// There is no other thread yet, so that of the command is the process.

void confineToOutputs(std::initializer_list<std::optional<std::string>> outputs) {
  confineThread({.writableFolders = foldersOf(outputs), .readable = {}});
}

void confineToInputs(std::vector<std::string> inputs, const std::optional<std::string>& output) {
  confineThread({.writableFolders = foldersOf({output}), .readable = std::move(inputs)});
}

}  // namespace quillmeter
