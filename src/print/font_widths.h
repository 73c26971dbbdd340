// Character widths of the six fonts that pages are set in, so that text is measured alike on every machine, with and without a window.
//
// The figures hold for a cell height (ascent and descent together) of 125 units; at another height a width is proportional.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace ostrinka {

enum class Face { kArial, kArialBold, kCourier, kCourierBold, kTahoma, kTahomaBold };
inline constexpr int kFaces = 6;
inline constexpr int kWidthCellHeight = 125;

// The name a face has in a PDF: "Arial,Bold".
std::string_view FaceName(Face face);
// The face of a font name in any case: one holding "tahoma" or "courier" is that font, any other is Arial.
Face FaceOf(std::string_view font_name, bool bold);

// Widths by Windows-1250 byte.
const std::array<uint8_t, 256>& WidthTable(Face face);
// Width of a text at the cell height of 125: the sum of its characters. The second form takes Windows-1250 bytes.
int64_t WidthAt125(std::string_view text, Face face);
int64_t WidthAt125OfCp1250(std::string_view bytes, Face face);

}  // namespace ostrinka
