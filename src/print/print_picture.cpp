// Pictures on a page: decoded once a job, and made no finer than paper can show.
#include <algorithm>

#include "print/print.h"

namespace ostrinka {

namespace {

constexpr double kFinest = 24;  // pixels a mm, about 600 to the inch

// Each pixel the mean of `factor` by `factor`, its colours weighted by how much they cover.
Picture Reduced(const Picture& picture, int factor) {
  Picture result;
  result.width = picture.width / factor;
  result.height = picture.height / factor;
  result.pixels.reserve(static_cast<size_t>(result.width) * static_cast<size_t>(result.height));
  uint64_t count = static_cast<uint64_t>(factor) * static_cast<uint64_t>(factor);
  for (int row = 0; row < result.height; ++row) {
    for (int column = 0; column < result.width; ++column) {
      uint64_t alpha = 0, sums[3] = {};
      for (int y = row * factor; y < (row + 1) * factor; ++y) {
        const uint32_t* pixel =
            &picture.pixels[static_cast<size_t>(y) * static_cast<size_t>(picture.width) + static_cast<size_t>(column * factor)];
        for (int x = 0; x < factor; ++x, ++pixel) {
          uint64_t cover = *pixel >> 24;
          alpha += cover;
          for (int channel = 0; channel < 3; ++channel) sums[channel] += cover * (*pixel >> 8 * channel & 255);
        }
      }
      uint64_t mean = alpha / count << 24;
      for (int channel = 0; channel < 3 && alpha != 0; ++channel) mean |= (sums[channel] + alpha / 2) / alpha << 8 * channel;
      result.pixels.push_back(static_cast<uint32_t>(mean));
    }
  }
  return result;
}

}  // namespace

// For a rectangle of that size in mm; null when the decoder cannot read it.
const Picture* ClassPRINT::LoadPicture(const std::string& path, double width, double height) {
  int64_t size = program_.platform.files.FileSize(path);
  if (size < 0) return nullptr;
  if (path != picture_path_ || size != picture_size_) {
    std::optional<Picture> decoded = program_.platform.pictures.Decode(path);
    bool good = decoded && decoded->width > 0 && decoded->height > 0 &&
                decoded->pixels.size() == static_cast<size_t>(decoded->width) * static_cast<size_t>(decoded->height);
    picture_ = good ? std::make_unique<Picture>(std::move(*decoded)) : nullptr;
    picture_path_ = path;
    picture_size_ = size;
    reduction_ = 1;
  }
  if (!picture_) return nullptr;
  auto steps = [](int pixels, double mm) { return pixels / std::max(1.0, mm * kFinest); };
  int factor = static_cast<int>(std::min(steps(picture_->width, width), steps(picture_->height, height)));
  if (factor < 2) return picture_.get();
  if (factor != reduction_) reduced_ = std::make_unique<Picture>(Reduced(*picture_, factor));
  reduction_ = factor;
  return reduced_.get();
}

}  // namespace ostrinka
