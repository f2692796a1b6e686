#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "compare/Differences.h"
#include "compare/Limit.h"
#include "compare/SnapshotReader.h"

/// Any text is a measurement or is told of, and so is any limit. A measurement differs from itself in
/// nothing, and from an empty one in every file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillmeter;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const LimitReading limit = readLimit(text);
  if (limit.limit.has_value() == !limit.error.empty()) std::abort();
  const SnapshotReading reading = readSnapshot(text);
  if (reading.snapshot.has_value() == !reading.error.empty()) std::abort();
  if (!reading.snapshot) return 0;
  const Snapshot& snapshot = *reading.snapshot;
  if (differencesBetween(snapshot, snapshot).changes() != 0) std::abort();
  const Differences all = differencesBetween(Snapshot(), snapshot);
  if (all.number(ChangeKind::added) != snapshot.files.size()) std::abort();
  for (const std::string_view each :
       {"noLinesTotal>+5%", "file:fileSize>=+1", "file:noWords<-3%", "noWords<1"}) {
    if (passed(*readLimit(each).limit, all).size() > 11) std::abort();
  }
  return 0;
}
