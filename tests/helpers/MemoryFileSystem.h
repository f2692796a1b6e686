#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/FileSystem.h"
#include "support/Paths.h"

namespace quillmeter::testing {

/// A whole file system in memory: folders, files and links below "/", with the answers that a disk gives
/// (links followed 40 times at most, names of at most 255 bytes). Lists come in pieces and not in order,
/// reads are short, and some entries do not say their type, as all that is allowed. A file or folder may have
/// an error that opening it fails with.
///
/// Made first, then asked, by any number of threads. Its descriptors are numbers that no process has open, so
/// that closing them closes nothing.
class MemoryFileSystem final : public FileSystem {
 public:
  MemoryFileSystem() { root_.kind = Kind::folder; }

  /// These make the folders on the way; the last one to say what is at a path is right, but nothing takes a
  /// folder's place. ".." and "." and empty pieces are left out.
  void addFolder(std::string_view path) { made(path, Kind::folder); }
  void addFile(std::string_view path, std::string_view content) {
    Node* node = made(path, Kind::file);
    if (node != nullptr && node->kind == Kind::file) node->content = content;
  }
  void addLink(std::string_view path, std::string_view target) {
    Node* node = made(path, Kind::link);
    if (node != nullptr && node->kind == Kind::link) node->content = target;
  }
  /// Neither file nor folder, as a pipe is.
  void addOther(std::string_view path) { made(path, Kind::other); }
  /// Opening what is at `path`, a link's target not followed, fails from now on.
  void setError(std::string_view path, int error) {
    if (Node* node = at(path)) node->error = error;
  }

  /// The content of the file at a path, through links; null when there is no file or it cannot be opened.
  [[nodiscard]] const std::string* contentOf(const std::string& path) const {
    const auto node = found(path, Links::follow);
    return node && (*node)->kind == Kind::file && (*node)->error == 0 ? &(*node)->content : nullptr;
  }

  /// Every path below a folder, as a plain recursive walk gives them: entries in ascending byte order, each
  /// folder followed by its contents, none for one that cannot be listed.
  [[nodiscard]] std::vector<std::string> pathsBelow(const std::string& folder) const {
    std::vector<std::string> paths;
    if (const auto node = found(folder, Links::follow)) addPaths(**node, folder, paths);
    return paths;
  }

 private:
  enum class Kind : std::uint8_t { file, folder, link, other };

  struct Node {
    Kind kind = Kind::file;
    int error = 0;
    std::string content;  ///< of a file; the target of a link
    std::map<std::string, std::unique_ptr<Node>, std::less<>> inner;
    Node* parent = nullptr;
  };

  struct Open {
    const Node* node;
    std::size_t position = 0;
  };

  static constexpr int kFirstDescriptor = 1 << 30;
  static constexpr std::size_t kLongestName = 255;
  static constexpr int kMostLinks = 40;

  Node* made(std::string_view path, Kind kind) {
    Node* node = at(path);
    if (node != nullptr && node->inner.empty() && node != &root_) node->kind = kind;
    return node;
  }

  /// What is at `path`, a file where nothing was; null where nothing can be.
  Node* at(std::string_view path) {
    Node* node = &root_;
    for (const std::string_view piece : pathComponents(path)) {
      if (piece.empty() || piece == "." || piece == "..") continue;
      if (piece.size() > kLongestName || piece.find('\0') != std::string_view::npos) return nullptr;
      if (node->kind != Kind::folder) {
        node->kind = Kind::folder;
        node->content.clear();
      }
      auto& inner = node->inner[std::string(piece)];
      if (!inner) {
        inner = std::make_unique<Node>();
        inner->parent = node;
      }
      node = inner.get();
    }
    return node;
  }

  static void addPaths(const Node& folder, const std::string& path, std::vector<std::string>& paths) {
    if (folder.kind != Kind::folder || folder.error != 0) return;
    for (const auto& [name, node] : folder.inner) {
      const std::string inner = joinedPath(path, name);
      paths.push_back(inner);
      addPaths(*node, inner, paths);
    }
  }

  /// What is at `path`, seen from `from`.
  [[nodiscard]] Result<const Node*> found(std::string_view path, Links links, const Node* from = nullptr,
                                          int* followedSoFar = nullptr) const {
    int ownCount = 0;
    int& followed = followedSoFar != nullptr ? *followedSoFar : ownCount;
    if (path.empty()) return DiskError{ENOENT};
    const Node* node = from == nullptr || path.starts_with('/') ? &root_ : from;
    const auto pieces = pathComponents(path);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      const std::string_view piece = pieces[i];
      if (node->kind != Kind::folder) return DiskError{ENOTDIR};
      if (piece.size() > kLongestName) return DiskError{ENAMETOOLONG};
      if (piece.empty() || piece == ".") continue;
      if (piece == "..") {
        node = node->parent == nullptr ? node : node->parent;
        continue;
      }
      const auto next = node->inner.find(piece);
      if (next == node->inner.end()) return DiskError{ENOENT};
      if (next->second->kind != Kind::link || (i + 1 == pieces.size() && links == Links::refuse)) {
        node = next->second.get();
        continue;
      }
      if (followed++ >= kMostLinks) return DiskError{ELOOP};
      const auto target = found(next->second->content, Links::follow, node, &followed);
      if (!target) return target.error();
      node = *target;
    }
    return node;
  }

  [[nodiscard]] static FileStatus statusOf(const Node& node) {
    if (node.kind == Kind::file) return {FileStatus::Type::regular, node.content.size()};
    return {node.kind == Kind::folder ? FileStatus::Type::folder : FileStatus::Type::other, 0};
  }

  [[nodiscard]] static EntryType typeOf(const Node& node) {
    switch (node.kind) {
      case Kind::file:
        return EntryType::regular;
      case Kind::folder:
        return EntryType::folder;
      case Kind::link:
        return EntryType::link;
      case Kind::other:
        break;
    }
    return EntryType::other;
  }

  [[nodiscard]] Result<Descriptor> opened(Result<const Node*> node, bool wantsFolder) const {
    if (!node) return node.error();
    if (wantsFolder && (*node)->kind != Kind::folder) {
      return DiskError{(*node)->kind == Kind::link ? ELOOP : ENOTDIR};
    }
    if ((*node)->error != 0) return DiskError{(*node)->error};
    const std::lock_guard lock(mutex_);
    open_.push_back({*node});
    return Descriptor(kFirstDescriptor + static_cast<int>(open_.size()) - 1);
  }

  [[nodiscard]] Open& openAt(int descriptor) const {
    const std::lock_guard lock(mutex_);
    return open_.at(static_cast<std::size_t>(descriptor - kFirstDescriptor));
  }

  [[nodiscard]] Result<FileStatus> doStatus(const std::string& path) const override {
    const auto node = found(path, Links::follow);
    if (!node) return node.error();
    return statusOf(**node);
  }
  [[nodiscard]] Result<FileStatus> doStatusInFolder(const Descriptor& folder,
                                                    const std::string& name) const override {
    const auto node = found(name, Links::follow, openAt(folder.value()).node);
    if (!node) return node.error();
    return statusOf(**node);
  }
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& file) const override {
    return statusOf(*openAt(file.value()).node);
  }
  [[nodiscard]] Result<Descriptor> doOpenFolder(const std::string& path) const override {
    return opened(found(path, Links::follow), true);
  }
  [[nodiscard]] Result<Descriptor> doOpenListing(const std::string& path, Links links) const override {
    return opened(found(path, links), true);
  }
  [[nodiscard]] Result<Descriptor> doOpenListingIn(const Descriptor& parent,
                                                   const char* name) const override {
    return opened(found(name, Links::refuse, openAt(parent.value()).node), true);
  }

  /// Three entries a call, from the last one to the first; every second one keeps its type to itself.
  [[nodiscard]] Result<bool> doListSome(const Descriptor& folder, FolderListing& listing) const override {
    Open& open = openAt(folder.value());
    const auto& inner = open.node->inner;
    const std::size_t begin = open.position;
    const std::size_t end = std::min(begin + 3, inner.size());
    for (auto entry = std::next(inner.rbegin(), static_cast<std::ptrdiff_t>(open.position));
         open.position < end; ++open.position, ++entry) {
      listing.add(entry->first, open.position % 2 == 0 ? typeOf(*entry->second) : EntryType::unknown);
    }
    return open.position > begin;
  }
  [[nodiscard]] Result<EntryType> doEntryType(const Descriptor& folder, const char* name) const override {
    const auto node = found(name, Links::refuse, openAt(folder.value()).node);
    if (!node) return node.error();
    return typeOf(**node);
  }
  [[nodiscard]] Result<Descriptor> doOpen(const std::string& path) const override {
    return opened(found(path, Links::follow), false);
  }
  /// Every second read is short.
  [[nodiscard]] Result<std::size_t> doRead(int descriptor, std::span<char> buffer) const override {
    Open& open = openAt(descriptor);
    if (open.node->kind == Kind::folder) return DiskError{EISDIR};
    std::size_t count = std::min(buffer.size(), open.node->content.size() - open.position);
    if (open.position % 2 == 0) count = std::min<std::size_t>(count, 7);
    std::memcpy(buffer.data(), open.node->content.data() + open.position, count);
    open.position += count;
    return count;
  }
  [[nodiscard]] Result<bool> doIsMadeByKernel(const Descriptor& /*file*/) const override { return false; }

  [[nodiscard]] Result<std::string> doRealPath(const std::string& path) const override {
    const auto node = found(path, Links::follow);
    if (!node) return node.error();
    std::string real;
    for (const Node* at = *node; at->parent != nullptr; at = at->parent) {
      for (const auto& [name, inner] : at->parent->inner) {
        if (inner.get() == at) real.insert(0, name).insert(0, "/");
      }
    }
    return real.empty() ? "/" : real;
  }

  Node root_;
  mutable std::mutex mutex_;
  mutable std::deque<Open> open_;  ///< all that were ever opened
};

}  // namespace quillmeter::testing
