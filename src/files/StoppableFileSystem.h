#pragma once

#include <stop_token>
#include <utility>

#include "files/FileSystem.h"

namespace quillmeter {

/// Another file system until a stop is requested; from then on every call fails at once. This is how a read
/// that nobody waits for ends: within one call of each of its threads. It is made for one read and goes with
/// it; the file system behind it keeps working.
class StoppableFileSystem final : public FileSystem {
 public:
  /// `behind` must outlive this object.
  StoppableFileSystem(const FileSystem& behind, std::stop_token stop)
      : behind_(behind), stop_(std::move(stop)) {}

 private:
  [[nodiscard]] Result<FileStatus> doStatus(const std::string& path) const override;
  [[nodiscard]] Result<FileStatus> doStatusInFolder(const Descriptor& folder,
                                                    const std::string& name) const override;
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& file) const override;
  [[nodiscard]] Result<Descriptor> doOpenFolder(const std::string& path) const override;
  [[nodiscard]] Result<Descriptor> doOpenListing(const std::string& path, Links links) const override;
  [[nodiscard]] Result<Descriptor> doOpenListingIn(const Descriptor& parent, const char* name) const override;
  [[nodiscard]] Result<bool> doListSome(const Descriptor& folder, FolderListing& listing) const override;
  [[nodiscard]] Result<EntryType> doEntryType(const Descriptor& folder, const char* name) const override;
  [[nodiscard]] Result<Descriptor> doOpen(const std::string& path) const override;
  [[nodiscard]] Result<std::size_t> doRead(int descriptor, std::span<char> buffer) const override;
  [[nodiscard]] Result<bool> doIsMadeByKernel(const Descriptor& file) const override;
  [[nodiscard]] Result<std::string> doRealPath(const std::string& path) const override;

  const FileSystem& behind_;
  std::stop_token stop_;
};

}  // namespace quillmeter
