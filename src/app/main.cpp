#include <unistd.h>

#include <new>
#include <string_view>

#include "app/Application.h"
#include "app/ReportMode.h"

namespace {

constexpr int kNothingMeasured = 3;

int run(int argc, char** argv) {
  if (const auto status = quillmeter::runReportMode(argc, argv)) return *status;
  return quillmeter::runApplication(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::bad_alloc&) {
    // Telling it must not ask for more.
    constexpr std::string_view message = "quillmeter: Not enough memory to do this\n";
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, message.data(), message.size());
    return kNothingMeasured;
  }
}
