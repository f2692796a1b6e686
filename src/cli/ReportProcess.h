#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "files/FileSystem.h"

namespace quillmeter {

/// A run of the application that lies beside this tool, on the tool's own standard streams. The process is
/// made at once, before the tool gives up its rights, and waits there for the last argument, which is only
/// known once the project was found; without it, and should the tool be killed, it ends.
class ReportProcess {
 public:
  /// `arguments` without the program's name and without the last one.
  explicit ReportProcess(std::vector<std::string> arguments);
  ~ReportProcess();
  ReportProcess(const ReportProcess&) = delete;
  ReportProcess& operator=(const ReportProcess&) = delete;

  /// Starts the application with its last argument and waits for its end. Gives its exit status. When it is
  /// missing, cannot start or does not end by itself, the user is told and the status is that of an output
  /// that could not be written. To be called once.
  [[nodiscard]] int finishWith(const std::string& lastArgument);

 private:
  [[nodiscard]] int wait();

  std::string application_;
  pid_t child_ = -1;
  int reason_ =
      0;  ///< why the program was not started, as an error number; 0 when nothing is known against it
  Descriptor toChild_;    ///< for the last argument
  Descriptor fromChild_;  ///< for the reason; closed without a word by the program's start
};

}  // namespace quillmeter
