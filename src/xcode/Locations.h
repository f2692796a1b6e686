#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmeter {

/// Absolute locations, normalised as text: empty and "." pieces are dropped, ".." is folded with the piece
/// before it, one at the root is dropped. The disk is never asked.
///
/// Each location is kept as its last piece and its parent, so that a location below another one costs its own
/// pieces only, however deep the other one lies. The names given must outlive this object.
class Locations {
 public:
  enum class Id : std::uint32_t {};
  static constexpr Id kRoot{0};

  [[nodiscard]] Id joined(Id folder, std::string_view path);
  [[nodiscard]] std::string text(Id location) const;

 private:
  struct Piece {
    Id parent;
    std::string_view name;
  };
  [[nodiscard]] const Piece& piece(Id location) const {
    return pieces_[static_cast<std::uint32_t>(location)];
  }

  std::vector<Piece> pieces_{{kRoot, {}}};
};

/// `path`, taken from the absolute `folder`, as a normalised location; a leading "/" of `path` is an empty
/// piece like any other.
[[nodiscard]] std::string normalisedLocation(std::string_view folder, std::string_view path = {});

/// The location that holds another one; "/" holds itself.
[[nodiscard]] std::string_view parentLocation(std::string_view location);

/// Whether `location` lies below `folder`, at any depth.
[[nodiscard]] bool isBelow(std::string_view location, std::string_view folder);

/// The text after the last "." of the last component, lower-cased (ASCII); empty without a ".".
[[nodiscard]] std::string locationExtension(std::string_view location);

}  // namespace quillmeter
