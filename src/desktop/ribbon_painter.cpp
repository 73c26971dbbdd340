#include "desktop/ribbon_painter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "desktop/device_grid.h"

namespace ostrinka {

QColor MixOf(const QColor& first, const QColor& second, double share) {
  const auto mixed = [&](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
  return QColor(mixed(first.red(), second.red()), mixed(first.green(), second.green()), mixed(first.blue(), second.blue()));
}

QColor ReadableOn(const QColor& ground) {
  return qGray(ground.rgb()) > 140 ? QColor(Qt::black) : QColor(Qt::white);
}

FrameColours::FrameColours(const Look& look) {
  const QColor menu = look.Colour(SkinColour::kMainMenu), ground = look.Colour(SkinColour::kBackground), accent = look.Accent();
  strip = menu;
  title = MixOf(menu, Qt::black, 0.32);
  title_edge = MixOf(menu, Qt::black, 0.5);
  panel = MixOf(ground, Qt::white, 0.32);
  panel_edge = MixOf(ground, Qt::black, 0.22);
  hover = MixOf(panel, Qt::white, 0.75);
  press = MixOf(panel, accent, 0.42);
  check = MixOf(panel, accent, 0.32);
  edge = MixOf(panel, look.Colour(SkinColour::kTextBorder), 0.55);
  list_line = MixOf(Qt::white, ground, 0.95);
  list_tint = MixOf(Qt::white, ground, 0.3);
  popup = look.Colour(SkinColour::kPopupMenu);
  popup_hover = MixOf(popup, accent, 0.24);
}

RibbonPainter::RibbonPainter(QPainter& painter, const Look& look) : painter_(painter), look_(look), colours_(look) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

bool RibbonPainter::Part(const QRectF& area, std::string_view image) {
  const QPixmap picture = look_.Image(image);
  if (picture.isNull()) return false;
  painter_.drawPixmap(OnGrid(painter_, area), picture, picture.rect());
  return true;
}

bool RibbonPainter::Three(const QRectF& area, std::string_view element) {
  const QPixmap left = look_.Image(std::string(element) + ".01.bmp"), right = look_.Image(std::string(element) + ".03.bmp");
  const double first = left.deviceIndependentSize().width(), last = right.deviceIndependentSize().width();
  if (left.isNull() || right.isNull() || area.width() < first + last) return false;
  return Part({area.left() + first, area.top(), area.width() - first - last, area.height()}, std::string(element) + ".02.bmp") &&
         Part({area.left(), area.top(), first, area.height()}, std::string(element) + ".01.bmp") &&
         Part({area.right() - last, area.top(), last, area.height()}, std::string(element) + ".03.bmp");
}

bool RibbonPainter::Nine(const QRectF& area, const std::string& element, double top, double bottom) {
  const double inner = area.height() - top - bottom;
  return inner >= 0 && Three({area.left(), area.top(), area.width(), top}, element) &&
         Three({area.left(), area.top() + top, area.width(), inner}, element + ".e1") &&
         Three({area.left(), area.bottom() - bottom, area.width(), bottom}, element + ".e2");
}

void RibbonPainter::SplitGround(const QRectF& area, const ToolState& state, bool over) {
  if (!state.enabled || !(state.hover || state.pressed)) return;
  if (over) {
    const char* name = state.pressed ? "btn.grp.press" : "btn.grp.over";
    const std::string element = name;
    const QPixmap left = look_.Image(element + ".04.bmp");
    const double cap = left.isNull() ? 0 : left.deviceIndependentSize().width();
    Part({area.left(), area.top(), cap, area.height()}, element + ".04.bmp");
    Part({area.left() + cap, area.top(), area.width() - 2 * cap, area.height()}, element + ".05.bmp");
    Part({area.right() - cap, area.top(), cap, area.height()}, element + ".06.bmp");
  }
  if (!Part({area.left() + 1, area.top(), area.width() - 2, 1}, "btn.grp.over.07.bmp")) {
    Hairline({area.left() + 1, area.top()}, {area.right() - 1, area.top()}, colours_.edge);
  }
}

void RibbonPainter::ToolGround(const QRectF& area, const ToolState& state, bool large) {
  const char* name = nullptr;
  if (state.checked) name = "check";
  if (state.enabled && state.hover && !state.checked) name = "over";
  if (state.enabled && state.pressed) name = "press";
  if (name && Three(area, std::string(large ? "btn.grp." : "button.small.") + name)) {
    if (state.focused) FocusRing(area);
    return;
  }
  const QRectF inner = HairlineFrame(painter_, area);
  const bool alive = state.enabled && (state.hover || state.pressed);
  if (alive || state.checked) {
    QColor fill = state.pressed && state.enabled ? colours_.press : state.checked ? colours_.check : colours_.hover;
    if (state.checked && alive && !state.pressed) fill = MixOf(fill, Qt::white, 0.35);
    painter_.setPen(
        QPen(state.checked || state.pressed ? MixOf(colours_.edge, look_.Accent(), 0.7) : colours_.edge, HairlineWidth(painter_)));
    painter_.setBrush(fill);
    painter_.drawRoundedRect(inner, Radius(), Radius());
  }
  if (state.focused) FocusRing(area);
}

QColor RibbonPainter::ToolText(const ToolState& state) const {
  if (!state.enabled) return look_.Colour(SkinColour::kButtonTextDisabled);
  if (state.checked) return look_.Colour(SkinColour::kButtonTextChecked);
  return look_.Colour(state.hover || state.pressed ? SkinColour::kButtonTextActive : SkinColour::kButtonText);
}

void RibbonPainter::FocusRing(const QRectF& area) {
  painter_.setPen(QPen(look_.FocusRing(), 2));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRoundedRect(area.adjusted(1, 1, -1, -1), Radius(), Radius());
}

void RibbonPainter::Hairline(QPointF from, QPointF to, const QColor& colour) {
  const double thick = HairlineWidth(painter_);
  QRectF line = OnGrid(painter_, QRectF(from, to));
  if (from.y() == to.y()) {
    line.setHeight(thick);
  } else {
    line.setWidth(thick);
  }
  painter_.fillRect(line, colour);
}

void RibbonPainter::Mark(Glyph glyph, const QRectF& area, const QColor& colour) {
  painter_.save();
  painter_.translate(area.center());
  const double s = std::min(area.width(), area.height()) / 2;  // marks are drawn from -s to s
  painter_.setPen(QPen(colour, std::max(1.2, s * 0.26), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter_.setBrush(Qt::NoBrush);
  const auto line = [&](double x1, double y1, double x2, double y2) {
    painter_.drawLine(QPointF(x1 * s, y1 * s), QPointF(x2 * s, y2 * s));
  };
  const auto chevron = [&](double tip, double back) {
    painter_.drawPolyline(QPolygonF({QPointF(back * s, -0.8 * s), QPointF(tip * s, 0), QPointF(back * s, 0.8 * s)}));
  };
  switch (glyph) {
    case Glyph::kFirst:
      chevron(-0.35, 0.5), line(-0.75, -0.8, -0.75, 0.8);
      break;
    case Glyph::kPrevious:
      chevron(-0.45, 0.4);
      break;
    case Glyph::kNext:
      chevron(0.45, -0.4);
      break;
    case Glyph::kLast:
      chevron(0.35, -0.5), line(0.75, -0.8, 0.75, 0.8);
      break;
    case Glyph::kDrop:
      painter_.setPen(Qt::NoPen);
      painter_.setBrush(colour);
      painter_.drawPolygon(QPolygonF({QPointF(-s, -s * 0.5), QPointF(s, -s * 0.5), QPointF(0, s * 0.6)}));
      break;
    case Glyph::kMenu:
      line(-0.9, -0.65, 0.9, -0.65), line(-0.9, 0, 0.9, 0), line(-0.9, 0.65, 0.9, 0.65);
      break;
    case Glyph::kMinimise:
      line(-0.9, 0.5, 0.9, 0.5);
      break;
    case Glyph::kMaximise:
      painter_.drawRect(QRectF(-0.85 * s, -0.85 * s, 1.7 * s, 1.7 * s));
      break;
    case Glyph::kRestore:
      painter_.drawRect(QRectF(-0.9 * s, -0.45 * s, 1.35 * s, 1.35 * s));
      painter_.drawPolyline(QPolygonF({QPointF(-0.45 * s, -0.9 * s), QPointF(0.9 * s, -0.9 * s), QPointF(0.9 * s, 0.45 * s)}));
      break;
    case Glyph::kClose:
      line(-0.8, -0.8, 0.8, 0.8), line(-0.8, 0.8, 0.8, -0.8);
      break;
    case Glyph::kTick:
      painter_.drawPolyline(QPolygonF({QPointF(-0.8 * s, 0.05 * s), QPointF(-0.2 * s, 0.65 * s), QPointF(0.8 * s, -0.6 * s)}));
      break;
    case Glyph::kDot:
      painter_.setPen(Qt::NoPen);
      painter_.setBrush(colour);
      painter_.drawEllipse(QPointF(0, 0), s * 0.55, s * 0.55);
      break;
    case Glyph::kMinus:
      line(-0.8, 0, 0.8, 0);
      break;
    case Glyph::kPlus:
      line(-0.8, 0, 0.8, 0), line(0, -0.8, 0, 0.8);
      break;
  }
  painter_.restore();
}

void RibbonPainter::Badge(QPointF at, const QString& letters, bool enabled) {
  painter_.setFont(look_.BoldFont());
  const QFontMetricsF metrics(look_.BoldFont());
  const double width = std::max(metrics.horizontalAdvance(letters) + 10, 20.0), height = 18;
  const QRectF box(std::round(at.x() - width / 2) + 0.5, std::round(at.y() - height / 2) + 0.5, width - 1, height - 1);
  painter_.setOpacity(enabled ? 1 : 0.55);
  painter_.setPen(QPen(QColor(0x5B, 0x53, 0x3A), 1));
  painter_.setBrush(QColor(0xFF, 0xF4, 0xCF));
  painter_.drawRoundedRect(box, 3, 3);
  painter_.setPen(QColor(0x1B, 0x21, 0x29));
  painter_.drawText(box, Qt::AlignCenter, letters);
  painter_.setOpacity(1);
}

QStringList TwoLines(const QString& caption, const QFontMetricsF& metrics) {
  QStringList best{caption};
  double width = metrics.horizontalAdvance(caption);
  for (qsizetype at = caption.indexOf(' '); at > 0; at = caption.indexOf(' ', at + 1)) {
    const QStringList pair{caption.left(at), caption.mid(at + 1)};
    const double wide = std::max(metrics.horizontalAdvance(pair[0]), metrics.horizontalAdvance(pair[1]));
    if (wide < width) best = pair, width = wide;
  }
  return best;
}

}  // namespace ostrinka
