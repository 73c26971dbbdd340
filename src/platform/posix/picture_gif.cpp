// GIF through giflib, record by record: a file of many pictures costs no more than its first.
#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/posix/picture_formats.h"

namespace ostrinka {
namespace {

struct Close {
  void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

int ReadBytes(GifFileType* gif, GifByteType* to, int length) {
  auto& rest = *static_cast<std::string_view*>(gif->UserData);
  const size_t count = std::min(static_cast<size_t>(std::max(length, 0)), rest.size());
  std::memcpy(to, rest.data(), count);
  rest.remove_prefix(count);
  return static_cast<int>(count);
}

// Reads an extension to its end; the number of the colour that is not drawn, when it tells one.
bool ReadExtension(GifFileType* gif, int& transparent) {
  int code = 0;
  GifByteType* block = nullptr;
  if (DGifGetExtension(gif, &code, &block) == GIF_ERROR) return false;
  while (block) {
    GraphicsControlBlock control;
    if (code == GRAPHICS_EXT_FUNC_CODE && DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK)
      transparent = control.TransparentColor;
    if (DGifGetExtensionNext(gif, &block) == GIF_ERROR) return false;
  }
  return true;
}

// One row of the picture within the screen; what reaches beyond is cut off.
void PutRow(const GifFileType& gif, const ColorMapObject& colours, int transparent, const std::vector<GifByteType>& row, int y,
            Picture& to) {
  const int line = gif.Image.Top + y;
  if (line < 0 || line >= to.height) return;
  for (int x = 0; x < gif.Image.Width && gif.Image.Left + x < to.width; ++x) {
    const int number = row[static_cast<size_t>(x)];
    if (number == transparent || number >= colours.ColorCount) continue;
    const GifColorType& colour = colours.Colors[number];
    to.pixels[static_cast<size_t>(line) * static_cast<size_t>(to.width) + static_cast<size_t>(gif.Image.Left + x)] =
        0xFF000000 | uint32_t{colour.Red} << 16 | uint32_t{colour.Green} << 8 | colour.Blue;
  }
}

std::optional<Picture> ReadFirst(GifFileType* gif, int transparent) {
  if (DGifGetImageDesc(gif) == GIF_ERROR) return std::nullopt;
  const ColorMapObject* colours = gif->Image.ColorMap ? gif->Image.ColorMap : gif->SColorMap;
  Picture picture{std::max(gif->SWidth, gif->Image.Width), std::max(gif->SHeight, gif->Image.Height), {}};
  if (!colours || gif->Image.Left < 0 || !PixelsFit(gif->Image.Width, gif->Image.Height) || !PixelsFit(picture.width, picture.height)) {
    return std::nullopt;
  }
  picture.pixels.assign(static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height), 0);
  std::vector<GifByteType> row(static_cast<size_t>(gif->Image.Width));
  // Interlaced rows come in four passes.
  constexpr struct { int first, step; } kPasses[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}}, kOnePass[] = {{0, 1}};
  const auto read = [&](const auto& pass) {
    for (int y = pass.first; y < gif->Image.Height; y += pass.step) {
      if (DGifGetLine(gif, row.data(), gif->Image.Width) == GIF_ERROR) return false;
      PutRow(*gif, *colours, transparent, row, y, picture);
    }
    return true;
  };
  const bool whole = gif->Image.Interlace ? std::all_of(std::begin(kPasses), std::end(kPasses), read) : read(kOnePass[0]);
  if (!whole) return std::nullopt;
  return picture;
}

}  // namespace

std::optional<Picture> ReadGif(std::string_view file) {
  std::string_view rest = file;
  const std::unique_ptr<GifFileType, Close> gif(DGifOpen(&rest, ReadBytes, nullptr));
  if (!gif) return std::nullopt;
  int transparent = NO_TRANSPARENT_COLOR;
  for (GifRecordType type; DGifGetRecordType(gif.get(), &type) == GIF_OK;) {
    if (type == IMAGE_DESC_RECORD_TYPE) return ReadFirst(gif.get(), transparent);
    if (type != EXTENSION_RECORD_TYPE || !ReadExtension(gif.get(), transparent)) return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace ostrinka
