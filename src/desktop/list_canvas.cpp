#include "desktop/list_canvas.h"

#include <algorithm>
#include <cmath>

#include "desktop/look.h"
#include "engine/grid_geometry.h"

namespace ostrinka {
namespace {

constexpr double kBearing = 2;     // room on either side of a text
constexpr double kLeading = 0.34;  // room between lines, by the height of a line

// Height of a line of the list's type.
double CellHeight(double zoom) {
  TableLook look;
  look.zoom = zoom;
  return GridFont(look).height;
}

// Of a line with the room above and below it.
double LineHeight(double cell_height) {
  return std::ceil(cell_height * (1 + kLeading));
}

}  // namespace

ListCanvas::ListCanvas(QPainter& painter, double width, double height, double inset)
    : QCanvas(painter, width, height), inset_(inset), ratio_(painter.device() ? painter.device()->devicePixelRatioF() : 1) {
  painter_.setRenderHint(QPainter::Antialiasing, false);  // edges fall on pixels
}

int ListCanvas::RowHeight(double zoom) {
  return GridRowHeight(LineHeight(CellHeight(zoom)));
}

QFont ListCanvas::Font(double zoom) {
  QFont font(InstalledFace("Tahoma"));
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(CellHeight(zoom) / kGridCellOfType))));
  return font;
}

void ListCanvas::FillRect(const RectF& area, Colour colour) {
  painter_.fillRect(RectOf(area).adjusted(area.left == 0 ? -inset_ : 0, 0, 0, 0), ColourOf(colour));
}

void ListCanvas::DrawRect(const RectF& area, const Pen& pen) {
  painter_.setPen(ColourOf(pen.colour));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(RectOf(area));
}

void ListCanvas::DrawLine(PointF from, PointF to, const Pen& pen) {
  // Upright and level lines are filled, as wide as whole pixels of the device.
  const double thick = std::max(1.0, std::floor(ratio_ * std::max(pen.width, 1.0))) / ratio_;
  const auto snapped = [&](double at) { return std::floor(at * ratio_ + 0.5) / ratio_; };
  if (from.y == to.y) {
    const double left = from.x == 0 ? -inset_ : from.x;
    painter_.fillRect(QRectF(left, snapped(from.y), to.x - left, thick), ColourOf(pen.colour));
  } else if (from.x == to.x) {
    painter_.fillRect(QRectF(snapped(from.x), from.y, thick, to.y - from.y), ColourOf(pen.colour));
  } else {
    painter_.setPen(QPen(ColourOf(pen.colour), thick));
    painter_.drawLine(QPointF(from.x, from.y), QPointF(to.x, to.y));
  }
}

const ListCanvas::Fitted& ListCanvas::FontOf(const FontSpec& wanted) {
  const QString key = ToQt(wanted.face) + QString::number(wanted.height) + (wanted.bold ? "b" : "") + (wanted.italic ? "i" : "");
  const auto found = fonts_.find(key);
  if (found != fonts_.end()) return *found;
  QFont font(InstalledFace(wanted.face));
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(wanted.height / kGridCellOfType))));
  font.setBold(wanted.bold);
  font.setItalic(wanted.italic);
  font.setUnderline(wanted.underline);
  return *fonts_.insert(key, Fitted{font, QFontMetricsF(font, painter_.device())});
}

double ListCanvas::TextWidth(std::string_view text, const FontSpec& font) {
  return FontOf(font).metrics.horizontalAdvance(ToQt(text)) + 2 * kBearing;
}

double ListCanvas::TextHeight(const FontSpec& font) {
  return LineHeight(font.height);
}

void ListCanvas::DrawText(PointF at, std::string_view text, const FontSpec& font, Colour colour, Anchor anchor, double) {
  const Fitted& fitted = FontOf(font);
  const QString line = ToQt(text);
  double x = at.x + kBearing;
  if (anchor != Anchor::kLeft) x -= TextWidth(text, font) * (anchor == Anchor::kCentre ? 0.5 : 1);
  // The capitals stand in the middle of the line.
  const double room = TextHeight(font) + 2, capital = fitted.metrics.capHeight();
  painter_.setFont(fitted.font);
  painter_.setPen(ColourOf(colour));
  painter_.drawText(QPointF(std::round(x), at.y + std::round((room + capital) / 2)), line);
}

}  // namespace ostrinka
