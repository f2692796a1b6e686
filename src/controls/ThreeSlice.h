#pragma once

/// How a picture is stretched to a width with its ends left as they are.
namespace quillmeter {

/// A piece of the picture and where it goes; both lie on one line, so only x and width are told. A piece
/// without width is not drawn.
struct Slice {
  float sourceX;
  float sourceWidth;
  float targetX;
  float targetWidth;

  [[nodiscard]] bool isDrawn() const { return sourceWidth > 0 && targetWidth > 0; }
};

struct ThreeSlice {
  Slice left;
  Slice middle;
  Slice right;
  float width;  ///< of the result; nothing is drawn when it is not positive
};

/// The three slices of a picture `imageWidth` wide: its left and right ends of the cap widths, and what lies
/// between them stretched to `middleWidth`.
[[nodiscard]] ThreeSlice threeSlice(float imageWidth, float leftCapWidth, float middleWidth,
                                    float rightCapWidth);

}  // namespace quillmeter
