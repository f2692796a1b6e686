#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "files/FileSystem.h"

namespace quillmeter::testing {

/// The disk, with a word before each call: what `before` gives is the call's error, and the call is not made;
/// none lets it be made. It may also note, wait or throw. `item` is the path or name that the call is about,
/// empty for what is open already. Called from every thread of a read.
class PlayedFileSystem final : public FileSystem {
 public:
  using Before = std::function<DiskError(std::string_view call, const std::string& item)>;
  explicit PlayedFileSystem(Before before) : before_(std::move(before)) {}

 private:
  template <class Call>
  auto played(std::string_view name, const std::string& item, const Call& call) const -> decltype(call()) {
    if (const DiskError error = before_(name, item)) return error;
    return call();
  }

  [[nodiscard]] Result<FileStatus> doStatus(const std::string& path) const override {
    return played("status", path, [&] { return real().status(path); });
  }
  [[nodiscard]] Result<FileStatus> doStatusInFolder(const Descriptor& folder,
                                                    const std::string& name) const override {
    return played("statusInFolder", name, [&] { return real().statusInFolder(folder, name); });
  }
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& file) const override {
    return played("statusOfOpen", {}, [&] { return real().statusOfOpen(file); });
  }
  [[nodiscard]] Result<Descriptor> doOpenFolder(const std::string& path) const override {
    return played("openFolder", path, [&] { return real().openFolder(path); });
  }
  [[nodiscard]] Result<Descriptor> doOpenListing(const std::string& path, Links links) const override {
    return played("openListing", path, [&] { return real().openListing(path, links); });
  }
  [[nodiscard]] Result<Descriptor> doOpenListingIn(const Descriptor& parent,
                                                   const char* name) const override {
    return played("openListingIn", name, [&] { return real().openListingIn(parent, name); });
  }
  [[nodiscard]] Result<bool> doListSome(const Descriptor& folder, FolderListing& listing) const override {
    return played("listSome", {}, [&] { return real().listSome(folder, listing); });
  }
  [[nodiscard]] Result<EntryType> doEntryType(const Descriptor& folder, const char* name) const override {
    return played("entryType", name, [&] { return real().entryType(folder, name); });
  }
  [[nodiscard]] Result<Descriptor> doOpen(const std::string& path) const override {
    return played("open", path, [&] { return real().open(path); });
  }
  [[nodiscard]] Result<std::size_t> doRead(int descriptor, std::span<char> buffer) const override {
    return played("read", {}, [&] { return real().read(descriptor, buffer); });
  }
  [[nodiscard]] Result<bool> doIsMadeByKernel(const Descriptor& file) const override {
    return played("isMadeByKernel", {}, [&] { return real().isMadeByKernel(file); });
  }
  [[nodiscard]] Result<std::string> doRealPath(const std::string& path) const override {
    return played("realPath", path, [&] { return real().realPath(path); });
  }

  Before before_;
};

}  // namespace quillmeter::testing
