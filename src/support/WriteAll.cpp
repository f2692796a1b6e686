#include "support/WriteAll.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "support/Uninterrupted.h"

namespace quillmeter {

std::optional<std::string> writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (written < 0) return std::generic_category().message(errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return std::nullopt;
}

}  // namespace quillmeter
