// One reader a format, each from the whole file in memory; nothing for a file that is not of its format, is damaged, or holds too many
// pixels.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/canvas.h"

namespace ostrinka {

// Whether a picture of that size may be made: at least one pixel, at most 64 million.
constexpr bool PixelsFit(int64_t width, int64_t height) {
  constexpr int64_t kMost = 64'000'000;
  return width >= 1 && height >= 1 && width <= kMost && height <= kMost && width * height <= kMost;
}

// 1, 4, 8, 16, 24 and 32 bits a pixel, upright or top-down, plain, with masks or run-length encoded.
std::optional<Picture> ReadBitmap(std::string_view file);
std::optional<Picture> ReadPng(std::string_view file);
std::optional<Picture> ReadJpeg(std::string_view file);
// The first picture of the file, on the ground of its screen.
std::optional<Picture> ReadGif(std::string_view file);

}  // namespace ostrinka
