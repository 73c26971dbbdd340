// What becomes of a picture's pixels on paper.
#pragma once

#include <cstdint>
#include <initializer_list>

namespace ostrinka {

// A pixel 0xAARRGGBB on white paper: 0xRRGGBB.
constexpr uint32_t OnWhitePaper(uint32_t pixel) {
  const uint32_t alpha = pixel >> 24;
  uint32_t colour = 0;
  for (const int shift : {0, 8, 16}) colour |= ((pixel >> shift & 255) * alpha + 255 * (255 - alpha) + 127) / 255 << shift;
  return colour;
}

}  // namespace ostrinka
