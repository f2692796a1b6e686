#include "files/StoppableFileSystem.h"

#include <cerrno>

namespace quillmeter {
namespace {

template <class Call>
auto unlessStopped(const std::stop_token& stop, const Call& call) -> decltype(call()) {
  if (stop.stop_requested()) return DiskError{ECANCELED};
  return call();
}

}  // namespace

Result<FileStatus> StoppableFileSystem::doStatus(const std::string& path) const {
  return unlessStopped(stop_, [&] { return behind_.status(path); });
}
Result<FileStatus> StoppableFileSystem::doStatusInFolder(const Descriptor& folder,
                                                         const std::string& name) const {
  return unlessStopped(stop_, [&] { return behind_.statusInFolder(folder, name); });
}
Result<FileStatus> StoppableFileSystem::doStatusOfOpen(const Descriptor& file) const {
  return unlessStopped(stop_, [&] { return behind_.statusOfOpen(file); });
}
Result<Descriptor> StoppableFileSystem::doOpenFolder(const std::string& path) const {
  return unlessStopped(stop_, [&] { return behind_.openFolder(path); });
}
Result<Descriptor> StoppableFileSystem::doOpenListing(const std::string& path, Links links) const {
  return unlessStopped(stop_, [&] { return behind_.openListing(path, links); });
}
Result<Descriptor> StoppableFileSystem::doOpenListingIn(const Descriptor& parent, const char* name) const {
  return unlessStopped(stop_, [&] { return behind_.openListingIn(parent, name); });
}
Result<bool> StoppableFileSystem::doListSome(const Descriptor& folder, FolderListing& listing) const {
  return unlessStopped(stop_, [&] { return behind_.listSome(folder, listing); });
}
Result<EntryType> StoppableFileSystem::doEntryType(const Descriptor& folder, const char* name) const {
  return unlessStopped(stop_, [&] { return behind_.entryType(folder, name); });
}
Result<Descriptor> StoppableFileSystem::doOpen(const std::string& path) const {
  return unlessStopped(stop_, [&] { return behind_.open(path); });
}
Result<std::size_t> StoppableFileSystem::doRead(int descriptor, std::span<char> buffer) const {
  return unlessStopped(stop_, [&] { return behind_.read(descriptor, buffer); });
}
Result<bool> StoppableFileSystem::doIsMadeByKernel(const Descriptor& file) const {
  return unlessStopped(stop_, [&] { return behind_.isMadeByKernel(file); });
}

Result<std::string> StoppableFileSystem::doRealPath(const std::string& path) const {
  return unlessStopped(stop_, [&] { return behind_.realPath(path); });
}

}  // namespace quillmeter
