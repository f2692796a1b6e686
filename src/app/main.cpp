#include <new>

#include "app/Application.h"
#include "app/MemoryFailure.h"
#include "app/ReportMode.h"

namespace {

int run(int argc, char** argv) {
  if (const auto status = quillmeter::runReportMode(argc, argv)) return *status;
  return quillmeter::runApplication(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::bad_alloc&) {
    quillmeter::endForWantOfMemory();
  }
}
