#include "app/DroppedFiles.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

#include "support/Paths.h"

namespace quillmeter {
namespace {

constexpr std::string_view kScheme = "file:";

int hexValue(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

/// An incomplete escape stands for itself. A path cannot hold a zero byte, so an address with one is refused.
std::optional<std::string> withoutEscapes(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool escape =
        text[at] == '%' && at + 2 < text.size() && hexValue(text[at + 1]) >= 0 && hexValue(text[at + 2]) >= 0;
    bytes += escape ? static_cast<char>(hexValue(text[at + 1]) * 16 + hexValue(text[at + 2])) : text[at];
    if (escape) at += 2;
    if (bytes.back() == '\0') return std::nullopt;
  }
  return bytes;
}

bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(),
                    [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

std::optional<std::string> localPath(std::string_view uri, std::string_view hostName) {
  if (!startsWithIgnoringCase(uri, kScheme)) return std::nullopt;
  uri.remove_prefix(kScheme.size());
  uri = uri.substr(0, uri.find_first_of("?#"));
  if (uri.starts_with("//")) {
    uri.remove_prefix(2);
    const std::string_view host = uri.substr(0, uri.find('/'));
    if (!host.empty() && host != "localhost" && host != hostName) return std::nullopt;
    uri.remove_prefix(host.size());
  }
  if (!uri.starts_with('/')) return std::nullopt;
  return withoutEscapes(withoutTrailingSlashes(uri));
}

}  // namespace

std::optional<std::string> firstDroppedFile(std::string_view uriList, std::string_view hostName) {
  while (!uriList.empty()) {
    const std::size_t end = std::min(uriList.find_first_of("\r\n"), uriList.size());
    if (auto path = localPath(uriList.substr(0, end), hostName)) return path;
    uriList.remove_prefix(std::min(end + 1, uriList.size()));
  }
  return std::nullopt;
}

}  // namespace quillmeter
