#include "measuring/TextScan.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

#include "measuring/TextScanStep.h"

// Elsewhere the vectors that every machine has are the ones to use.
#if !defined(__x86_64__) && !defined(HWY_COMPILE_ONLY_STATIC)
#define HWY_COMPILE_ONLY_STATIC
#endif

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "measuring/TextScan.cpp"
#include <hwy/foreach_target.h>  // includes this file once more for each instruction set
#include <hwy/highway.h>

// Turns bytes into the masks that TextScanStep.h computes with: once for every instruction set.
HWY_BEFORE_NAMESPACE();
namespace quillmeter::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t kBlock = 64;
constexpr std::size_t kLookAhead = 2;  ///< bytes of a white-space character behind its first one

using Bytes = hn::CappedTag<std::uint8_t, kBlock>;
using SignedBytes = hn::RebindToSigned<Bytes>;
using Vector = hn::Vec<Bytes>;
using Mask = hn::Mask<Bytes>;

HWY_INLINE Mask equals(Vector bytes, std::uint8_t value) {
  return hn::Eq(bytes, hn::Set(Bytes(), value));
}

/// Compares as signed numbers, in which 0x80 to 0xFF are -128 to -1.
HWY_INLINE Mask isBelow(Vector bytes, std::int8_t value) {
  const SignedBytes d;
  return hn::RebindMask(Bytes(), hn::Lt(hn::BitCast(d, bytes), hn::Set(d, value)));
}

HWY_INLINE Mask isAbove(Vector bytes, std::int8_t value) {
  const SignedBytes d;
  return hn::RebindMask(Bytes(), hn::Gt(hn::BitCast(d, bytes), hn::Set(d, value)));
}

/// The line breaks of ASCII, U+000A to U+000D, moved to the upper end of the signed numbers.
HWY_INLINE Mask isAsciiBreak(Vector bytes) {
  return isAbove(hn::Add(bytes, hn::Set(Bytes(), 0x7F - 0x0D)), 0x7F - 4);
}

HWY_INLINE Mask isAsciiSpace(Vector bytes) {
  return hn::Or(equals(bytes, ' '), equals(bytes, '\t'));
}

HWY_INLINE std::uint64_t bitsOf(Mask mask) {
  constexpr std::size_t kLanes = hn::MaxLanes(Bytes());
  using Narrow = std::conditional_t<kLanes == 16, std::uint16_t, std::uint8_t>;
  using Wide = std::conditional_t<kLanes == 32, std::uint32_t, std::uint64_t>;
  using Word = std::conditional_t<(kLanes > 16), Wide, Narrow>;
  alignas(8) std::array<std::uint8_t, 8> stored{};
  hn::StoreMaskBits(Bytes(), mask, stored.data());
  Word word = 0;
  std::memcpy(&word, stored.data(), sizeof(word));
  return word;
}

/// A bit for each byte of a block, from `condition`, which gives the mask of the vector at an offset.
template <class Condition>
HWY_INLINE std::uint64_t bitsWhere(const Condition& condition) {
  const std::size_t lanes = hn::Lanes(Bytes());
  std::uint64_t bits = 0;
  for (std::size_t offset = 0; offset < kBlock; offset += lanes)
    bits |= bitsOf(condition(offset)) << offset;
  return bits;
}

/// What there is to know of the 64 bytes at `block` as far as they are ASCII.
HWY_INLINE BlockMasks asciiMasks(const std::uint8_t* block) {
  const auto at = [block](std::size_t offset) HWY_ATTR { return hn::LoadU(Bytes(), block + offset); };
  return {.breaks = bitsWhere([&](std::size_t offset) HWY_ATTR { return isAsciiBreak(at(offset)); }),
          .spaces = bitsWhere([&](std::size_t offset) HWY_ATTR { return isAsciiSpace(at(offset)); }),
          .slashes = bitsWhere([&](std::size_t offset) HWY_ATTR { return equals(at(offset), '/'); }),
          .stars = bitsWhere([&](std::size_t offset) HWY_ATTR { return equals(at(offset), '*'); }),
          .characters = ~std::uint64_t{0}};
}

HWY_INLINE std::uint64_t nonAsciiBytes(const std::uint8_t* block) {
  return bitsWhere([block](std::size_t offset)
                       HWY_ATTR { return isBelow(hn::LoadU(Bytes(), block + offset), 0); });
}

/// The three bytes from each byte of a vector on.
struct Triples {
  Vector first;
  Vector second;
  Vector third;
};

/// U+0085, U+2028 and U+2029.
HWY_INLINE Mask isBreakBeyondAscii(const Triples& bytes) {
  const Mask u0085 = hn::And(equals(bytes.first, 0xC2), equals(bytes.second, 0x85));
  const Mask u20xx = hn::And(equals(bytes.first, 0xE2), equals(bytes.second, 0x80));
  return hn::Or(u0085, hn::And(u20xx, equals(hn::Or(bytes.third, hn::Set(Bytes(), 1)), 0xA9)));
}

/// U+00A0, U+1680, U+2000 to U+200A, U+202F, U+205F and U+3000.
HWY_INLINE Mask isSpaceBeyondAscii(const Triples& bytes) {
  const Mask u00a0 = hn::And(equals(bytes.first, 0xC2), equals(bytes.second, 0xA0));
  const Mask u1680 = hn::And(equals(bytes.first, 0xE1), equals(bytes.second, 0x9A));
  const Mask u3000 = hn::And(equals(bytes.first, 0xE3), equals(bytes.second, 0x80));
  const Mask ending80 = hn::And(hn::Or(u1680, u3000), equals(bytes.third, 0x80));
  const Mask u2000To200aOr202f =
      hn::And(equals(bytes.second, 0x80),
              hn::Or(isBelow(bytes.third, static_cast<std::int8_t>(0x8B)), equals(bytes.third, 0xAF)));
  const Mask u205f = hn::And(equals(bytes.second, 0x81), equals(bytes.third, 0x9F));
  const Mask u20xx = hn::And(equals(bytes.first, 0xE2), hn::Or(u2000To200aOr202f, u205f));
  return hn::Or(hn::Or(u00a0, ending80), u20xx);
}

/// Adds to `masks` what is beyond ASCII in the block, behind whose 64 bytes `kLookAhead` more can be read.
/// `carried` holds, in its lowest bits, the further bytes of a white-space character that the last block
/// ended in, and then those that this one ends in.
HWY_INLINE void addBeyondAscii(BlockMasks& masks, const std::uint8_t* block, std::uint64_t& carried) {
  const auto at = [block](std::size_t offset) HWY_ATTR { return hn::LoadU(Bytes(), block + offset); };
  masks.characters = ~bitsWhere([&](std::size_t offset)
                                    HWY_ATTR { return isBelow(at(offset), static_cast<std::int8_t>(0xC0)); });
  masks.pairs = bitsWhere([&](std::size_t offset) HWY_ATTR {
    return hn::And(isAbove(at(offset), static_cast<std::int8_t>(0xEF)), isBelow(at(offset), 0));
  });
  masks.spaces |= carried;
  carried = 0;

  const std::uint64_t firstOfThree = bitsWhere([&](std::size_t offset) HWY_ATTR {
    return hn::Or(equals(at(offset), 0xE1), equals(hn::Or(at(offset), hn::Set(Bytes(), 1)), 0xE3));
  });

  const auto triplesAt = [&](std::size_t offset) HWY_ATTR {
    return Triples{at(offset), at(offset + 1), at(offset + 2)};
  };
  const std::uint64_t breaks =
      bitsWhere([&](std::size_t offset) HWY_ATTR { return isBreakBeyondAscii(triplesAt(offset)); });
  const std::uint64_t spaces =
      bitsWhere([&](std::size_t offset) HWY_ATTR { return isSpaceBeyondAscii(triplesAt(offset)); });
  const std::uint64_t white = breaks | spaces;
  const std::uint64_t whiteOfThree = white & firstOfThree;
  masks.breaks |= breaks;
  masks.spaces |= spaces | (white << 1U) | (whiteOfThree << 2U);
  carried = (white >> 63U) | (whiteOfThree >> 62U);
}

/// The last block of a text, of `size` bytes, 1 to 64, from a copy that is filled up with zeros.
HWY_INLINE void scanLastBlock(TextScan& scan, const std::uint8_t* block, std::size_t size,
                              std::uint64_t& carried) {
  BlockMasks masks = asciiMasks(block);
  addBeyondAscii(masks, block, carried);
  const std::uint64_t text = ~std::uint64_t{0} >> (kBlock - size);
  masks.characters &= text;
  masks.spaces |= ~text;
  masks.size = static_cast<unsigned>(size);
  advance(scan, masks);
}

void scanOnTarget(TextScan& result, const char* text, std::size_t size) {
  TextScan scan = result;
  const auto* block = reinterpret_cast<const std::uint8_t*>(text);
  std::uint64_t carried = 0;
  for (; size >= kBlock + kLookAhead; block += kBlock, size -= kBlock) {
    BlockMasks masks = asciiMasks(block);
    if (nonAsciiBytes(block) == 0) {
      advance(scan, masks);
    } else {
      addBeyondAscii(masks, block, carried);
      advance(scan, masks);
    }
  }
  while (size > 0) {
    std::array<std::uint8_t, kBlock + kLookAhead> filled{};
    std::memcpy(filled.data(), block, size);
    const std::size_t part = std::min(size, kBlock);
    scanLastBlock(scan, filled.data(), part, carried);
    block += part;
    size -= part;
  }
  result = scan;
}

}  // namespace
}  // namespace quillmeter::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace quillmeter {
namespace {

/// Whether the machine and its system can run what has been compiled for `target`, one of Highway's.
/// Highway's own answer is not asked for: its library measures the clock whenever a program that is linked
/// with it starts, which takes longer than measuring a small project.
bool canRun(std::int64_t target) {
#if HWY_ARCH_X86
  __builtin_cpu_init();
  const bool ssse3 = __builtin_cpu_supports("ssse3") != 0;
  const bool sse4 = ssse3 && __builtin_cpu_supports("sse4.1") != 0 && __builtin_cpu_supports("sse4.2") != 0 &&
                    __builtin_cpu_supports("popcnt") != 0 && __builtin_cpu_supports("pclmul") != 0 &&
                    __builtin_cpu_supports("aes") != 0;
  const bool avx2 = sse4 && __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi") != 0 &&
                    __builtin_cpu_supports("bmi2") != 0 && __builtin_cpu_supports("fma") != 0;
  const bool avx3 = avx2 && __builtin_cpu_supports("avx512f") != 0 &&
                    __builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512dq") != 0 &&
                    __builtin_cpu_supports("avx512bw") != 0;
  if (target == HWY_SSSE3) return ssse3;
  if (target == HWY_SSE4) return sse4;
  if (target == HWY_AVX2) return avx2;
  if (target == HWY_AVX3) return avx3;
#endif
  return target == HWY_STATIC_TARGET;
}

std::vector<TextScanTarget> runnableTargets() {
  std::vector<TextScanTarget> targets;
  const auto add = [&targets](std::int64_t target, TextScanFunction scan) {
    if (scan != nullptr && canRun(target)) targets.push_back({hwy::TargetName(target), scan});
  };
#if HWY_ARCH_X86
  add(HWY_AVX3, HWY_CHOOSE_AVX3(scanOnTarget));
  add(HWY_AVX2, HWY_CHOOSE_AVX2(scanOnTarget));
  add(HWY_SSE4, HWY_CHOOSE_SSE4(scanOnTarget));
  add(HWY_SSSE3, HWY_CHOOSE_SSSE3(scanOnTarget));
#endif
  const TextScanFunction always = &HWY_STATIC_DISPATCH(scanOnTarget);
  if (targets.empty() || targets.back().scan != always)
    targets.push_back({hwy::TargetName(HWY_STATIC_TARGET), always});
  return targets;
}

}  // namespace

std::span<const TextScanTarget> textScanTargets() {
  static const std::vector<TextScanTarget> targets = runnableTargets();
  return targets;
}

}  // namespace quillmeter
#endif
