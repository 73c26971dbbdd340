// Picture files of every kind that the decoder reads, made of given pixels: bitmaps by hand, the others by their formats' own writers.
#pragma once

#include <gif_lib.h>
#include <png.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

// The library's header needs those before it.
// clang-format off
#include <jpeglib.h>
// clang-format on

#include "base/bytes.h"
#include "platform/canvas.h"

namespace ostrinka {

// Two rows of three pixels: red, green, blue; white, black, red.
inline Picture SixColours() {
  return {3, 2, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF, 0xFF000000, 0xFFFF0000}};
}

// The colours in the order in which they first appear.
inline std::vector<uint32_t> ColoursOf(const Picture& picture) {
  std::vector<uint32_t> colours;
  for (const uint32_t pixel : picture.pixels) {
    if (std::find(colours.begin(), colours.end(), pixel) == colours.end()) colours.push_back(pixel);
  }
  return colours;
}
inline size_t NumberOf(const std::vector<uint32_t>& colours, uint32_t colour) {
  return static_cast<size_t>(std::find(colours.begin(), colours.end(), colour) - colours.begin());
}

// The head of a bitmap whose pixels begin behind `before_pixels` bytes of palette or masks.
inline std::string BitmapHead(int32_t width, int32_t height, int bits, uint32_t compression, size_t before_pixels, size_t colours = 0) {
  std::string file = "BM";
  for (const uint32_t value : {0u, 0u, 54u + static_cast<uint32_t>(before_pixels), 40u}) AppendLe(file, value);
  AppendLe(file, width);
  AppendLe(file, height);
  AppendLe(file, uint16_t{1});
  AppendLe(file, static_cast<uint16_t>(bits));
  for (const uint32_t value : {compression, 0u, 0u, 0u, static_cast<uint32_t>(colours), 0u}) AppendLe(file, value);
  return file;
}

// Rows of an uncompressed bitmap of `bits` a pixel; 16 bits have five a colour.
inline std::string BitmapRows(const Picture& picture, int bits, bool top_down = false) {
  const std::vector<uint32_t> colours = ColoursOf(picture);
  std::string rows;
  for (int y = 0; y < picture.height; ++y) {
    const int from = top_down ? y : picture.height - 1 - y;
    std::string row;
    int packed = 0, filled = 0;
    for (int x = 0; x < picture.width; ++x) {
      const uint32_t pixel = picture.pixels[static_cast<size_t>(from * picture.width + x)];
      if (bits <= 8) {
        packed = packed << bits | static_cast<int>(NumberOf(colours, pixel));
        filled += bits;
        if (filled == 8 || x + 1 == picture.width) {
          row += static_cast<char>(packed << (8 - filled));
          packed = filled = 0;
        }
      } else if (bits == 16) {
        AppendLe(row, static_cast<uint16_t>((pixel >> 19 & 31) << 10 | (pixel >> 11 & 31) << 5 | (pixel >> 3 & 31)));
      } else {
        for (const int shift : {0, 8, 16}) row += static_cast<char>(pixel >> shift & 255);
        if (bits == 32) row += static_cast<char>(pixel >> 24);
      }
    }
    row.resize((row.size() + 3) / 4 * 4);
    rows += row;
  }
  return rows;
}

inline std::string BitmapOf(const Picture& picture, int bits, bool top_down = false) {
  const std::vector<uint32_t> colours = bits <= 8 ? ColoursOf(picture) : std::vector<uint32_t>();
  std::string file = BitmapHead(picture.width, top_down ? -picture.height : picture.height, bits, 0, colours.size() * 4, colours.size());
  for (const uint32_t colour : colours) AppendLe(file, colour & 0xFFFFFF);
  return file + BitmapRows(picture, bits, top_down);
}

// Eight bits a colour, with alpha.
inline std::string PngOf(const Picture& picture) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(picture.width);
  image.height = static_cast<png_uint_32>(picture.height);
  image.format = PNG_FORMAT_BGRA;
  png_alloc_size_t size = 0;
  png_image_write_to_memory(&image, nullptr, &size, 0, picture.pixels.data(), 0, nullptr);
  std::string file(size, '\0');
  png_image_write_to_memory(&image, file.data(), &size, 0, picture.pixels.data(), 0, nullptr);
  file.resize(size);
  return file;
}

// Of one colour type (a palette, grey, colour) and depth (1 to 16 bits) without alpha. Grey takes the green of a pixel.
inline std::string PngOf(const Picture& picture, int colour_type, int depth) {
  std::string file;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(
      png, &file,
      [](png_structp to, png_bytep data, size_t length) {
        static_cast<std::string*>(png_get_io_ptr(to))->append(reinterpret_cast<char*>(data), length);
      },
      nullptr);
  png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width), static_cast<png_uint_32>(picture.height), depth, colour_type,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  const std::vector<uint32_t> colours = ColoursOf(picture);
  std::vector<png_color> palette;
  for (const uint32_t colour : colours)
    palette.push_back({static_cast<png_byte>(colour >> 16), static_cast<png_byte>(colour >> 8), static_cast<png_byte>(colour)});
  if (colour_type == PNG_COLOR_TYPE_PALETTE) png_set_PLTE(png, info, palette.data(), static_cast<int>(palette.size()));
  png_write_info(png, info);
  png_set_packing(png);
  for (int y = 0; y < picture.height; ++y) {
    std::vector<png_byte> row;
    for (int x = 0; x < picture.width; ++x) {
      const uint32_t pixel = picture.pixels[static_cast<size_t>(y * picture.width + x)];
      const auto put = [&](uint32_t value) { row.insert(row.end(), depth == 16 ? 2u : 1u, static_cast<png_byte>(value)); };
      if (colour_type == PNG_COLOR_TYPE_PALETTE) {
        row.push_back(static_cast<png_byte>(NumberOf(colours, pixel)));
      } else if (colour_type == PNG_COLOR_TYPE_GRAY) {
        put((pixel >> 8 & 255) >> (depth < 8 ? 8 - depth : 0));
      } else {
        for (const int shift : {16, 8, 0}) put(pixel >> shift & 255);
      }
    }
    png_write_row(png, row.data());
  }
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return file;
}

// `space` JCS_RGB, JCS_GRAYSCALE or JCS_CMYK (inverted, as Adobe's programs write it).
inline std::string JpegOf(const Picture& picture, J_COLOR_SPACE space = JCS_RGB, bool progressive = false) {
  jpeg_compress_struct info{};
  jpeg_error_mgr error{};
  info.err = jpeg_std_error(&error);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = static_cast<JDIMENSION>(picture.width);
  info.image_height = static_cast<JDIMENSION>(picture.height);
  info.input_components = space == JCS_RGB ? 3 : space == JCS_CMYK ? 4 : 1;
  info.in_color_space = space;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 100, TRUE);
  for (int i = 0; i < info.num_components; ++i) info.comp_info[i].h_samp_factor = info.comp_info[i].v_samp_factor = 1;
  if (progressive) jpeg_simple_progression(&info);
  if (space == JCS_CMYK) info.write_Adobe_marker = TRUE;
  jpeg_start_compress(&info, TRUE);
  for (int y = 0; y < picture.height; ++y) {
    std::vector<JSAMPLE> row;
    for (int x = 0; x < picture.width; ++x) {
      const uint32_t pixel = picture.pixels[static_cast<size_t>(y * picture.width + x)];
      for (const int shift : {16, 8, 0}) {
        if (space != JCS_GRAYSCALE || shift == 8) row.push_back(static_cast<JSAMPLE>(pixel >> shift & 255));
      }
      if (space == JCS_CMYK) row.push_back(255);
    }
    JSAMPROW rows[] = {row.data()};
    jpeg_write_scanlines(&info, rows, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  const std::string file(reinterpret_cast<char*>(bytes), size);
  std::free(bytes);
  return file;
}

// The picture at (left, top) of a screen so much larger; `transparent`: number of the colour that is not drawn, in the order of ColoursOf.
inline std::string GifOf(const Picture& picture, bool interlaced = false, int transparent = NO_TRANSPARENT_COLOR, int left = 0,
                         int top = 0) {
  std::string file;
  const auto write = [](GifFileType* gif, const GifByteType* data, int length) {
    static_cast<std::string*>(gif->UserData)->append(reinterpret_cast<const char*>(data), static_cast<size_t>(length));
    return length;
  };
  GifFileType* gif = EGifOpen(&file, write, nullptr);
  EGifSetGifVersion(gif, true);
  const std::vector<uint32_t> colours = ColoursOf(picture);
  ColorMapObject* map = GifMakeMapObject(256, nullptr);
  for (size_t i = 0; i < colours.size(); ++i) {
    map->Colors[i] = {static_cast<GifByteType>(colours[i] >> 16), static_cast<GifByteType>(colours[i] >> 8),
                      static_cast<GifByteType>(colours[i])};
  }
  EGifPutScreenDesc(gif, picture.width + left, picture.height + top, 8, 0, map);
  const GraphicsControlBlock control{0, false, 0, transparent};
  GifByteType extension[4];
  EGifGCBToExtension(&control, extension);
  EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, 4, extension);
  EGifPutImageDesc(gif, left, top, picture.width, picture.height, interlaced, nullptr);
  std::vector<int> order;
  const int passes[][2] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}}, one[] = {0, 1};
  const auto take = [&](const int* pass) {
    for (int y = pass[0]; y < picture.height; y += pass[1]) order.push_back(y);
  };
  if (interlaced)
    for (const auto& pass : passes) take(pass);
  else
    take(one);
  for (const int y : order) {
    std::vector<GifPixelType> row;
    for (int x = 0; x < picture.width; ++x)
      row.push_back(static_cast<GifPixelType>(NumberOf(colours, picture.pixels[static_cast<size_t>(y * picture.width + x)])));
    EGifPutLine(gif, row.data(), picture.width);
  }
  EGifCloseFile(gif, nullptr);
  GifFreeMapObject(map);
  return file;
}

}  // namespace ostrinka
