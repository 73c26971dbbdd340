// The recording of one page: a file in the published Enhanced Metafile format, so that any viewer of that format can open it.
//
// Recording units are 0.01 mm of the file, kPageScale of them to a millimetre of the sheet, y upwards from the top edge (so below 0).
// docs/formats/page-file.md lists the records.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/canvas.h"

namespace ostrinka {

inline constexpr int32_t kPageScale = 250;

enum class EmfRecord : uint32_t {
  kHeader = 1,
  kPolygon = 3,
  kPolyline = 4,
  kEnd = 14,
  kMapMode = 17,
  kBackgroundMode = 18,
  kStretchMode = 21,
  kTextAlign = 22,
  kTextColour = 24,
  kMoveTo = 27,
  kSelectObject = 37,
  kCreatePen = 38,
  kCreateBrush = 39,
  kDeleteObject = 40,
  kEllipse = 42,
  kRectangle = 43,
  kLineTo = 54,
  kPicture = 81,
  kCreateFont = 82,
  kText = 84,
};

inline constexpr uint32_t kEmfHeaderSize = 124;
inline constexpr uint32_t kEmfSignature = 0x464D4520;
inline constexpr uint32_t kStockObject = 0x80000000;
inline constexpr uint32_t kStockWhiteBrush = kStockObject + 0, kStockBlackPen = kStockObject + 7, kStockNoPen = kStockObject + 8,
                          kStockFont = kStockObject + 13;
inline constexpr int32_t kMapHundredthsOfMm = 3, kTransparent = 1, kStretchHalftone = 4;
inline constexpr uint32_t kAlignLeft = 0, kAlignRight = 2, kAlignCentre = 6;
inline constexpr uint32_t kCopyPicture = 0xCC0020;

struct PagePoint {
  int32_t x = 0, y = 0;  // recording units
  bool operator==(const PagePoint&) const = default;
};
struct PageFont {
  std::string face;        // at most 32 characters count
  int32_t height = 0;      // cell height, recording units
  int32_t escapement = 0;  // tenths of a degree; -900 reads upwards, since y points up
  bool bold = false;
  bool operator==(const PageFont&) const = default;
};

// Builds a page file in memory.
class PageFileWriter {
 public:
  // Size of the frame in recording units.
  PageFileWriter(int32_t width, int32_t height);

  // Appends the records of another page file but its header and end; a damaged record ends the copying, with false.
  bool CopyRecords(std::string_view file);

  // A pen that does not draw and a brush that does not fill are not needed: lines use the pen, areas the brush.
  void UsePen(uint32_t style, int32_t width, Colour colour);
  void UseFont(const PageFont& font, Colour colour);
  void Line(PagePoint from, PagePoint to);
  void Rectangle(PagePoint a, PagePoint b, Colour fill);
  void Ellipse(PagePoint a, PagePoint b);  // filled white
  void Polyline(std::span<const PagePoint> points);
  void Polygon(std::span<const PagePoint> points, Colour fill);
  // `advances` has the width of each character, in recording units.
  void Text(PagePoint at, std::u16string_view text, std::span<const int32_t> advances, Anchor anchor);
  // The picture stretched from its top left corner; transparent parts are white.
  void Stretch(PagePoint top_left, int32_t width, int32_t height, const Picture& picture);

  // The whole file; the writer is at its end.
  std::string Finish();

 private:
  void Record(EmfRecord type, std::initializer_list<uint32_t> fields);
  void Begin(EmfRecord type);
  void End();
  void Select(uint32_t handle, bool& made);
  void UseBrush(Colour colour);
  void Area(EmfRecord type, PagePoint a, PagePoint b);
  void Points(EmfRecord type, std::span<const PagePoint> points);

  std::string bytes_;
  size_t record_start_ = 0;
  uint32_t records_ = 1;
  int32_t width_, height_;
  uint32_t handles_ = 4;  // nothing, the pen, the brush, the font
  // What the records so far leave selected; nothing known at the start and after a copy.
  bool pen_made_ = false, brush_made_ = false, font_made_ = false;
  uint32_t pen_style_ = 0;
  int32_t pen_width_ = 0;
  Colour pen_colour_ = 0, brush_colour_ = 0;
  PageFont font_;
  std::optional<uint32_t> no_pen_, text_align_, text_colour_;
};

struct PageFileSize {
  double width = 0, height = 0;  // mm
};
// Nothing when the file is no page file.
std::optional<PageFileSize> SizeOfPageFile(std::string_view file);

// Plays a page file onto the canvas, its frame stretched to `frame`. Every size, offset, count and handle is checked; a bad record ends the
// playing. False when it ended so.
bool PlayPageFile(std::string_view file, Canvas& canvas, const RectF& frame);

// The records of a page file in order, header first. `record` is whole; false at the end of the file and at a record that is not whole.
class PageFileReader {
 public:
  explicit PageFileReader(std::string_view file) : file_(file) {}
  bool Next(EmfRecord& type, std::string_view& record);

 private:
  std::string_view file_;
  size_t position_ = 0;
};

}  // namespace ostrinka
