#pragma once

#include "measuring/FileKinds.h"

namespace quillmeter::testing {

/// The classic table of kinds with one line more: "hpp" is a header.
inline FileKindTable kindsWithHpp() {
  auto entries = classicKinds().entries();
  entries.push_back({.extension = "hpp", .group = FileGroup::headers, .picture = "icon_extension_h"});
  return {classicKinds().groups(), entries};
}

}  // namespace quillmeter::testing
