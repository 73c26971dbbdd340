// Reads page files, which may come from anywhere: nothing in them is trusted.
#include <algorithm>
#include <cmath>
#include <vector>

#include "base/bytes.h"
#include "base/text.h"
#include "print/page_file.h"

namespace ostrinka {

namespace {

constexpr int32_t kLongestFrame = 100 * 1000 * kPageScale;  // 100 m
constexpr double kFarthest = 8;                             // frames that a point may lie away; keeps a dashed line from taking for ever
constexpr size_t kFaceOffset = 40, kFaceLength = 32, kTextHead = 76, kPointsHead = 28, kPictureHead = 120;

std::string Utf8Of(const char* from, size_t count) {
  std::u32string text;
  for (size_t i = 0; i < count; ++i) {
    char32_t unit = LoadLe<uint16_t>(from + 2 * i);
    text += unit >= 0xD800 && unit < 0xE000 ? U'?' : unit;
  }
  return FromCodePoints(text);
}

class Player {
 public:
  Player(Canvas& canvas, const RectF& target) : canvas_(canvas), target_(target) {}
  bool Play(std::string_view file);

 private:
  struct Object {
    enum class Kind { kNone, kPen, kBrush, kFont } kind = Kind::kNone;
    Pen pen;
    Colour colour = 0;
    FontSpec font;
  };
  // One kind of record: the least size, and what it does; false ends the playing.
  struct Handler {
    EmfRecord type;
    size_t least;
    bool (Player::*play)(std::string_view);
  };
  static const Handler kHandlers[];

  static uint32_t Field(std::string_view record, size_t at) { return LoadLe<uint32_t>(record.data() + at); }
  static int32_t Number(std::string_view record, size_t at) { return LoadLe<int32_t>(record.data() + at); }
  double X(int64_t x) const {
    return target_.left + std::clamp(static_cast<double>(x), -kFarthest * width_, kFarthest * width_) * scale_x_;
  }
  double Y(int64_t y) const {
    return target_.top - std::clamp(static_cast<double>(y), -kFarthest * height_, kFarthest * height_) * scale_y_;
  }
  PointF Point(std::string_view record, size_t at) const { return {X(Number(record, at)), Y(Number(record, at + 4))}; }
  // The edges of a rectangle record: its right and bottom are one short.
  RectF Box(std::string_view record) const {
    return {X(Number(record, 8)), Y(int64_t{Number(record, 20)} + 1), X(int64_t{Number(record, 16)} + 1), Y(Number(record, 12))};
  }
  bool ReadHeader(std::string_view record);
  bool Points(std::string_view record, std::vector<PointF>& points) const;
  Object* NewObject(std::string_view record, Object::Kind kind);
  bool SelectStock(uint32_t handle);

  bool MapMode(std::string_view record) { return Number(record, 8) == kMapHundredthsOfMm; }
  bool Ignore(std::string_view) { return true; }
  bool TextAlign(std::string_view record);
  bool TextColour(std::string_view record);
  bool MoveTo(std::string_view record);
  bool LineTo(std::string_view record);
  bool SelectObject(std::string_view record);
  bool DeleteObject(std::string_view record);
  bool CreatePen(std::string_view record);
  bool CreateBrush(std::string_view record);
  bool CreateFont(std::string_view record);
  bool Rectangle(std::string_view record);
  bool Ellipse(std::string_view record);
  bool Polyline(std::string_view record);
  bool Polygon(std::string_view record);
  bool Text(std::string_view record);
  bool Stretch(std::string_view record);

  Canvas& canvas_;
  RectF target_;
  double width_ = 1, height_ = 1;  // of the frame, recording units
  double scale_x_ = 1, scale_y_ = 1;
  std::vector<Object> objects_;
  Pen pen_;
  bool filled_ = true;
  Colour brush_ = Rgb(255, 255, 255);
  FontSpec font_;
  Colour text_colour_ = 0;
  Anchor anchor_ = Anchor::kLeft;
  PointF position_;
};

const Player::Handler Player::kHandlers[] = {
    {EmfRecord::kMapMode, 12, &Player::MapMode},
    {EmfRecord::kBackgroundMode, 12, &Player::Ignore},
    {EmfRecord::kStretchMode, 12, &Player::Ignore},
    {EmfRecord::kTextAlign, 12, &Player::TextAlign},
    {EmfRecord::kTextColour, 12, &Player::TextColour},
    {EmfRecord::kMoveTo, 16, &Player::MoveTo},
    {EmfRecord::kLineTo, 16, &Player::LineTo},
    {EmfRecord::kSelectObject, 12, &Player::SelectObject},
    {EmfRecord::kDeleteObject, 12, &Player::DeleteObject},
    {EmfRecord::kCreatePen, 28, &Player::CreatePen},
    {EmfRecord::kCreateBrush, 24, &Player::CreateBrush},
    {EmfRecord::kCreateFont, kFaceOffset + 2 * kFaceLength, &Player::CreateFont},
    {EmfRecord::kRectangle, 24, &Player::Rectangle},
    {EmfRecord::kEllipse, 24, &Player::Ellipse},
    {EmfRecord::kPolyline, kPointsHead, &Player::Polyline},
    {EmfRecord::kPolygon, kPointsHead, &Player::Polygon},
    {EmfRecord::kText, kTextHead, &Player::Text},
    {EmfRecord::kPicture, kPictureHead, &Player::Stretch},
};

bool Player::Play(std::string_view file) {
  PageFileReader reader(file);
  EmfRecord type;
  std::string_view record;
  if (!reader.Next(type, record) || type != EmfRecord::kHeader || !ReadHeader(record)) return false;
  while (reader.Next(type, record)) {
    if (type == EmfRecord::kEnd) return true;
    auto handler = std::find_if(std::begin(kHandlers), std::end(kHandlers), [type](const Handler& h) { return h.type == type; });
    if (handler == std::end(kHandlers)) continue;
    if (record.size() < handler->least || !(this->*handler->play)(record)) return false;
  }
  return false;
}

bool Player::ReadHeader(std::string_view record) {
  std::optional<PageFileSize> size = SizeOfPageFile(record);
  if (!size) return false;
  width_ = size->width * kPageScale;
  height_ = size->height * kPageScale;
  scale_x_ = target_.width() / width_;
  scale_y_ = target_.height() / height_;
  objects_.resize(LoadLe<uint16_t>(record.data() + 56));
  return true;
}

bool Player::TextAlign(std::string_view record) {
  uint32_t across = Field(record, 8) & kAlignCentre;
  anchor_ = across == kAlignCentre ? Anchor::kCentre : across == kAlignRight ? Anchor::kRight : Anchor::kLeft;
  return true;
}

bool Player::TextColour(std::string_view record) {
  text_colour_ = Field(record, 8) & 0xFFFFFF;
  return true;
}

bool Player::MoveTo(std::string_view record) {
  position_ = Point(record, 8);
  return true;
}

bool Player::LineTo(std::string_view record) {
  PointF to = Point(record, 8);
  if (pen_.style != PenStyle::kNone) canvas_.DrawLine(position_, to, pen_);
  position_ = to;
  return true;
}

Player::Object* Player::NewObject(std::string_view record, Object::Kind kind) {
  uint32_t handle = Field(record, 8);
  if (handle == 0 || handle >= objects_.size()) return nullptr;
  objects_[handle] = Object{};
  objects_[handle].kind = kind;
  return &objects_[handle];
}

bool Player::CreatePen(std::string_view record) {
  Object* object = NewObject(record, Object::Kind::kPen);
  if (!object) return false;
  uint32_t style = Field(record, 12) & 15;
  object->pen.style = style <= 4 ? static_cast<PenStyle>(style) : style == 5 ? PenStyle::kNone : PenStyle::kSolid;
  object->pen.width = std::max(1.0, std::clamp(static_cast<double>(Number(record, 16)), 0.0, width_) * std::fabs(scale_x_));
  object->pen.colour = Field(record, 24) & 0xFFFFFF;
  return true;
}

bool Player::CreateBrush(std::string_view record) {
  Object* object = NewObject(record, Object::Kind::kBrush);
  if (object) object->colour = Field(record, 16) & 0xFFFFFF;
  return object != nullptr;
}

bool Player::CreateFont(std::string_view record) {
  Object* object = NewObject(record, Object::Kind::kFont);
  if (!object) return false;
  size_t length = 0;
  while (length < kFaceLength && LoadLe<uint16_t>(record.data() + kFaceOffset + 2 * length) != 0) ++length;
  std::string face = Utf8Of(record.data() + kFaceOffset, length);
  object->font.face = face == "Arial CE" ? "Arial" : face;
  object->font.height = std::clamp(static_cast<double>(Number(record, 12)), 1.0, height_) * std::fabs(scale_y_);
  object->font.angle = -(Number(record, 20) % 3600) / 10.0;
  object->font.bold = Number(record, 28) >= 600;
  object->font.italic = record[32] != 0;
  object->font.underline = record[33] != 0;
  return true;
}

bool Player::SelectStock(uint32_t handle) {
  if (handle == kStockWhiteBrush) brush_ = Rgb(255, 255, 255), filled_ = true;
  if (handle == kStockBlackPen) pen_ = Pen{};
  if (handle == kStockNoPen) pen_.style = PenStyle::kNone;
  if (handle == kStockFont) font_ = FontSpec{};
  return true;
}

bool Player::SelectObject(std::string_view record) {
  uint32_t handle = Field(record, 8);
  if (handle & kStockObject) return SelectStock(handle);
  if (handle >= objects_.size()) return false;
  const Object& object = objects_[handle];
  switch (object.kind) {
    case Object::Kind::kNone:
      return false;
    case Object::Kind::kPen:
      pen_ = object.pen;
      break;
    case Object::Kind::kBrush:
      brush_ = object.colour, filled_ = true;
      break;
    case Object::Kind::kFont:
      font_ = object.font;
      break;
  }
  return true;
}

bool Player::DeleteObject(std::string_view record) {
  uint32_t handle = Field(record, 8);
  if (handle >= objects_.size() || objects_[handle].kind == Object::Kind::kNone) return false;
  objects_[handle] = Object{};
  return true;
}

bool Player::Rectangle(std::string_view record) {
  RectF box = Box(record);
  if (filled_) canvas_.FillRect(box, brush_);
  if (pen_.style != PenStyle::kNone) canvas_.DrawRect(box, pen_);
  return true;
}

bool Player::Ellipse(std::string_view record) {
  canvas_.DrawEllipse(Box(record), pen_, filled_ ? &brush_ : nullptr);
  return true;
}

bool Player::Points(std::string_view record, std::vector<PointF>& points) const {
  uint32_t count = Field(record, 24);
  if (count > (record.size() - kPointsHead) / 8) return false;
  points.reserve(count);
  for (size_t i = 0; i < count; ++i) points.push_back(Point(record, kPointsHead + 8 * i));
  return true;
}

bool Player::Polyline(std::string_view record) {
  std::vector<PointF> points;
  if (!Points(record, points)) return false;
  if (pen_.style != PenStyle::kNone && points.size() >= 2) canvas_.DrawPolyline(points, pen_);
  return true;
}

bool Player::Polygon(std::string_view record) {
  std::vector<PointF> points;
  if (!Points(record, points)) return false;
  if (points.empty()) return true;
  if (filled_) canvas_.FillPolygon(points, brush_);
  if (pen_.style == PenStyle::kNone) return true;
  points.push_back(points.front());
  canvas_.DrawPolyline(points, pen_);
  return true;
}

bool Player::Text(std::string_view record) {
  size_t count = Field(record, 44), text = Field(record, 48), advances = Field(record, 72);
  if (text > record.size() || count > (record.size() - text) / 2) return false;
  if (advances > record.size() || (advances != 0 && count > (record.size() - advances) / 4)) return false;
  if (count == 0) return true;
  double width = 0;
  for (size_t i = 0; advances != 0 && i < count; ++i) width += Number(record, advances + 4 * i);
  width = std::clamp(width, 0.0, kFarthest * width_) * std::fabs(scale_x_);
  canvas_.DrawText(Point(record, 36), Utf8Of(record.data() + text, count), font_, text_colour_, anchor_, width);
  return true;
}

bool Player::Stretch(std::string_view record) {
  size_t info = Field(record, 48), bits = Field(record, 56);
  if (info > record.size() || record.size() - info < 40 || bits > record.size()) return false;
  int64_t columns = Number(record, info + 4), rows = Number(record, info + 8), stride = (columns * 3 + 3) / 4 * 4;
  if (Field(record, info) < 40 || LoadLe<uint16_t>(record.data() + info + 14) != 24 || Field(record, info + 16) != 0) return false;
  int64_t room = static_cast<int64_t>(record.size() - bits);
  if (columns <= 0 || rows <= 0 || stride > room || rows > room / stride) return false;
  Picture picture;
  picture.width = static_cast<int>(columns);
  picture.height = static_cast<int>(rows);
  picture.pixels.reserve(static_cast<size_t>(columns * rows));
  for (int64_t row = rows; row-- > 0;) {
    const char* pixel = record.data() + bits + row * stride;
    for (int64_t column = 0; column < columns; ++column, pixel += 3) {
      uint32_t blue = static_cast<uint8_t>(pixel[0]), green = static_cast<uint8_t>(pixel[1]), red = static_cast<uint8_t>(pixel[2]);
      picture.pixels.push_back(0xFF000000 | red << 16 | green << 8 | blue);
    }
  }
  int64_t x = Number(record, 24), y = Number(record, 28);
  RectF area{X(x), Y(y), X(x + Number(record, 72)), Y(y + Number(record, 76))};
  if (area.right < area.left) std::swap(area.left, area.right);
  if (area.bottom < area.top) std::swap(area.top, area.bottom);
  canvas_.DrawPicture(area, picture);
  return true;
}

}  // namespace

bool PageFileReader::Next(EmfRecord& type, std::string_view& record) {
  if (file_.size() - position_ < 8) return false;
  uint32_t size = LoadLe<uint32_t>(file_.data() + position_ + 4);
  if (size < 8 || size % 4 != 0 || size > file_.size() - position_) return false;
  type = static_cast<EmfRecord>(LoadLe<uint32_t>(file_.data() + position_));
  record = file_.substr(position_, size);
  if (type == EmfRecord::kHeader && (position_ != 0 || size < 88 || LoadLe<uint32_t>(record.data() + 40) != kEmfSignature)) return false;
  position_ += size;
  return true;
}

std::optional<PageFileSize> SizeOfPageFile(std::string_view file) {
  PageFileReader reader(file);
  EmfRecord type;
  std::string_view header;
  if (!reader.Next(type, header) || type != EmfRecord::kHeader) return std::nullopt;
  auto edge = [&header](size_t at) { return int64_t{LoadLe<int32_t>(header.data() + at)}; };
  int64_t width = edge(32) - edge(24), height = edge(36) - edge(28);
  if (edge(24) != 0 || edge(28) != 0 || width <= 0 || height <= 0 || width > kLongestFrame || height > kLongestFrame) return std::nullopt;
  return PageFileSize{static_cast<double>(width) / kPageScale, static_cast<double>(height) / kPageScale};
}

bool PlayPageFile(std::string_view file, Canvas& canvas, const RectF& frame) {
  return Player(canvas, frame).Play(file);
}

}  // namespace ostrinka
