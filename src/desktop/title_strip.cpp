#include "desktop/title_strip.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include "desktop/dialog_style.h"

namespace ostrinka {
namespace {

constexpr int kPadding = 12, kCloseWidth = 40;

}  // namespace

TitleStrip::TitleStrip(const Look& look, QWidget* window, std::function<void()> close)
    : QWidget(window), look_(look), close_(std::move(close)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setMouseTracking(true);
  window->installEventFilter(this);
}

QSize TitleStrip::sizeHint() const {
  return {fontMetrics().horizontalAdvance(window()->windowTitle()) + 2 * kPadding + kCloseWidth, fontMetrics().height() + 16};
}

QRectF TitleStrip::CloseArea() const {
  return {static_cast<double>(width() - kCloseWidth), 0, kCloseWidth, static_cast<double>(height())};
}

void TitleStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const DialogColours& c = DialogStyle::Of(look_).colours();
  QLinearGradient ground(0, 0, 0, height());
  ground.setColorAt(0, c.strip_top);
  ground.setColorAt(1, c.strip_bottom);
  painter.fillRect(rect(), ground);
  const bool active = window()->isActiveWindow();
  const QPixmap caption = look_.Image(active ? "title.std.04.bmp" : "title.dis.04.bmp");
  if (!caption.isNull()) painter.drawPixmap(QRectF(rect()), caption, caption.rect());
  painter.setFont(look_.BoldFont());
  painter.setPen(active ? c.strip_text : c.strip_text_off);
  const QRectF text(kPadding, 0, width() - kPadding - kCloseWidth - 4, height());
  painter.drawText(text, Qt::AlignVCenter,
                   painter.fontMetrics().elidedText(window()->windowTitle(), Qt::ElideRight, static_cast<int>(text.width())));
  const QRectF close = CloseArea();
  if (hot_) painter.fillRect(close, pressed_ ? c.error.darker(120) : c.error);
  painter.setPen(QPen(hot_ || active ? c.strip_text : c.strip_text_off, 1.5, Qt::SolidLine, Qt::RoundCap));
  const QPointF middle = close.center();
  for (const int side : {-1, 1}) painter.drawLine(middle + QPointF(-4, -4 * side), middle + QPointF(4, 4 * side));
}

void TitleStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = CloseArea().contains(event->position());
  update();
  if (pressed_) return;
  // Where the system does not move windows itself, the strip does.
  dragging_ = !(window()->windowHandle() && window()->windowHandle()->startSystemMove());
  grip_ = event->globalPosition().toPoint() - window()->pos();
}

void TitleStrip::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_) window()->move(event->globalPosition().toPoint() - grip_);
  const bool hot = CloseArea().contains(event->position());
  if (hot != hot_) update();
  hot_ = hot;
}

void TitleStrip::mouseReleaseEvent(QMouseEvent* event) {
  const bool closes = pressed_ && CloseArea().contains(event->position());
  pressed_ = dragging_ = false;
  update();
  if (closes) close_();
}

void TitleStrip::leaveEvent(QEvent*) {
  hot_ = false;
  update();
}

bool TitleStrip::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate || event->type() == QEvent::WindowTitleChange)
    update();
  return false;
}

void PaneFrame::paintEvent(QPaintEvent*) {
  if (!pane_) return;
  QPainter painter(this);
  const DialogStyle& style = DialogStyle::Of(look_);
  style.PaintCard(painter, pane_->geometry(), style.colours().pane);
}

}  // namespace ostrinka
