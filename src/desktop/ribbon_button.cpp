#include "desktop/ribbon_button.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

namespace ostrinka {
namespace {

constexpr double kIconLarge = 32, kIconSmall = 16, kLine = 14, kIconTop = 5, kTextTop = 40;
constexpr int kLargeHeight = 72, kSmallHeight = 24, kTabHeight = 30;

}  // namespace

RibbonButton::RibbonButton(const Look& look, Shape shape, QWidget* parent) : QAbstractButton(parent), look_(look), shape_(shape) {
  setFocusPolicy(shape == Shape::kWindow ? Qt::NoFocus : Qt::TabFocus);
  setMouseTracking(true);
  setFont(look.WindowFont());
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void RibbonButton::SetCaptions(const QStringList& captions) {
  captions_ = captions;
  updateGeometry();
}

void RibbonButton::SetIconName(const QString& name) {
  if (name == icon_name_) return;
  icon_name_ = name;
  ReadIcon();
}

void RibbonButton::ReadIcon() {
  setIcon(icon_name_.isEmpty() ? QIcon() : look_.Icon(FromQt(icon_name_)));
  update();
}

void RibbonButton::SetTight(bool tight) {
  if (tight == tight_) return;
  tight_ = tight;
  updateGeometry();
}

bool RibbonButton::Show(const QString& caption, bool enabled, bool checked, bool visible) {
  if (caption == caption_ && enabled == isEnabled() && checked == isChecked() && visible == !isHidden()) return false;
  caption_ = caption;
  setAccessibleName(caption);
  if (checked) setCheckable(true);
  setChecked(checked);
  setEnabled(enabled);
  setVisible(visible);
  update();
  return true;
}

QSize RibbonButton::sizeHint() const {
  const QFontMetricsF metrics(font());
  double width = 0;
  const QStringList captions = captions_.isEmpty() ? QStringList{caption_} : captions_;
  for (const QString& caption : captions) {
    if (shape_ != Shape::kLarge) {
      width = std::max(width, metrics.horizontalAdvance(caption));
      continue;
    }
    const QStringList lines = TwoLines(caption, metrics);
    for (const QString& line : lines) width = std::max(width, metrics.horizontalAdvance(line));
    if (split_ && lines.size() > 1) width = std::max(width, metrics.horizontalAdvance(lines[1]) + 14);
  }
  const int text = static_cast<int>(std::ceil(width));
  switch (shape_) {
    case Shape::kLarge:
      return {std::max(text + (tight_ ? 8 : 16), tight_ ? 44 : 52), kLargeHeight};
    case Shape::kSmall:
      return {text + (icon().isNull() ? 0 : 20) + (split_ ? 16 : 0) + (tight_ ? 10 : 14), kSmallHeight};
    case Shape::kMark:
      return {tight_ ? 26 : 30, 30};
    case Shape::kTab:
      return {text + 30, kTabHeight};
    case Shape::kMenu:
      return {text + 46, kTabHeight};
    case Shape::kWindow:
      return {46, 32};
  }
  return {};
}

RibbonPainter::ToolState RibbonButton::State() const {
  return {isEnabled(), underMouse(), isDown() || list_open, isChecked(), hasFocus()};
}

// Where a press opens the list instead of running the choice.
QRectF RibbonButton::DropArea() const {
  if (!split_) return {};
  if (shape_ == Shape::kLarge) return QRectF(0, kTextTop - 2, width(), height() - kTextTop + 2);
  return QRectF(width() - 18, 0, 18, height());
}

void RibbonButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  painter.setFont(font());
  switch (shape_) {
    case Shape::kLarge:
      PaintLarge(paint, painter);
      break;
    case Shape::kSmall:
      PaintSmall(paint, painter);
      break;
    case Shape::kMark: {
      paint.ToolGround(rect(), State());
      const QColor colour = isEnabled() ? look_.Colour(SkinColour::kArrowOne) : look_.Colour(SkinColour::kButtonTextDisabled);
      paint.Mark(glyph_, QRectF(rect()).adjusted(9, 9, -9, -9),
                 isEnabled() && underMouse() ? look_.Colour(SkinColour::kButtonTextActive) : colour);
      break;
    }
    case Shape::kTab:
      PaintTab(paint, painter);
      break;
    case Shape::kMenu:
      PaintMenu(paint, painter);
      break;
    case Shape::kWindow:
      PaintWindow(paint, painter);
      break;
  }
}

void RibbonButton::PaintIcon(QPainter& painter, const QRectF& area) {
  if (icon().isNull()) return;
  const QIcon::Mode mode = !isEnabled() ? QIcon::Disabled : underMouse() ? QIcon::Active : QIcon::Normal;
  icon().paint(&painter, area.toRect(), Qt::AlignCenter, mode);
}

void RibbonButton::PaintLarge(RibbonPainter& paint, QPainter& painter) {
  const RibbonPainter::ToolState state = State();
  paint.ToolGround(rect(), state, true);
  if (split_) paint.SplitGround(DropArea(), state, over_drop_ || list_open);
  PaintIcon(painter, QRectF((width() - kIconLarge) / 2, kIconTop, kIconLarge, kIconLarge));
  const QFontMetricsF metrics(font());
  const QStringList lines = TwoLines(caption_, metrics);
  const QColor text = paint.ToolText(state);
  painter.setPen(text);
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const bool arrow_here = split_ && i == 1;
    const QRectF line(0, kTextTop + static_cast<double>(i) * kLine, width() - (arrow_here ? 12 : 0), kLine);
    painter.drawText(line, Qt::AlignCenter | Qt::TextDontClip, lines[i]);
  }
  if (!split_) return;
  const double x = lines.size() > 1 ? (width() - 12 + metrics.horizontalAdvance(lines[1])) / 2 + 7 : width() / 2.0;
  paint.Mark(Glyph::kDrop, QRectF(x - 3.5, kTextTop + kLine + 4, 7, 7), text);
}

void RibbonButton::PaintSmall(RibbonPainter& paint, QPainter& painter) {
  RibbonPainter::ToolState state = State();
  const char* look_of_combo = state.pressed ? "combo.press" : state.hover && state.enabled ? "combo.over" : "combo.std";
  const bool combo = drop && !split_, framed = combo && paint.Three(rect(), look_of_combo);
  if (combo && !framed) {
    // A combo shows its field also at rest.
    painter.setPen(QPen(paint.colours().edge, 1));
    painter.setBrush(state.enabled ? QColor(Qt::white) : paint.colours().panel);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
  }
  if (!framed) paint.ToolGround(rect(), state);
  if (framed && state.focused) paint.FocusRing(rect());
  double left = 7;
  if (!icon().isNull()) {
    PaintIcon(painter, QRectF(left - 2, (height() - kIconSmall) / 2, kIconSmall, kIconSmall));
    left += 18;
  }
  const QColor text = paint.ToolText(state);
  painter.setPen(text);
  const bool arrow = split_ || drop;
  const QRectF line(left, 0, width() - left - (arrow ? 18 : 7), height());
  painter.drawText(line, (arrow || !icon().isNull() ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter | Qt::TextDontClip, caption_);
  if (arrow && !framed) paint.Mark(Glyph::kDrop, QRectF(width() - 14, height() / 2.0 - 3.5, 7, 7), text);
}

void RibbonButton::PaintTab(RibbonPainter& paint, QPainter& painter) {
  const FrameColours& colours = paint.colours();
  const QRectF area = QRectF(rect()).adjusted(1, 3, -1, 0);
  QColor text = look_.Colour(isChecked() ? SkinColour::kTabTextActive : SkinColour::kTabText);
  const bool drawn = (isChecked() || underMouse()) && paint.Nine(area, isChecked() ? "tab.std" : "tab.over", 8, 8);
  if (!drawn && (isChecked() || underMouse())) {
    const double radius = look_.RoundCorners() ? 4 : 0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? colours.panel : MixOf(colours.strip, Qt::white, 0.16));
    painter.setClipRect(rect());
    painter.drawRoundedRect(area.adjusted(0, 0, 0, radius + 1), radius, radius);
    if (isChecked()) {
      painter.fillRect(QRectF(area.left() + radius, area.top(), area.width() - 2 * radius, 2), look_.Accent());
    }
  }
  painter.setPen(text);
  painter.drawText(area, Qt::AlignCenter, caption_);
  if (hasFocus()) paint.FocusRing(area.adjusted(2, 2, -2, -2));
}

void RibbonButton::PaintMenu(RibbonPainter& paint, QPainter& painter) {
  const RibbonPainter::ToolState state = State();
  QColor ground = look_.Accent();
  if (state.pressed)
    ground = MixOf(ground, Qt::black, 0.18);
  else if (state.hover)
    ground = MixOf(ground, Qt::white, 0.22);
  const QRectF area = QRectF(rect()).adjusted(0, 3, 0, 0);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.setClipRect(rect());
  const double radius = look_.RoundCorners() ? 4 : 0;
  painter.drawRoundedRect(area.adjusted(0, 0, 0, radius + 1), radius, radius);
  const QColor text = ReadableOn(ground);
  paint.Mark(Glyph::kMenu, QRectF(12, area.center().y() - 5, 12, 10), text);
  painter.setPen(text);
  painter.setFont(look_.BoldFont());
  painter.drawText(area.adjusted(30, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, caption_);
  if (state.focused) paint.FocusRing(area.adjusted(2, 2, -2, -2));
}

void RibbonButton::PaintWindow(RibbonPainter& paint, QPainter& painter) {
  if (picture_ && paint.Part(QRectF((width() - 32) / 2.0, (height() - 24) / 2.0, 32, 24), WindowPicture())) return;
  QColor mark = look_.Colour(SkinColour::kCaptionText);
  if (!isActiveWindow()) mark = look_.Colour(SkinColour::kCaptionTextDisabled);
  if (underMouse() && isEnabled()) {
    const bool closes = glyph_ == Glyph::kClose;
    QColor ground = closes ? QColor(0xC8, 0x3A, 0x32) : MixOf(paint.colours().title, Qt::white, 0.18);
    if (isDown()) ground = MixOf(ground, Qt::black, 0.2);
    painter.fillRect(rect(), ground);
    if (closes) mark = Qt::white;
  }
  paint.Mark(glyph_, QRectF(width() / 2.0 - 5, height() / 2.0 - 5, 10, 10), mark);
}

// The skin's picture of a window button in its state.
std::string RibbonButton::WindowPicture() const {
  const char* state = isDown() ? "press" : underMouse() ? "over" : isActiveWindow() ? "std" : "dis";
  const bool restore = glyph_ == Glyph::kRestore;
  const char* part = glyph_ == Glyph::kClose ? "03" : glyph_ == Glyph::kMaximise ? "02" : "01";
  return std::string(restore ? "win.max." : "win.") + state + "." + part + ".bmp";
}

void RibbonButton::mousePressEvent(QMouseEvent* event) {
  const bool opens = drop && event->button() == Qt::LeftButton && (!split_ || DropArea().contains(event->position()));
  if (opens) {
    drop();
  } else {
    QAbstractButton::mousePressEvent(event);
  }
}

void RibbonButton::mouseMoveEvent(QMouseEvent* event) {
  const bool over = DropArea().contains(event->position());
  if (over != over_drop_) over_drop_ = over, update();
  QAbstractButton::mouseMoveEvent(event);
}

void RibbonButton::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool chosen = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (drop && (key == Qt::Key_Down || key == Qt::Key_F4 || (!split_ && (chosen || key == Qt::Key_Space)))) {
    drop();
  } else if (chosen) {
    click();
  } else if (key == Qt::Key_Left || key == Qt::Key_Right) {
    focusNextPrevChild(key == Qt::Key_Right);
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void RibbonButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void RibbonButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

}  // namespace ostrinka
