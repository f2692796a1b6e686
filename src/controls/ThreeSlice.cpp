#include "controls/ThreeSlice.h"

namespace quillmeter {

ThreeSlice threeSlice(float imageWidth, float leftCapWidth, float middleWidth, float rightCapWidth) {
  const float sourceMiddle = imageWidth - leftCapWidth - rightCapWidth;
  return {.left = {0, leftCapWidth, 0, leftCapWidth},
          .middle = {leftCapWidth, sourceMiddle, leftCapWidth, middleWidth},
          .right = {imageWidth - rightCapWidth, rightCapWidth, leftCapWidth + middleWidth, rightCapWidth},
          .width = leftCapWidth + middleWidth + rightCapWidth};
}

}  // namespace quillmeter
