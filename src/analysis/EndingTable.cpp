#include "analysis/EndingTable.h"

#include <functional>

#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

std::uint32_t hashOf(std::string_view text) {
  const std::size_t hash = std::hash<std::string_view>{}(text);
  const auto folded = static_cast<std::uint32_t>(hash ^ (hash >> 32U));
  return folded == 0 ? 1 : folded;
}

}  // namespace

EndingTable::EndingTable(const FolderWalk& walk, std::size_t components, Letters letters)
    : walk_(walk),
      components_(components),
      letters_(letters),
      rootComponents_(pathComponents(walk.root())),
      slots_(walk.size() + walk.size() / 4 + 1),
      next_(walk.size(), FolderWalk::kNone) {
  std::string ending;
  // From the last entry to the first, each put in front of its group, so that the chains are in walk order.
  for (FolderWalk::Index entry = walk.size(); entry-- > 0;) {
    if (readEnding(entry, ending)) insert(entry, ending);
  }
}

bool EndingTable::readEnding(FolderWalk::Index entry, std::string& ending) const {
  if (letters_ == Letters::lowerCased) {
    ending = lowerCased(walk_.name(entry));
    return true;
  }
  // The components are met from the last to the first; those of the walked folder itself come behind its
  // entries'.
  std::vector<std::string_view> components;
  components.reserve(components_);
  FolderWalk::Index at = entry;
  for (; at != FolderWalk::kNone && components.size() < components_; at = walk_.parent(at)) {
    components.push_back(walk_.name(at));
  }
  const std::size_t missing = components_ - components.size();
  if (missing > rootComponents_.size()) return false;
  components.insert(components.end(), rootComponents_.rbegin(),
                    rootComponents_.rbegin() + static_cast<std::ptrdiff_t>(missing));
  ending.clear();
  for (auto component = components.rbegin(); component != components.rend(); ++component) {
    if (component != components.rbegin()) ending += '/';
    ending += *component;
  }
  return true;
}

EndingTable::Group& EndingTable::slotFor(std::string_view ending, std::uint32_t hash) {
  auto slot = static_cast<std::size_t>((std::uint64_t{hash} * slots_.size()) >> 32U);
  for (;; slot = slot + 1 == slots_.size() ? 0 : slot + 1) {
    Group& group = slots_[slot];
    if (group.hash == 0) return group;
    if (group.hash == hash && readEnding(group.chain, scratch_) && scratch_ == ending) return group;
  }
}

void EndingTable::insert(FolderWalk::Index entry, std::string_view ending) {
  const std::uint32_t hash = hashOf(ending);
  Group& group = slotFor(ending, hash);
  group.hash = hash;
  next_[entry] = group.chain;
  group.chain = group.candidate = entry;
}

EndingTable::Group* EndingTable::find(std::string_view ending) {
  Group& group = slotFor(ending, hashOf(ending));
  return group.hash == 0 ? nullptr : &group;
}

}  // namespace quillmeter
