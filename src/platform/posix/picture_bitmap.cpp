// Bitmaps. The layout: a file header of 14 bytes with the pixels' position at 10; an information header whose first word is its length, 12
// for the oldest kind; masks of 16 and 32 bits at 54; the palette behind header and masks; rows padded to 4 bytes, the lowest first unless
// the height is negative.
#include <algorithm>
#include <array>
#include <bit>

#include "base/bytes.h"
#include "platform/posix/picture_formats.h"

namespace ostrinka {
namespace {

constexpr size_t kFileHeader = 14, kMasksAt = 54;
constexpr uint32_t kOldestHeader = 12, kPlainHeader = 40;
constexpr uint32_t kOpaque = 0xFF000000;

enum Compression : uint32_t { kPlain = 0, kRuns8 = 1, kRuns4 = 2, kMasks = 3, kMasksWithAlpha = 6 };

struct Header {
  size_t pixels = 0;  // position in the file
  size_t palette = 0, palette_entry = 4;
  int64_t width = 0, height = 0;
  bool top_down = false;
  int bits = 0;
  uint32_t compression = kPlain;
  size_t colours = 0;                  // of the palette
  std::array<uint32_t, 4> masks = {};  // red, green, blue, alpha
};

bool KnownKind(const Header& header) {
  switch (header.compression) {
    case kPlain:
      return header.bits == 1 || header.bits == 4 || header.bits == 8 || header.bits == 16 || header.bits == 24 || header.bits == 32;
    case kRuns8:
      return header.bits == 8 && !header.top_down;
    case kRuns4:
      return header.bits == 4 && !header.top_down;
    case kMasks:
    case kMasksWithAlpha:
      return header.bits == 16 || header.bits == 32;
    default:
      return false;
  }
}

// Where the header states none: five bits a colour of 16, eight of 32, and no alpha.
void ReadMasks(std::string_view file, uint32_t length, Header& header) {
  if (header.compression == kPlain) {
    header.masks =
        header.bits == 16 ? std::array<uint32_t, 4>{0x7C00, 0x03E0, 0x001F, 0} : std::array<uint32_t, 4>{0xFF0000, 0xFF00, 0xFF, 0};
    return;
  }
  const bool alpha = length >= 56 || header.compression == kMasksWithAlpha;
  for (size_t i = 0; i < (alpha ? 4u : 3u); ++i) {
    if (file.size() >= kMasksAt + 4 * i + 4) header.masks[i] = LoadLe<uint32_t>(file.data() + kMasksAt + 4 * i);
  }
}

std::optional<Header> ReadHeader(std::string_view file) {
  if (file.size() < kFileHeader + kOldestHeader || !file.starts_with("BM")) return std::nullopt;
  const uint32_t length = LoadLe<uint32_t>(file.data() + kFileHeader);
  if (length > file.size() - kFileHeader || (length != kOldestHeader && length < kPlainHeader)) return std::nullopt;
  Header header;
  header.pixels = LoadLe<uint32_t>(file.data() + 10);
  header.palette = kFileHeader + length;
  uint32_t colours = 0;
  if (length == kOldestHeader) {
    header.palette_entry = 3;
    header.width = LoadLe<uint16_t>(file.data() + 18);
    header.height = LoadLe<uint16_t>(file.data() + 20);
    header.bits = LoadLe<uint16_t>(file.data() + 24);
  } else {
    header.width = LoadLe<int32_t>(file.data() + 18);
    header.height = LoadLe<int32_t>(file.data() + 22);
    header.bits = LoadLe<uint16_t>(file.data() + 28);
    header.compression = LoadLe<uint32_t>(file.data() + 30);
    colours = LoadLe<uint32_t>(file.data() + 46);
  }
  header.top_down = header.height < 0;
  if (header.top_down) header.height = -header.height;
  if (!PixelsFit(header.width, header.height) || !KnownKind(header)) return std::nullopt;
  if (header.pixels < header.palette || header.pixels > file.size()) return std::nullopt;
  if (header.bits <= 8) {
    const uint32_t most = 1u << header.bits;
    header.colours = colours == 0 ? most : std::min(colours, most);
  } else {
    ReadMasks(file, length, header);
  }
  return header;
}

// As many colours as the file holds before its pixels; what is missing stays black.
std::array<uint32_t, 256> ReadPalette(std::string_view file, const Header& header) {
  std::array<uint32_t, 256> palette;
  palette.fill(kOpaque);
  for (size_t i = 0; i < header.colours; ++i) {
    const size_t at = header.palette + i * header.palette_entry;
    if (at + header.palette_entry > header.pixels) break;
    const auto part = [&](size_t offset) { return uint32_t{static_cast<uint8_t>(file[at + offset])}; };
    palette[i] = kOpaque | part(2) << 16 | part(1) << 8 | part(0);
  }
  return palette;
}

// The part of a pixel under a mask, stretched to eight bits.
uint32_t Part(uint32_t pixel, uint32_t mask) {
  if (mask == 0) return 0;
  const int shift = std::countr_zero(mask);
  return static_cast<uint32_t>(uint64_t{(pixel & mask) >> shift} * 255 / (mask >> shift));
}

uint32_t MaskedPixel(uint32_t pixel, const std::array<uint32_t, 4>& masks) {
  const uint32_t alpha = masks[3] == 0 ? 255 : Part(pixel, masks[3]);
  return alpha << 24 | Part(pixel, masks[0]) << 16 | Part(pixel, masks[1]) << 8 | Part(pixel, masks[2]);
}

void ReadRow(const char* row, const Header& header, const std::array<uint32_t, 256>& palette, uint32_t* to) {
  for (int64_t x = 0; x < header.width; ++x) {
    if (header.bits <= 8) {
      const int64_t bit = x * header.bits;
      const int shift = 8 - header.bits - static_cast<int>(bit % 8);
      to[x] = palette[static_cast<uint8_t>(row[bit / 8]) >> shift & ((1u << header.bits) - 1)];
    } else if (header.bits == 16) {
      to[x] = MaskedPixel(LoadLe<uint16_t>(row + 2 * x), header.masks);
    } else if (header.bits == 32) {
      to[x] = MaskedPixel(LoadLe<uint32_t>(row + 4 * x), header.masks);
    } else {
      const auto part = [&](int64_t offset) { return uint32_t{static_cast<uint8_t>(row[3 * x + offset])}; };
      to[x] = kOpaque | part(2) << 16 | part(1) << 8 | part(0);
    }
  }
}

bool ReadPlainRows(std::string_view file, const Header& header, Picture& picture) {
  const int64_t used = (header.width * header.bits + 7) / 8, stride = (used + 3) / 4 * 4;
  // The last row need not be padded: some programs leave it so.
  if (static_cast<int64_t>(file.size() - header.pixels) < stride * (header.height - 1) + used) return false;
  picture.pixels.resize(static_cast<size_t>(header.width * header.height));
  const std::array<uint32_t, 256> palette = ReadPalette(file, header);
  for (int64_t y = 0; y < header.height; ++y) {
    const int64_t source = header.top_down ? y : header.height - 1 - y;
    ReadRow(file.data() + header.pixels + source * stride, header, palette, &picture.pixels[static_cast<size_t>(y * header.width)]);
  }
  // A mask for alpha with nothing under it: the program that wrote the file did not mean an invisible picture.
  const bool unseen = std::none_of(picture.pixels.begin(), picture.pixels.end(), [](uint32_t pixel) { return (pixel >> 24) != 0; });
  for (uint32_t& pixel : picture.pixels) pixel |= unseen ? kOpaque : 0;
  return true;
}

// Pairs of bytes: a count and a value to repeat; or 0 and a command: 0 end of row, 1 end of picture, 2 a step right and up, any other that
// many values as they stand, padded to 2 bytes. False when the bytes end before the picture does.
bool ReadRuns(std::string_view file, const Header& header, Picture& picture) {
  const std::array<uint32_t, 256> palette = ReadPalette(file, header);
  picture.pixels.assign(static_cast<size_t>(header.width * header.height), palette[0]);
  size_t at = header.pixels;
  int64_t x = 0, y = 0;  // from the lower left
  const auto byte = [&](size_t offset) { return static_cast<uint8_t>(file[at + offset]); };
  const auto put = [&](uint8_t value) {
    if (x < header.width) picture.pixels[static_cast<size_t>((header.height - 1 - y) * header.width + x)] = palette[value];
    ++x;
  };
  const auto value_of = [&](uint8_t packed, int i) {
    return header.bits == 8 ? packed : static_cast<uint8_t>(i % 2 == 0 ? packed >> 4 : packed & 15);
  };
  while (y < header.height && file.size() - at >= 2) {
    const int count = byte(0), second = byte(1);
    at += 2;
    if (count > 0) {
      for (int i = 0; i < count; ++i) put(value_of(static_cast<uint8_t>(second), i));
    } else if (second == 0) {
      x = 0;
      ++y;
    } else if (second == 1) {
      return true;
    } else if (second == 2) {
      if (file.size() - at < 2) return false;
      x += byte(0);
      y += byte(1);
      at += 2;
    } else {
      const size_t length = header.bits == 8 ? static_cast<size_t>(second) : static_cast<size_t>(second + 1) / 2;
      if (file.size() - at < length) return false;
      for (int i = 0; i < second; ++i) put(value_of(byte(static_cast<size_t>(header.bits == 8 ? i : i / 2)), i));
      at += std::min((length + 1) / 2 * 2, file.size() - at);
    }
  }
  return y >= header.height;
}

}  // namespace

std::optional<Picture> ReadBitmap(std::string_view file) {
  const std::optional<Header> header = ReadHeader(file);
  if (!header) return std::nullopt;
  Picture picture{static_cast<int>(header->width), static_cast<int>(header->height), {}};
  const bool runs = header->compression == kRuns8 || header->compression == kRuns4;
  if (!(runs ? ReadRuns(file, *header, picture) : ReadPlainRows(file, *header, picture))) return std::nullopt;
  return picture;
}

}  // namespace ostrinka
