#include "files/ReadFaults.h"

#include <system_error>

namespace quillmeter {

void ReadFaults::note(const std::string& path, DiskError error) {
  using Kind = DiskError::Kind;
  const Kind kind = error.kind();
  if (kind == Kind::none || kind == Kind::missing || kind == Kind::stopped) return;
  if (count++ == 0) {
    firstPath = path;
    firstError = error;
  }
  if (kind != Kind::noPermission) mayMislead = true;
}

void ReadFaults::add(const ReadFaults& later) {
  if (count == 0) {
    *this = later;
    return;
  }
  count += later.count;
  mayMislead = mayMislead || later.mayMislead;
}

TooFewDescriptors::TooFewDescriptors(const std::string& path, DiskError error)
    : std::runtime_error(path + ": " + std::generic_category().message(error.number)) {}

}  // namespace quillmeter
