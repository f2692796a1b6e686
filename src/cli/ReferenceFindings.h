#pragma once

#include "analysis/ProjectFindings.h"

namespace quillmeter {

class JsonWriter;

/// The member "missing" of a JSON object.
void writeMissing(const ProjectFindings& findings, JsonWriter& json);

}  // namespace quillmeter
