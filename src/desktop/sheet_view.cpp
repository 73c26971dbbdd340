#include "desktop/sheet_view.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/device_grid.h"
#include "desktop/ribbon_painter.h"
#include "desktop/scroll_style.h"
#include "desktop/sheet_canvas.h"

namespace ostrinka {
namespace {

constexpr int kMargin = 20, kLeastMargin = 8, kLine = 40, kWheelNotch = 120;
constexpr double kShadowMm = 2;
constexpr int kPictureMemory = 96 * 1024;  // kilobytes
constexpr int kOutline = 2;                // pixels of the device about a sheet, which its outline may take

// What holds written pages, to assistive technology.
class SheetAccess : public QAccessibleWidget {
 public:
  explicit SheetAccess(SheetView* view) : QAccessibleWidget(view, QAccessible::Document) {}
};

QAccessibleInterface* AccessTo(const QString&, QObject* object) {
  auto* view = dynamic_cast<SheetView*>(object);
  return view ? new SheetAccess(view) : nullptr;
}

Colour ColourOf(const QColor& colour) {
  return Rgb(colour.red(), colour.green(), colour.blue());
}

}  // namespace

SheetView::SheetView(frm_DocPreview& preview, const Look& look, QWidget* parent)
    : QAbstractScrollArea(parent), preview_(preview), look_(look), scale_(preview.Scale()), pictures_(kPictureMemory) {
  static const bool announced = (QAccessible::installFactory(AccessTo), true);
  (void)announced;
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()}) {
    ApplyScrollStyle(*bar, look);
    bar->setSingleStep(kLine);
  }
  QPalette palette = this->palette();
  palette.setColor(QPalette::Window, FrameColours(look).panel);  // between the bars
  setPalette(palette);
}

// --- the stack in the view

// A stack that the view can hold stands in its middle; the bar serves a wider one.
QPointF SheetView::Origin(double scale) const {
  const int room = viewport()->width() - static_cast<int>(std::ceil(preview_.Width() / preview_.Scale() * scale));
  const double left = room >= 2 * kLeastMargin ? room / 2 : kMargin - horizontalScrollBar()->value();
  return {left, static_cast<double>(kMargin - verticalScrollBar()->value())};
}

void SheetView::SetRanges() {
  const double shadow = kShadowMm * preview_.Scale();
  const QSize view = viewport()->size();
  const int sheets = static_cast<int>(std::ceil(preview_.Width())),
            width = view.width() - sheets >= 2 * kLeastMargin ? 0 : sheets + 2 * kMargin;
  const int height = static_cast<int>(std::ceil(preview_.Height() + shadow)) + 2 * kMargin;
  horizontalScrollBar()->setPageStep(view.width());
  verticalScrollBar()->setPageStep(view.height());
  horizontalScrollBar()->setRange(0, std::max(0, width - view.width()));
  verticalScrollBar()->setRange(0, std::max(0, height - view.height()));
  ShowPointer();
}

void SheetView::ZoomChanged() {
  const QPointF middle(viewport()->width() / 2.0, viewport()->height() / 2.0);
  const QPointF there = (middle - Origin(scale_)) / scale_;  // mm of the stack
  scale_ = preview_.Scale();
  pictures_.clear();
  SetRanges();
  const QPointF now = there * scale_ + QPointF(kMargin, kMargin);
  horizontalScrollBar()->setValue(static_cast<int>(std::lround(now.x() - viewport()->width() / 2.0)));
  verticalScrollBar()->setValue(static_cast<int>(std::lround(now.y() - viewport()->height() / 2.0)));
  viewport()->update();
  TellPlace();
}

int SheetView::CurrentPage() const {
  const QScrollBar& bar = *verticalScrollBar();
  // The line that a page must reach goes down the view as the view goes down the stack.
  const double share = bar.maximum() > 0 ? static_cast<double>(bar.value()) / bar.maximum() : 0;
  const double inset = kMargin + 1, line = inset + share * (viewport()->height() - 2 * inset);
  return preview_.PageAt(bar.value() - kMargin + line);
}

void SheetView::TellPlace() {
  const int page = CurrentPage();
  if (page == told_page_) return;
  told_page_ = page;
  setAccessibleName(ToQt(preview_.PlaceText(page)));
  setAccessibleDescription(ToQt(preview_.WordsOf(page)));
  if (moved) moved();
}

void SheetView::StepPage(int step) {
  QScrollBar& bar = *verticalScrollBar();
  const auto place = [&](int page) { return static_cast<int>(std::lround(preview_.Sheet(page).top)); };
  int page = preview_.PageAt(bar.value() + 1);
  // Within a page the step back leads to its own top.
  if (step > 0 || place(page) >= bar.value()) page += step;
  bar.setValue(place(std::clamp(page, std::min(1, preview_.Pages()), preview_.Pages())));
}

bool SheetView::ScrollByKey(int key) {
  QScrollBar &down = *verticalScrollBar(), &across = *horizontalScrollBar();
  const int view = std::max(kLine, viewport()->height() - kLine);  // a line of what was in sight stays
  const struct {
    int key;
    QScrollBar* bar;
    int to;
  } rows[] = {{Qt::Key_Up, &down, down.value() - kLine},
              {Qt::Key_Down, &down, down.value() + kLine},
              {Qt::Key_PageUp, &down, down.value() - view},
              {Qt::Key_PageDown, &down, down.value() + view},
              {Qt::Key_Home, &down, 0},
              {Qt::Key_End, &down, down.maximum()},
              {Qt::Key_Left, &across, across.value() - kLine},
              {Qt::Key_Right, &across, across.value() + kLine}};
  for (const auto& row : rows) {
    if (row.key != key) continue;
    row.bar->setValue(row.to);
    return true;
  }
  return false;
}

// --- painting

// In the coordinates of the stack.
void SheetView::DrawSheet(QPainter& painter, int page) const {
  const RectF sheet = preview_.Sheet(page);
  const double shadow = kShadowMm * preview_.Scale();
  SheetCanvas canvas(painter, sheet.right + shadow, sheet.bottom + shadow, std::min(1.0, preview_.zoom()));
  const Colour tone = ColourOf(MixOf(FrameColours(look_).panel_edge, Qt::black, 0.15));
  preview_.ref_(canvas, tone, sheet.top, sheet.top + 1);
}

// A page as it stands at the present zoom, with its shadow; null for one too large to be kept.
const QPixmap* SheetView::Picture(int page) {
  const double ratio = devicePixelRatioF();
  if (ratio != pictures_ratio_) pictures_.clear();
  pictures_ratio_ = ratio;
  if (const QPixmap* known = pictures_.object(page)) return known;
  const RectF sheet = preview_.Sheet(page);
  const double more = kShadowMm * preview_.Scale() + 2 * kOutline;
  const QSize size((QSizeF(sheet.width() + more, sheet.height() + more) * ratio).toSize());
  const qsizetype cost = qsizetype{size.width()} * size.height() * 4 / 1024;
  if (cost > kPictureMemory) return nullptr;
  auto* picture = new QPixmap(size);
  picture->setDevicePixelRatio(ratio);
  picture->fill(Qt::transparent);
  QPainter painter(picture);
  painter.translate(kOutline / ratio - sheet.left, kOutline / ratio - sheet.top);
  DrawSheet(painter, page);
  painter.end();
  pictures_.insert(page, picture, cost);
  return picture;
}

void SheetView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const FrameColours colours(look_);
  painter.fillRect(event->rect(), MixOf(colours.panel, colours.panel_edge, 0.6));
  const QPointF origin = Origin(preview_.Scale());
  const double bottom = event->rect().bottom() + 1 - origin.y();
  for (int page = preview_.PageAt(event->rect().top() - origin.y()); page >= 1 && page <= preview_.Pages(); ++page) {
    const RectF sheet = preview_.Sheet(page);
    if (sheet.top >= bottom) break;
    const QRectF at = OnGrid(painter, QRectF(origin + QPointF(sheet.left, sheet.top), QSizeF()));
    if (const QPixmap* picture = Picture(page)) {
      const double outline = kOutline / picture->devicePixelRatio();
      painter.drawPixmap(at.topLeft() - QPointF(outline, outline), *picture);
      continue;
    }
    painter.save();
    painter.translate(at.topLeft() - QPointF(sheet.left, sheet.top));
    DrawSheet(painter, page);
    painter.restore();
  }
}

void SheetView::resizeEvent(QResizeEvent*) {
  SetRanges();
  TellPlace();
}

void SheetView::scrollContentsBy(int, int) {
  viewport()->update();
  TellPlace();
}

// --- what the person does

// The window's keys act from anywhere in it.
void SheetView::keyPressEvent(QKeyEvent* event) {
  event->ignore();
}

void SheetView::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (event->modifiers() & Qt::ShiftModifier) {
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - event->angleDelta().y());
    return;
  }
  if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  wheel_rest_ += event->angleDelta().y();
  const int steps = wheel_rest_ / kWheelNotch;
  wheel_rest_ -= steps * kWheelNotch;
  if (steps != 0 && zoom_asked) zoom_asked(steps);
}

// A hand where there is something to drag.
void SheetView::ShowPointer() {
  const bool moves = verticalScrollBar()->maximum() > 0 || horizontalScrollBar()->maximum() > 0;
  viewport()->setCursor(!moves ? Qt::ArrowCursor : dragging_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
}

void SheetView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  dragging_ = true;
  grip_ = event->position().toPoint() + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
  ShowPointer();
}

void SheetView::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return;
  const QPoint to = grip_ - event->position().toPoint();
  horizontalScrollBar()->setValue(to.x());
  verticalScrollBar()->setValue(to.y());
}

void SheetView::mouseReleaseEvent(QMouseEvent*) {
  dragging_ = false;
  ShowPointer();
}

}  // namespace ostrinka
