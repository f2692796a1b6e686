#include "support/Paths.h"

#include <algorithm>
#include <cstring>

namespace quillmeter {

std::string_view lastPathComponent(std::string_view path) {
  if (path.empty()) return path;
  path = withoutTrailingSlashes(path);
  if (path == "/") return path;
  // Asked of every path several times; text.rfind would look at one letter at a time.
  const void* slash = ::memrchr(path.data(), '/', path.size());
  if (slash == nullptr) return path;
  return path.substr(static_cast<std::size_t>(static_cast<const char*>(slash) - path.data()) + 1);
}

std::string joinedPath(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  while (folder.ends_with('/'))
    folder.remove_suffix(1);
  while (name.starts_with('/'))
    name.remove_prefix(1);
  if (name.empty()) return folder.empty() ? "/" : std::string(folder);
  std::string result;
  result.reserve(folder.size() + 1 + name.size());
  result.append(folder).append("/").append(name);
  return result;
}

std::string_view withoutTrailingSlashes(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/'))
    path.remove_suffix(1);
  return path;
}

std::vector<std::string_view> pathComponents(std::string_view path) {
  std::vector<std::string_view> components;
  for (;;) {
    const std::size_t slash = path.find('/');
    components.push_back(path.substr(0, slash));
    if (slash == std::string_view::npos) return components;
    path.remove_prefix(slash + 1);
  }
}

std::string_view textAfterLastDot(std::string_view text) {
  return text.substr(text.rfind('.') + 1);
}

std::string_view pathExtension(std::string_view path) {
  const std::string_view name = lastPathComponent(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

std::string withDefaultExtension(std::string_view path, std::string_view extension) {
  std::string result(path);
  if (pathExtension(path).empty()) result.append(result.ends_with('.') ? "" : ".").append(extension);
  return result;
}

std::string relativePath(std::string_view path, std::string_view folder) {
  if (!path.starts_with('/') || !folder.starts_with('/')) return std::string(path);
  const auto from = pathComponents(withoutTrailingSlashes(folder));
  const auto to = pathComponents(path);
  const auto shorter = std::min(from.size(), to.size() - 1);
  std::size_t common = 1;
  while (common < shorter && from[common] == to[common])
    ++common;
  // Of two paths the root alone is no common place, unless the folder is the root itself.
  if (common == 1 && !(from.size() == 2 && from[1].empty())) return std::string(path);
  std::string relative;
  for (std::size_t i = common; i < from.size() && !from[i].empty(); ++i)
    relative += "../";
  for (std::size_t i = common; i < to.size(); ++i)
    relative.append(to[i]).append(i + 1 < to.size() ? "/" : "");
  return relative;
}

std::string_view parentFolder(std::string_view path) {
  path = withoutTrailingSlashes(path);
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string_view::npos) return {};
  return path.substr(0, std::max<std::size_t>(slash, 1));
}

}  // namespace quillmeter
