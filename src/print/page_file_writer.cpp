#include <algorithm>

#include "base/bytes.h"
#include "print/page_file.h"
#include "print/picture_pixels.h"

namespace ostrinka {

namespace {

constexpr std::u16string_view kDescription{u"@@@@@@\0\0", 8};
constexpr uint32_t kPen = 1, kBrush = 2, kFont = 3;  // handles
// The screen named in the header: 1280 by 1024 pixels on 320 by 256 mm. With finer figures other players show the page too small.
constexpr uint32_t kScreenPixels[] = {1280, 1024};
constexpr uint32_t kScreenMm[] = {320, 256};
constexpr int32_t kUnitsPerPixel = 25;
constexpr size_t kFaceLength = 32;
constexpr uint32_t kTextHead = 76, kPictureHead = 120, kBitmapHeader = 40;

void AppendUtf16(std::string& to, std::u16string_view text) {
  for (char16_t c : text) AppendLe(to, static_cast<uint16_t>(c));
}

void AppendNoBounds(std::string& to) {
  for (int32_t value : {0, 0, -1, -1}) AppendLe(to, value);
}

}  // namespace

PageFileWriter::PageFileWriter(int32_t width, int32_t height) : bytes_(kEmfHeaderSize, '\0'), width_(width), height_(height) {
  Record(EmfRecord::kMapMode, {kMapHundredthsOfMm});
  Record(EmfRecord::kBackgroundMode, {kTransparent});
}

void PageFileWriter::Begin(EmfRecord type) {
  record_start_ = bytes_.size();
  AppendLe(bytes_, type);
  AppendLe(bytes_, uint32_t{0});
}

void PageFileWriter::End() {
  bytes_.resize((bytes_.size() + 3) / 4 * 4, '\0');
  StoreLe(&bytes_[record_start_ + 4], static_cast<uint32_t>(bytes_.size() - record_start_));
  ++records_;
}

void PageFileWriter::Record(EmfRecord type, std::initializer_list<uint32_t> fields) {
  Begin(type);
  for (uint32_t field : fields) AppendLe(bytes_, field);
  End();
}

bool PageFileWriter::CopyRecords(std::string_view file) {
  PageFileReader reader(file);
  EmfRecord type;
  std::string_view record;
  if (!reader.Next(type, record) || type != EmfRecord::kHeader) return false;
  handles_ = std::max<uint32_t>(handles_, LoadLe<uint16_t>(record.data() + 56));
  while (reader.Next(type, record)) {
    if (type == EmfRecord::kEnd) return true;
    bytes_ += record;
    ++records_;
  }
  return false;
}

// Frees the handle of the object made before, so that a new one can take it.
void PageFileWriter::Select(uint32_t handle, bool& made) {
  if (made) {
    Record(EmfRecord::kSelectObject, {handle == kPen ? kStockBlackPen : handle == kBrush ? kStockWhiteBrush : kStockFont});
    Record(EmfRecord::kDeleteObject, {handle});
  }
  made = true;
}

void PageFileWriter::UsePen(uint32_t style, int32_t width, Colour colour) {
  if (!pen_made_ || pen_style_ != style || pen_width_ != width || pen_colour_ != colour) {
    Select(kPen, pen_made_);
    Record(EmfRecord::kCreatePen, {kPen, style, static_cast<uint32_t>(width), 0, colour});
    no_pen_.reset();
    pen_style_ = style;
    pen_width_ = width;
    pen_colour_ = colour;
  }
  if (no_pen_ != kPen) Record(EmfRecord::kSelectObject, {kPen});
  no_pen_ = kPen;
}

// Areas have no outline.
void PageFileWriter::UseBrush(Colour colour) {
  if (!brush_made_ || brush_colour_ != colour) {
    Select(kBrush, brush_made_);
    Record(EmfRecord::kCreateBrush, {kBrush, 0, colour, 0});
    brush_colour_ = colour;
  }
  if (no_pen_ != kStockNoPen) Record(EmfRecord::kSelectObject, {kStockNoPen});
  no_pen_ = kStockNoPen;
  Record(EmfRecord::kSelectObject, {kBrush});
}

void PageFileWriter::UseFont(const PageFont& font, Colour colour) {
  if (!font_made_ || !(font_ == font)) {
    Select(kFont, font_made_);
    Begin(EmfRecord::kCreateFont);
    for (int32_t value : {static_cast<int32_t>(kFont), font.height, 0, font.escapement, font.escapement, font.bold ? 700 : 400}) {
      AppendLe(bytes_, value);
    }
    bytes_ += std::string("\0\0\0\xEE\0\0\1\0", 8);  // not slanted nor underlined, Central European, draft quality
    std::string face = font.face.substr(0, kFaceLength);
    for (char c : face) AppendLe(bytes_, static_cast<uint16_t>(static_cast<uint8_t>(c)));
    bytes_.resize(record_start_ + 332, '\0');
    End();
    Record(EmfRecord::kSelectObject, {kFont});
    font_ = font;
  }
  if (text_colour_ != colour) Record(EmfRecord::kTextColour, {colour});
  text_colour_ = colour;
}

void PageFileWriter::Line(PagePoint from, PagePoint to) {
  Record(EmfRecord::kMoveTo, {static_cast<uint32_t>(from.x), static_cast<uint32_t>(from.y)});
  Record(EmfRecord::kLineTo, {static_cast<uint32_t>(to.x), static_cast<uint32_t>(to.y)});
}

void PageFileWriter::Area(EmfRecord type, PagePoint a, PagePoint b) {
  Begin(type);
  for (int32_t value : {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x) - 1, std::max(a.y, b.y) - 1}) AppendLe(bytes_, value);
  End();
}

void PageFileWriter::Rectangle(PagePoint a, PagePoint b, Colour fill) {
  UseBrush(fill);
  Area(EmfRecord::kRectangle, a, b);
  Record(EmfRecord::kSelectObject, {kStockWhiteBrush});
}

void PageFileWriter::Ellipse(PagePoint a, PagePoint b) {
  Area(EmfRecord::kEllipse, a, b);
}

void PageFileWriter::Points(EmfRecord type, std::span<const PagePoint> points) {
  Begin(type);
  AppendNoBounds(bytes_);
  AppendLe(bytes_, static_cast<uint32_t>(points.size()));
  for (PagePoint point : points) {
    AppendLe(bytes_, point.x);
    AppendLe(bytes_, point.y);
  }
  End();
}

void PageFileWriter::Polyline(std::span<const PagePoint> points) {
  Points(EmfRecord::kPolyline, points);
}

void PageFileWriter::Polygon(std::span<const PagePoint> points, Colour fill) {
  UseBrush(fill);
  Points(EmfRecord::kPolygon, points);
  Record(EmfRecord::kSelectObject, {kStockWhiteBrush});
}

void PageFileWriter::Text(PagePoint at, std::u16string_view text, std::span<const int32_t> advances, Anchor anchor) {
  uint32_t align = anchor == Anchor::kLeft ? kAlignLeft : anchor == Anchor::kRight ? kAlignRight : kAlignCentre;
  if (text_align_ != align) Record(EmfRecord::kTextAlign, {align});
  text_align_ = align;
  uint32_t characters = static_cast<uint32_t>(text.size());
  Begin(EmfRecord::kText);
  AppendNoBounds(bytes_);
  AppendLe(bytes_, uint32_t{1});
  AppendLe(bytes_, 1.0f);
  AppendLe(bytes_, -1.0f);
  AppendLe(bytes_, at.x);
  AppendLe(bytes_, at.y);
  AppendLe(bytes_, characters);
  AppendLe(bytes_, kTextHead);
  AppendLe(bytes_, uint32_t{0});
  AppendNoBounds(bytes_);
  AppendLe(bytes_, (kTextHead + 2 * characters + 3) / 4 * 4);
  AppendUtf16(bytes_, text);
  bytes_.resize((bytes_.size() + 3) / 4 * 4, '\0');
  for (int32_t advance : advances) AppendLe(bytes_, advance);
  End();
}

void PageFileWriter::Stretch(PagePoint top_left, int32_t width, int32_t height, const Picture& picture) {
  uint32_t columns = static_cast<uint32_t>(picture.width), rows = static_cast<uint32_t>(picture.height);
  uint32_t stride = (columns * 3 + 3) / 4 * 4;
  Record(EmfRecord::kStretchMode, {kStretchHalftone});
  Begin(EmfRecord::kPicture);
  AppendNoBounds(bytes_);
  for (uint32_t value :
       {static_cast<uint32_t>(top_left.x), static_cast<uint32_t>(top_left.y), 0u, 0u, columns, rows, kPictureHead - kBitmapHeader,
        kBitmapHeader, kPictureHead, stride * rows, 0u, kCopyPicture, static_cast<uint32_t>(width), static_cast<uint32_t>(-height)}) {
    AppendLe(bytes_, value);
  }
  for (uint32_t value : {kBitmapHeader, columns, rows, 24u << 16 | 1u, 0u, stride * rows, 0u, 0u, 0u, 0u}) AppendLe(bytes_, value);
  bytes_.reserve(bytes_.size() + size_t{stride} * rows);
  for (uint32_t row = rows; row-- > 0;) {
    const uint32_t* pixel = &picture.pixels[size_t{row} * columns];
    for (uint32_t column = 0; column < columns; ++column, ++pixel) {
      const uint32_t colour = OnWhitePaper(*pixel);
      for (int shift : {0, 8, 16}) bytes_ += static_cast<char>(colour >> shift & 255);
    }
    bytes_.append(stride - columns * 3, '\0');
  }
  End();
}

std::string PageFileWriter::Finish() {
  if (pen_made_) Record(EmfRecord::kSelectObject, {kStockBlackPen});
  if (pen_made_) Record(EmfRecord::kDeleteObject, {kPen});
  if (brush_made_) Record(EmfRecord::kDeleteObject, {kBrush});
  if (font_made_) Record(EmfRecord::kSelectObject, {kStockFont});
  if (font_made_) Record(EmfRecord::kDeleteObject, {kFont});
  Record(EmfRecord::kEnd, {0, 16, 20});

  std::string header;
  AppendLe(header, EmfRecord::kHeader);
  AppendLe(header, kEmfHeaderSize);
  for (int32_t value : {0, 0, width_ / kUnitsPerPixel - 1, height_ / kUnitsPerPixel - 1, 0, 0, width_, height_}) AppendLe(header, value);
  for (uint32_t value : {kEmfSignature, 0x10000u, static_cast<uint32_t>(bytes_.size()), records_}) AppendLe(header, value);
  AppendLe(header, static_cast<uint16_t>(handles_));
  AppendLe(header, uint16_t{0});
  for (uint32_t value : {static_cast<uint32_t>(kDescription.size()), 108u, 0u, kScreenPixels[0], kScreenPixels[1], kScreenMm[0],
                         kScreenMm[1], 0u, 0u, 0u, kScreenMm[0] * 1000, kScreenMm[1] * 1000}) {
    AppendLe(header, value);
  }
  AppendUtf16(header, kDescription);
  bytes_.replace(0, kEmfHeaderSize, header);
  return std::move(bytes_);
}

}  // namespace ostrinka
