// Pictures on a page: decoded once a job, and made no finer than paper can show.
#include <algorithm>

#include "base/bytes.h"
#include "print/pdf.h"
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

// Uncompressed, 24 bits, the lowest row first, with a header whose fields lie where ClassPDF looks for them.
bool IsPlainBitmap(FileSystem& files, const std::string& path) {
  constexpr uint32_t kLeastHeader = 40;
  const std::unique_ptr<File> file = files.Open(path, OpenMode::kRead);
  char header[34] = {};
  if (!file || file->ReadAt(0, header, sizeof header) != sizeof header || header[0] != 'B' || header[1] != 'M') return false;
  return LoadLe<uint32_t>(header + 14) >= kLeastHeader && LoadLe<int32_t>(header + 18) > 0 && LoadLe<int32_t>(header + 22) > 0 &&
         LoadLe<uint16_t>(header + 28) == 24 && LoadLe<uint32_t>(header + 30) == 0;
}

}  // namespace

// Null when the decoder cannot read it.
const Picture* ClassPRINT::Decoded(const std::string& path) {
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
  return picture_.get();
}

std::optional<PictureSize> ClassPRINT::SizeOfPicture(const std::string& path) {
  const Picture* picture = Decoded(path);
  return picture ? std::optional(PictureSize{picture->width, picture->height}) : std::nullopt;
}

// For a rectangle of that size in mm; null when the decoder cannot read it.
const Picture* ClassPRINT::LoadPicture(const std::string& path, double width, double height) {
  if (!Decoded(path)) return nullptr;
  auto steps = [](int pixels, double mm) { return pixels / std::max(1.0, mm * kFinest); };
  int factor = static_cast<int>(std::min(steps(picture_->width, width), steps(picture_->height, height)));
  if (factor < 2) return picture_.get();
  if (factor != reduction_) reduced_ = std::make_unique<Picture>(Reduced(*picture_, factor));
  reduction_ = factor;
  return reduced_.get();
}

// A plain bitmap of 24 bits goes into the PDF as its file has it, any other picture that can be read as one made of it. The picture's
// number there; 0 for none.
int ClassPRINT::AddPictureToPdf(ClassPDF& pdf, const PageElement& element) {
  if (IsPlainBitmap(program_.platform.files, element.Text)) return pdf.ImageAdd(element.Text);
  const Picture* picture = LoadPicture(element.Text, double{element.X[1]} - element.X[0], double{element.Y[1]} - element.Y[0]);
  return picture ? pdf.ImageAdd(*picture) : 0;
}

}  // namespace ostrinka
