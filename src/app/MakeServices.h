#pragma once

#include "controls/Services.h"

namespace quillmeter {

/// The services as the desktop gives them. Needs the application object.
[[nodiscard]] Services makeServices();

}  // namespace quillmeter
