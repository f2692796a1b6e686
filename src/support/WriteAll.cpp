#include "support/WriteAll.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace quillmeter {

std::optional<std::string> writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return std::generic_category().message(errno);
    }
  }
  return std::nullopt;
}

}  // namespace quillmeter
