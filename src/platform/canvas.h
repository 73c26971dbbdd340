// A surface to draw on: screen, printer, picture, or a record of calls for a test. Units are the surface's own pixels, y downwards.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ostrinka {

// Red in the low byte, then green, then blue.
using Colour = uint32_t;
constexpr Colour Rgb(int red, int green, int blue) {
  return static_cast<Colour>(red | green << 8 | blue << 16);
}

struct PointF {
  double x = 0, y = 0;
  bool operator==(const PointF&) const = default;
};
struct RectF {
  double left = 0, top = 0, right = 0, bottom = 0;
  double width() const { return right - left; }
  double height() const { return bottom - top; }
  bool operator==(const RectF&) const = default;
};
enum class PenStyle { kSolid, kDash, kDot, kDashDot, kDashDotDot, kNone };
struct Pen {
  Colour colour = 0;
  double width = 1;  // 0 and 1 are a hairline
  PenStyle style = PenStyle::kSolid;
};
struct FontSpec {
  std::string face = "Tahoma";
  double height = 12;  // cell height, from the top of the tallest to the bottom of the lowest letter
  bool bold = false, italic = false, underline = false;
  double angle = 0;  // degrees counter-clockwise
};
enum class Anchor { kLeft, kCentre, kRight };  // where x lies on the text; y is its top

// An uncompressed picture, rows from the top, 0xAARRGGBB.
struct Picture {
  int width = 0, height = 0;
  std::vector<uint32_t> pixels;
};

class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  virtual void FillRect(const RectF& area, Colour colour) = 0;
  virtual void DrawRect(const RectF& area, const Pen& pen) = 0;
  virtual void DrawLine(PointF from, PointF to, const Pen& pen) = 0;
  virtual void DrawPolyline(const std::vector<PointF>& points, const Pen& pen) = 0;
  virtual void FillPolygon(const std::vector<PointF>& points, Colour colour) = 0;
  // `fill` null leaves the inside as it is.
  virtual void DrawEllipse(const RectF& frame, const Pen& pen, const Colour* fill) = 0;
  // `advance` above 0 is the width that the whole text shall take; 0 leaves it to the font.
  virtual void DrawText(PointF at, std::string_view text, const FontSpec& font, Colour colour, Anchor anchor, double advance = 0) = 0;
  virtual double TextWidth(std::string_view text, const FontSpec& font) = 0;
  virtual double TextHeight(const FontSpec& font) = 0;
  virtual void DrawPicture(const RectF& area, const Picture& picture) = 0;
  virtual void PushClip(const RectF& area) = 0;
  virtual void PopClip() = 0;
};

}  // namespace ostrinka
