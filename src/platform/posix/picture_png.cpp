// PNG through libpng, which turns every kind of pixel into eight bits a colour with alpha.
#include <png.h>

#include "platform/posix/picture_formats.h"

namespace ostrinka {

std::optional<Picture> ReadPng(std::string_view file) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_memory(&image, file.data(), file.size())) return std::nullopt;
  Picture picture;
  if (!PixelsFit(image.width, image.height)) {
    png_image_free(&image);
    return std::nullopt;
  }
  picture.width = static_cast<int>(image.width);
  picture.height = static_cast<int>(image.height);
  picture.pixels.resize(size_t{image.width} * image.height);
  image.format = PNG_FORMAT_BGRA;            // 0xAARRGGBB in the order of this machine's bytes
  image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;  // 16 bits a colour mean the screen's colours as well, not light's
  const bool read = png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr) != 0;  // frees `image` either way
  if (!read) return std::nullopt;
  return picture;
}

}  // namespace ostrinka
