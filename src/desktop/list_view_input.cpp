// Mouse and keyboard of the list.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "desktop/key_map.h"
#include "desktop/list_view.h"

namespace ostrinka {
namespace {

constexpr int kGrip = 4, kLeastColumn = 12, kWheelNotch = 120, kWheelRows = 3;

// The keys that the list takes; the others go on to the window.
constexpr int kTaken[] = {kKeyBlank, kKeyEscape, kKeyEnter, kKeyPageUp, kKeyPageDown, kKeyEnd,   kKeyHome,
                          kKeyLeft,  kKeyUp,     kKeyRight, kKeyDown,   kKeyInsert,   kKeyDelete};

}  // namespace

bool ListView::InHeader(const QPoint& at) const {
  return Shown() && at.y() >= 0 && at.y() < RowHeight() && at.x() < Surface().width();
}

// The column whose right border lies under the mouse.
std::optional<ColumnSpan> ListView::BorderAt(const QPoint& at) const {
  if (!InHeader(at)) return {};
  const GridGeometry grid = Grid();
  const ColumnSpan* span = grid.BorderAt(at.x(), kGrip);
  return span ? std::optional(*span) : std::nullopt;
}

int ListView::HeadAt(const QPoint& at) const {
  const GridGeometry grid = Grid();
  const ColumnSpan* span = InHeader(at) ? grid.ColumnAt(at.x()) : nullptr;
  return span ? span->column : 0;
}

bool ListView::SelectAt(const QPoint& at) {
  ClassQDBASE* table = Shown();
  if (!table || !Surface().contains(at)) return false;
  int left = 0, top = 0, width = 0, height = 0;
  table->TABLE_CLICK(0, at.x() - kInset, at.y(), left, top, width, height);
  const TableCell* cell = table->view().RowAt(at.y());  // also beside the last column
  return cell && window_.UserRecord(cell->record);
}

void ListView::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  press_column_ = 0;
  edits_ = false;
  if (event->button() == Qt::LeftButton && InHeader(at)) {
    if (const std::optional<ColumnSpan> border = BorderAt(at)) {
      drag_field_ = border->field;
      drag_from_ = at.x();
      drag_width_ = border->width;
      return;
    }
    press_column_ = HeadAt(at);
  } else {
    edits_ = SelectAt(at) && event->button() == Qt::LeftButton;
    edit_at_ = at;
  }
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (drag_field_ != 0) {
    const int width = std::max(drag_width_ + at.x() - drag_from_, kLeastColumn);
    if (ClassQDBASE* table = Shown()) {
      table->ColumnWidth(drag_field_, std::max(static_cast<int>(std::lround(width / (TextZoom(window_.list.zoom()) * fit_))), 1));
    }
    PlaceEditor();
    update();
    return;
  }
  const bool border = BorderAt(at).has_value();
  setCursor(border ? Qt::SplitHCursor : Qt::ArrowCursor);
  const int hover = border ? 0 : HeadAt(at);
  if (hover != hover_column_) hover_column_ = hover, update();
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (drag_field_ != 0) {
    drag_field_ = 0;
    Arrange();
    update();
    return;
  }
  // A cell opens at the release: a list that drops down would take the release for a choice.
  if (std::exchange(edits_, false) && event->button() == Qt::LeftButton) EditAt(edit_at_);
  if (press_column_ != 0 && HeadAt(at) == press_column_) window_.UserSortByColumn(press_column_);
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && !InHeader(event->position().toPoint()) && SelectAt(event->position().toPoint())) {
    window_.UserDoubleClick();
  }
}

void ListView::wheelEvent(QWheelEvent* event) {
  const bool sideways = std::abs(event->angleDelta().x()) > std::abs(event->angleDelta().y());
  wheel_rest_ += sideways ? event->angleDelta().x() : event->angleDelta().y();
  event->accept();
  const bool zooms = event->modifiers() & Qt::ControlModifier;
  const int step = zooms || sideways ? kWheelNotch : kWheelNotch / kWheelRows;
  const int steps = wheel_rest_ / step;
  if (steps == 0) return;
  wheel_rest_ -= steps * step;
  if (zooms) {
    window_.Zoom((std::round(window_.list.zoom() * 10) + steps) / 10);
  } else {
    QScrollBar* bar = sideways || (event->modifiers() & Qt::ShiftModifier) ? columns_ : rows_;
    bar->setValue(bar->value() - steps);
  }
}

void ListView::keyPressEvent(QKeyEvent* event) {
  if (!hasFocus()) {  // what the field of an open cell has no use for goes on to the window
    event->ignore();
    return;
  }
  const bool ctrl = event->modifiers() & Qt::ControlModifier;
  const int key = event->key();
  if (ctrl && (key == Qt::Key_Left || key == Qt::Key_Right)) {
    columns_->setValue(columns_->value() + (key == Qt::Key_Left ? -1 : 1));
    return;
  }
  const int code = KeyCodeOf(key);
  if (std::find(std::begin(kTaken), std::end(kTaken), code) == std::end(kTaken)) return QWidget::keyPressEvent(event);
  window_.UserKey(code);
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
  QPoint at = event->globalPos();
  if (event->reason() == QContextMenuEvent::Keyboard) {
    // Under the current row.
    at = mapToGlobal(QPoint(24, RowHeight()));
    if (ClassQDBASE* table = Shown()) {
      for (const TableCell& cell : table->cells()) {
        if (cell.record == record_) at = mapToGlobal(QPoint(24, cell.bottom));
      }
    }
  } else if (InHeader(event->pos())) {
    return;
  }
  if (show_menu) show_menu(at);
}

void ListView::leaveEvent(QEvent*) {
  if (hover_column_ != 0) hover_column_ = 0, update();
}

bool ListView::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  // A press beside the open cell, on a border of the head, leaves it open: what is typed goes on to it.
  if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, this, [this] { editor_->TakeFocus(); });
  return QWidget::event(event);
}

}  // namespace ostrinka
