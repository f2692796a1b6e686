#pragma once

namespace quillmeter {

/// Runs the windows of the application until the last one is closed; gives the process's exit status.
/// `--help` and `--version` write to the terminal and end at once; wrong usage gives 2; without a display it
/// says so and gives 1. A path on the command line is opened as if its folder had been dropped on the main
/// screen.
int runApplication(int argc, char** argv);

}  // namespace quillmeter
