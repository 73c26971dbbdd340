#include "desktop/qcanvas.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <algorithm>

namespace ostrinka {

namespace {

// Fonts are measured and drawn at this size and scaled, so that the spacing of a text is the same at every zoom.
constexpr int kDesignPixels = 200;

struct Replacement {
  const char* name;
  const char* installed;
};
constexpr Replacement kReplacements[] = {
    {"Arial", "Liberation Sans"}, {"Courier New", "Liberation Mono"}, {"Tahoma", "DejaVu Sans Condensed"}, {"Tahoma", "DejaVu Sans"}};

QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QPolygonF PolygonOf(const std::vector<PointF>& points) {
  QPolygonF polygon;
  for (const PointF& point : points) polygon << QPointF(point.x, point.y);
  return polygon;
}

}  // namespace

QString InstalledFace(std::string_view name) {
  static const QStringList families = QFontDatabase::families();
  QString face = TextOf(name);
  if (families.contains(face)) return face;
  for (const Replacement& replacement : kReplacements) {
    if (face == replacement.name && families.contains(replacement.installed)) return replacement.installed;
  }
  return face;
}

QCanvas::QCanvas(QPainter& painter, double width, double height, double hairline)
    : painter_(painter), width_(width), height_(height), hairline_(hairline) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

QPen QCanvas::PenOf(const Pen& pen) const {
  constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
  // Whole lines reach over their ends, so that those which meet leave no gap.
  Qt::PenCapStyle cap = pen.style == PenStyle::kSolid ? Qt::SquareCap : Qt::FlatCap;
  return QPen(ColourOf(pen.colour), std::max(pen.width, hairline_), kStyles[static_cast<int>(pen.style)], cap, Qt::MiterJoin);
}

void QCanvas::FillRect(const RectF& area, Colour colour) {
  painter_.fillRect(RectOf(area), ColourOf(colour));
}

void QCanvas::DrawRect(const RectF& area, const Pen& pen) {
  painter_.setPen(PenOf(pen));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(RectOf(area));
}

void QCanvas::DrawLine(PointF from, PointF to, const Pen& pen) {
  painter_.setPen(PenOf(pen));
  painter_.drawLine(QPointF(from.x, from.y), QPointF(to.x, to.y));
}

void QCanvas::DrawPolyline(const std::vector<PointF>& points, const Pen& pen) {
  painter_.setPen(PenOf(pen));
  painter_.drawPolyline(PolygonOf(points));
}

void QCanvas::FillPolygon(const std::vector<PointF>& points, Colour colour) {
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ColourOf(colour));
  painter_.drawPolygon(PolygonOf(points), Qt::OddEvenFill);
}

void QCanvas::DrawEllipse(const RectF& frame, const Pen& pen, const Colour* fill) {
  painter_.setPen(PenOf(pen));
  painter_.setBrush(fill ? QBrush(ColourOf(*fill)) : QBrush(Qt::NoBrush));
  painter_.drawEllipse(RectOf(frame));
}

const QCanvas::Fitted& QCanvas::FontOf(const FontSpec& wanted) {
  QString key = TextOf(wanted.face) + QChar('0' + (wanted.bold ? 1 : 0) + (wanted.italic ? 2 : 0) + (wanted.underline ? 4 : 0));
  auto found = fonts_.find(key);
  if (found != fonts_.end()) return *found;
  Fitted fitted;
  fitted.font = QFont(InstalledFace(wanted.face));
  fitted.font.setPixelSize(kDesignPixels);
  fitted.font.setHintingPreference(QFont::PreferNoHinting);
  fitted.font.setBold(wanted.bold);
  fitted.font.setItalic(wanted.italic);
  fitted.font.setUnderline(wanted.underline);
  QFontMetricsF metrics(fitted.font, painter_.device());
  fitted.ascent = metrics.ascent();
  fitted.cell = std::max(1.0, metrics.ascent() + metrics.descent());
  return *fonts_.insert(key, fitted);
}

double QCanvas::TextWidth(std::string_view text, const FontSpec& font) {
  const Fitted& fitted = FontOf(font);
  return QFontMetricsF(fitted.font, painter_.device()).horizontalAdvance(TextOf(text)) * font.height / fitted.cell;
}

// A text whose width is told is stretched to it, so that a page looks alike whatever fonts are installed.
void QCanvas::DrawText(PointF at, std::string_view text, const FontSpec& font, Colour colour, Anchor anchor, double advance) {
  QString line = TextOf(text);
  const Fitted& fitted = FontOf(font);
  double scale = font.height / fitted.cell;
  double natural = QFontMetricsF(fitted.font, painter_.device()).horizontalAdvance(line) * scale;
  double width = advance > 0 ? advance : natural;
  painter_.save();
  painter_.translate(at.x, at.y);
  painter_.rotate(-font.angle);
  painter_.translate(anchor == Anchor::kLeft ? 0 : anchor == Anchor::kCentre ? -width / 2 : -width, 0);
  painter_.scale(natural > 0 ? scale * width / natural : scale, scale);
  painter_.setFont(fitted.font);
  painter_.setPen(ColourOf(colour));
  painter_.drawText(QPointF(0, fitted.ascent), line);
  painter_.restore();
}

void QCanvas::DrawPicture(const RectF& area, const Picture& picture) {
  if (picture.width <= 0 || picture.height <= 0) return;
  QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height, picture.width * 4,
               QImage::Format_ARGB32);
  painter_.drawImage(RectOf(area), image);
}

void QCanvas::PushClip(const RectF& area) {
  painter_.save();
  painter_.setClipRect(RectOf(area), Qt::IntersectClip);
}

void QCanvas::PopClip() {
  painter_.restore();
}

}  // namespace ostrinka
