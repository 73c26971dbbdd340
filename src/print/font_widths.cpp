#include "print/font_widths.h"

#include "base/text.h"
#include "print/font_width_tables.h"

namespace ostrinka {

namespace {

constexpr std::string_view kNames[kFaces] = {"Arial", "Arial,Bold", "Courier New", "Courier New,Bold", "Tahoma", "Tahoma,Bold"};

}  // namespace

std::string_view FaceName(Face face) {
  return kNames[static_cast<int>(face)];
}

Face FaceOf(std::string_view font_name, bool bold) {
  std::string name = Upper(font_name);
  if (Contains(name, "TAHOMA")) return bold ? Face::kTahomaBold : Face::kTahoma;
  if (Contains(name, "COURIER")) return bold ? Face::kCourierBold : Face::kCourier;
  return bold ? Face::kArialBold : Face::kArial;
}

const std::array<uint8_t, 256>& WidthTable(Face face) {
  return kWidthsAt125[static_cast<size_t>(face)];
}

int64_t WidthAt125OfCp1250(std::string_view bytes, Face face) {
  const std::array<uint8_t, 256>& widths = WidthTable(face);
  int64_t sum = 0;
  for (char c : bytes) sum += widths[static_cast<uint8_t>(c)];
  return sum;
}

int64_t WidthAt125(std::string_view text, Face face) {
  return WidthAt125OfCp1250(ToCp1250(text), face);
}

}  // namespace ostrinka
