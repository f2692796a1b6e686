#pragma once

#include <string>

/// What the progress bar draws, as plain figures. All lengths are in points.
namespace quillmeter {

inline constexpr double kProgressBarWidth = 300.0;  ///< the filled part at the maximum
inline constexpr double kProgressBarMinimum =
    51.0;                                        ///< the filled part at nothing: two caps and a middle of 1
inline constexpr float kProgressBarCap = 25.0F;  ///< width of each rounded end
inline constexpr double kProgressBarLabelTop = 10.0;  ///< where the label's line begins
inline constexpr double kProgressBarLabelHeight = 30.0;

struct ProgressBarGeometry {
  double filledWidth;  ///< also the width that the label is centred in
  float middleWidth;   ///< of the filled part, between its caps
  std::string label;   ///< such as "33%"
};

/// The bar for a value out of a maximum. The percentage is cut off, not rounded. A value that is not a
/// number, or a maximum of 0, gives the shortest bar (with "0%" for a quotient that is no number); a quotient
/// beyond every screen is held at 100 times the full width.
[[nodiscard]] ProgressBarGeometry progressBarGeometry(double value, double maximum);

}  // namespace quillmeter
