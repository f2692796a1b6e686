#include "app/Application.h"
#include "app/ReportMode.h"

int main(int argc, char** argv) {
  if (const auto status = quillmeter::runReportMode(argc, argv)) return *status;
  return quillmeter::runApplication(argc, argv);
}
