#pragma once

namespace quillmeter {

/// The whole of quillmeter-cli: reads the command line, runs the command that it names and gives the exit
/// status. It makes the process its own: a reader that goes away is an error of writing and no longer the
/// process's end, and memory that runs out anywhere ends the process at once, with one message and
/// `kNothingMeasured`.
[[nodiscard]] int runTool(int argc, const char* const* argv);

}  // namespace quillmeter
