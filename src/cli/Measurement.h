#pragma once

#include <memory>
#include <string>

#include "analysis/ProjectReader.h"

namespace CLI {
class App;
}

namespace quillmeter {

class Output;

/// How a command reads a project for its user.
struct ReadOptions {
  std::string project;  ///< the argument as the user gave it
  ProjectRules rules = ProjectRules::classic;
  bool quiet = false;    ///< no progress bar
  bool verbose = false;  ///< the reader's diagnostic lines on standard error
};

/// Adds the project and how it is read to a command's arguments. `options` must outlive the command.
void addReadOptions(CLI::App& command, ReadOptions& options);

/// Adds how a project is read alone, for a command that takes its projects in a way of its own.
void addReadingFlags(CLI::App& command, ReadOptions& options);

/// Reads the project. Null when not one file could be measured, or when too many files are open to find all
/// of them; the user has been told why on standard error then. Tells, too, which of several bundles was taken
/// and when the classic rules leave out most of the source code. What could not be read of a project that
/// could, the command tells with `tellOfFaults`.
[[nodiscard]] std::unique_ptr<ProjectReader> readProject(const ReadOptions& options);

/// The same, but a project of which nothing could be measured is given, too, as long as its description could
/// be read: its references are what the user asks for.
[[nodiscard]] std::unique_ptr<ProjectReader> readProjectForReferences(const ReadOptions& options);

/// Why something could not be listed or read, in words.
[[nodiscard]] std::string reasonFor(DiskError error);

/// Tells the user on standard error what could not be listed or read, if anything: how many, and the first.
void tellOfFaults(const ReadFaults& faults);

/// Writes one line for the user on standard error, behind the tool's name.
void complain(const std::string& message);

/// Completes a command's output. Gives `status` when it was written; otherwise tells the user why not and
/// gives `kOutputFailed`.
[[nodiscard]] int statusAfter(Output& output, int status);

}  // namespace quillmeter
