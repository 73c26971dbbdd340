// Glyph numbers of the genuine Arial, Courier New and Tahoma by Windows-1250 byte, as texts of the PDF address them.
#pragma once

#include <array>
#include <cstdint>

namespace ostrinka {

// Distance between a character's code and its glyph's number, for the plain characters.
inline constexpr int kGlyphShift = 29;

struct GlyphException {
  uint8_t byte;
  uint16_t glyph;
};

// Ü shares its number with §, kept.
inline constexpr GlyphException kGlyphExceptions[] = {
    {0xB9 /* ą */, 0x0105}, {0xA5 /* Ą */, 0x0104}, {0xE6 /* ć */, 0x00FC}, {0xC6 /* Ć */, 0x00FB}, {0xEA /* ę */, 0x010A},
    {0xCA /* Ę */, 0x0109}, {0xB3 /* ł */, 0x00E1}, {0xA3 /* Ł */, 0x00E0}, {0xF1 /* ń */, 0x0114}, {0xD1 /* Ń */, 0x0113},
    {0xF3 /* ó */, 0x0079}, {0xD3 /* Ó */, 0x00CF}, {0x9C /* ś */, 0x011E}, {0x8C /* Ś */, 0x011D}, {0x9F /* ź */, 0x0128},
    {0x8F /* Ź */, 0x0127}, {0xBF /* ż */, 0x012A}, {0xAF /* Ż */, 0x0129}, {0xDF /* ß */, 0x0089}, {0xA7 /* § */, 0x0068},
    {0x60 /* ` */, 0x0043}, {0xB4 /* ´ */, 0x008D}, {0xFC /* ü */, 0x0081}, {0xDC /* Ü */, 0x0068}, {0xF6 /* ö */, 0x007C},
    {0xD6 /* Ö */, 0x0067}, {0xE4 /* ä */, 0x006C}, {0xC4 /* Ä */, 0x0062}, {0x80 /* € */, 0x00BC},
};

// Control characters are glyph 0.
constexpr std::array<uint16_t, 256> MakeGlyphTable() {
  std::array<uint16_t, 256> table{};
  for (int byte = kGlyphShift; byte < 256; ++byte) table[static_cast<size_t>(byte)] = static_cast<uint16_t>(byte - kGlyphShift);
  for (const GlyphException& exception : kGlyphExceptions) table[exception.byte] = exception.glyph;
  return table;
}
inline constexpr std::array<uint16_t, 256> kGlyphs = MakeGlyphTable();

}  // namespace ostrinka
