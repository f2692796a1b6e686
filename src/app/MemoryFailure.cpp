#include "app/MemoryFailure.h"

#include <unistd.h>

#include <string_view>

#include "support/ExitStatus.h"

namespace quillmeter {

void endForWantOfMemory() {
  constexpr std::string_view message = "quillmeter: Not enough memory to do this\n";
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, message.data(), message.size());
  ::_exit(kNothingMeasured);
}

bool isLostThread(const QString& message) {
  return message.startsWith(QLatin1String("QThread::start:"));
}

}  // namespace quillmeter
