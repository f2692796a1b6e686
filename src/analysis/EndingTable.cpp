#include "analysis/EndingTable.h"

#include <string>

#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

/// The components of a path of the walk from its last to its first: those of its entries, then those of the
/// root.
class ComponentsFromTheEnd {
 public:
  ComponentsFromTheEnd(const FolderWalk& walk, const std::vector<std::string_view>& rootComponents,
                       FolderWalk::Index entry)
      : walk_(walk), rootComponents_(rootComponents), entry_(entry), root_(rootComponents.size()) {}

  [[nodiscard]] bool isAtEnd() const { return entry_ == FolderWalk::kNone && root_ == 0; }
  /// Whether the rest of this path and of `other` are the same, because they are the same folder.
  [[nodiscard]] bool meets(const ComponentsFromTheEnd& other) const {
    return entry_ == other.entry_ && root_ == other.root_;
  }

  std::string_view next() {
    if (entry_ == FolderWalk::kNone) return rootComponents_[--root_];
    const std::string_view name = walk_.name(entry_);
    entry_ = walk_.parent(entry_);
    return name;
  }

 private:
  const FolderWalk& walk_;
  const std::vector<std::string_view>& rootComponents_;
  FolderWalk::Index entry_;
  std::size_t root_;
};

/// The hash of an ending, made of its components from the last to the first.
class EndingHash {
 public:
  void add(std::string_view component) {
    for (const char c : component)
      addByte(static_cast<unsigned char>(c));
    addByte('/');
  }

  /// Adds a component as if it were lower-cased.
  void addLowerCased(std::string_view component) {
    unsigned char bits = 0;
    for (const char c : component)
      bits |= static_cast<unsigned char>(c);
    if (bits >= 0x80) return add(lowerCased(component));
    for (const char c : component) {
      const auto byte = static_cast<unsigned char>(c);
      addByte(byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + 'a' - 'A') : byte);
    }
    addByte('/');
  }

  [[nodiscard]] std::uint32_t value() const {
    const std::uint64_t mixed = (state_ ^ (state_ >> 32U)) * kOdd;
    const auto high = static_cast<std::uint32_t>(mixed >> 32U);
    return high == 0 ? 1 : high;
  }

 private:
  static constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;

  /// FNV-1a: names are short, and it needs no copy of them.
  void addByte(unsigned char byte) { state_ = (state_ ^ byte) * 0x100000001B3; }

  std::uint64_t state_ = 0xCBF29CE484222325;
};

std::uint32_t hashOfText(std::string_view ending) {
  EndingHash hash;
  for (;;) {
    const std::size_t slash = ending.rfind('/');
    hash.add(ending.substr(slash + 1));
    if (slash == std::string_view::npos) return hash.value();
    ending = ending.substr(0, slash);
  }
}

}  // namespace

EndingTable::EndingTable(const FolderWalk& walk, std::size_t components, Letters letters)
    : walk_(walk),
      components_(components),
      letters_(letters),
      rootComponents_(pathComponents(walk.root())),
      slots_(walk.size() + walk.size() / 4 + 1),
      next_(walk.size(), FolderWalk::kNone) {
  // From the last entry to the first, each put in front of its group, so that the chains are in walk order.
  for (FolderWalk::Index entry = walk.size(); entry-- > 0;) {
    if (const auto hash = hashOfEnding(entry)) insert(entry, *hash);
  }
}

/// The hash of an entry's ending; absent when its path has too few components.
std::optional<std::uint32_t> EndingTable::hashOfEnding(FolderWalk::Index entry) const {
  EndingHash hash;
  if (letters_ == Letters::lowerCased) {
    hash.addLowerCased(walk_.name(entry));
    return hash.value();
  }
  ComponentsFromTheEnd components(walk_, rootComponents_, entry);
  for (std::size_t i = 0; i < components_; ++i) {
    if (components.isAtEnd()) return std::nullopt;
    hash.add(components.next());
  }
  return hash.value();
}

bool EndingTable::hasEnding(FolderWalk::Index entry, std::string_view ending) const {
  if (letters_ == Letters::lowerCased) {
    return walk_.name(entry) == ending || lowerCased(walk_.name(entry)) == ending;
  }
  ComponentsFromTheEnd components(walk_, rootComponents_, entry);
  for (std::size_t i = 0; i < components_; ++i) {
    const std::size_t slash = ending.rfind('/');
    if (components.isAtEnd() || components.next() != ending.substr(slash + 1)) return false;
    ending = ending.substr(0, slash == std::string_view::npos ? 0 : slash);
  }
  return true;
}

bool EndingTable::haveSameEnding(FolderWalk::Index left, FolderWalk::Index right) const {
  if (letters_ == Letters::lowerCased) return haveSameLowerCase(walk_.name(left), walk_.name(right));
  ComponentsFromTheEnd leftComponents(walk_, rootComponents_, left);
  ComponentsFromTheEnd rightComponents(walk_, rootComponents_, right);
  for (std::size_t i = 0; i < components_ && !leftComponents.meets(rightComponents); ++i) {
    if (leftComponents.next() != rightComponents.next()) return false;
  }
  return true;
}

template <class IsGroup>
EndingTable::Group& EndingTable::slotFor(std::uint32_t hash, const IsGroup& isGroup) {
  auto slot = static_cast<std::size_t>((std::uint64_t{hash} * slots_.size()) >> 32U);
  for (;; slot = slot + 1 == slots_.size() ? 0 : slot + 1) {
    Group& group = slots_[slot];
    if (group.hash == 0 || (group.hash == hash && isGroup(group))) return group;
  }
}

void EndingTable::insert(FolderWalk::Index entry, std::uint32_t hash) {
  Group& group = slotFor(hash, [&](const Group& taken) { return haveSameEnding(taken.chain, entry); });
  group.hash = hash;
  next_[entry] = group.chain;
  group.chain = group.candidate = entry;
}

EndingTable::Group* EndingTable::find(std::string_view ending) {
  Group& group =
      slotFor(hashOfText(ending), [&](const Group& taken) { return hasEnding(taken.chain, ending); });
  return group.hash == 0 ? nullptr : &group;
}

}  // namespace quillmeter
