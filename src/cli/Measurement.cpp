#include "cli/Measurement.h"

#include <cstdio>

#include "analysis/FileSystem.h"
#include "cli/ExitStatus.h"
#include "cli/Output.h"
#include "cli/ProgressBar.h"
#include "cli/ProjectPath.h"

namespace quillmeter {

std::unique_ptr<ParseProject> readProject(const ReadOptions& options) {
  auto project = std::make_unique<ParseProject>();
  if (options.verbose) {
    project->setLogSink([](std::string_view line) {
      std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
    });
  }
  ProgressBar progress(!options.quiet && !options.verbose);
  project->parseFileAtPathAndDelegate(projectAtArgument(options.project), &progress);
  project->setDelegate(nullptr);
  if (!project->files().empty()) return project;

  if (!FileSystem::real().status(project->initialPath())) {
    complain(project->initialPath() + ": no such file or folder");
  }
  complain(
      "Error processing current folder. Please contact the Support team to assist you with importing this "
      "project.");
  return nullptr;
}

void complain(const std::string& message) {
  std::fprintf(stderr, "quillmeter-cli: %s\n", message.c_str());
}

int statusAfter(Output& output, int status) {
  const auto error = output.finish();
  if (!error) return status;
  complain(*error);
  return kOutputFailed;
}

}  // namespace quillmeter
