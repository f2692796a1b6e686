#include "analysis/ParseProject.h"
#include "cli/MeasurementFormats.h"
#include "cli/Output.h"

namespace quillmeter {

void writeTable(const ParseProject& project, Output& output) {
  output.write(project.projectTitle());
  output.write("\n");
}

}  // namespace quillmeter
