#include "analysis/NameTable.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <utility>

#include "support/Text.h"

namespace quillmeter {
namespace {

/// How many names are hashed before the first of them is put into its slot: slots lie all over the memory,
/// and asking for many at a time is much quicker than for one after the other.
constexpr std::size_t kBatch = 32;

bool isAscii(std::string_view text) {
  unsigned char bits = 0;
  for (const char c : text)
    bits |= static_cast<unsigned char>(c);
  return bits < 0x80;
}

/// Eight ASCII letters lower-cased at once: 0x20 is added to each byte from 'A' to 'Z'.
std::uint64_t lowerCasedWord(std::uint64_t letters) {
  constexpr std::uint64_t each = 0x0101010101010101;
  const std::uint64_t fromA = letters + each * (0x80 - 'A');
  const std::uint64_t behindZ = letters + each * (0x7F - 'Z');
  return letters + (((fromA & ~behindZ) & (each * 0x80)) >> 2U);
}

/// Multiplies and folds word by word of eight bytes, the last one filled up with zeroes.
class NameHash {
 public:
  void add(std::string_view name) {
    addWords(name, [](std::uint64_t word) { return word; });
  }
  /// Adds an ASCII name as if it were lower-cased.
  void addLowerCased(std::string_view name) { addWords(name, lowerCasedWord); }

  /// Never 0.
  [[nodiscard]] std::uint32_t value() const {
    const std::uint64_t mixed = state_ * 0x9E3779B97F4A7C15;
    return std::max(static_cast<std::uint32_t>(mixed >> 32U), std::uint32_t{1});
  }

 private:
  template <class Map>
  void addWords(std::string_view name, const Map& map) {
    for (; name.size() > 8; name.remove_prefix(8))
      addWord(map(wordOf(name.substr(0, 8))));
    addWord(map(wordOf(name)));
  }
  static std::uint64_t wordOf(std::string_view bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data(), bytes.size());
    return word;
  }
  void addWord(std::uint64_t word) {
    state_ = (state_ ^ word) * 0x9E3779B97F4A7C15;
    state_ ^= state_ >> 32U;
  }

  std::uint64_t state_ = 0xCBF29CE484222325;
};

}  // namespace

NameTable::NameTable(const PathTree& tree, Node first, Letters letters)
    : tree_(tree),
      first_(first),
      letters_(letters),
      slots_((tree.size() - first) + (tree.size() - first) / 4 + 1),
      next_(tree.size() - first, PathTree::kNone) {
  // From the last node to the first, each put in front of its group, so that the chains are in walk order.
  std::array<std::uint32_t, kBatch> hashes{};
  for (Node end = tree.size(); end > first;) {
    const auto count = static_cast<Node>(std::min<std::size_t>(kBatch, end - first));
    for (Node i = 0; i < count; ++i) {
      hashes[i] = hashOf(tree.name(end - 1 - i));
      __builtin_prefetch(&slots_[slotOf(hashes[i])], 1);
    }
    for (Node i = 0; i < count; ++i)
      insert(end - 1 - i, hashes[i]);
    end -= count;
  }
}

std::uint32_t NameTable::hashOf(std::string_view name) const {
  NameHash hash;
  if (letters_ == Letters::asTheyAre) {
    hash.add(name);
  } else if (isAscii(name)) {
    hash.addLowerCased(name);
  } else {
    hash.add(lowerCased(name));
  }
  return hash.value();
}

bool NameTable::isCalled(Node node, std::string_view name) const {
  if (tree_.name(node) == name) return true;
  return letters_ == Letters::lowerCased && lowerCased(tree_.name(node)) == name;
}

bool NameTable::haveSameName(Node left, Node right) const {
  if (letters_ == Letters::asTheyAre) return tree_.name(left) == tree_.name(right);
  return haveSameLowerCase(tree_.name(left), tree_.name(right));
}

std::size_t NameTable::slotOf(std::uint32_t hash) const {
  return static_cast<std::size_t>((std::uint64_t{hash} * slots_.size()) >> 32U);
}

template <class IsGroup>
std::size_t NameTable::slotFor(std::uint32_t hash, const IsGroup& isGroup) const {
  for (std::size_t slot = slotOf(hash);; slot = slot + 1 == slots_.size() ? 0 : slot + 1) {
    const Group& group = slots_[slot];
    if (group.hash == 0 || (group.hash == hash && isGroup(group))) return slot;
  }
}

void NameTable::insert(Node node, std::uint32_t hash) {
  Group& group = slots_[slotFor(hash, [&](const Group& taken) { return haveSameName(taken.first, node); })];
  group.hash = hash;
  next_[node - first_] = group.first;
  group.first = node;
  ++group.count;
}

const NameTable::Group* NameTable::find(std::string_view name) const {
  // A group whose nodes were all dropped has no name to compare any more.
  const auto isCalledSo = [&](const Group& group) { return group.count > 0 && isCalled(group.first, name); };
  const Group& group = slots_[slotFor(hashOf(name), isCalledSo)];
  return group.hash == 0 ? nullptr : &group;
}

NameTable::Group* NameTable::find(std::string_view name) {
  return const_cast<Group*>(std::as_const(*this).find(name));
}

void NameTable::dropFirst(Group& group) const {
  group.first = next(group.first);
  --group.count;
}

}  // namespace quillmeter
