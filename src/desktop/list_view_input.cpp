// Mouse and keyboard of the list.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/list_view.h"

namespace ostrinka {
namespace {

constexpr int kGrip = 4, kLeastColumn = 12, kWheelNotch = 120, kWheelRows = 3;

struct KeyCode {
  int key, code;
};
constexpr KeyCode kKeys[] = {{Qt::Key_Space, 32},    {Qt::Key_Escape, 27}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 13}, {Qt::Key_PageUp, 33},
                             {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},    {Qt::Key_Home, 36},   {Qt::Key_Left, 37},  {Qt::Key_Up, 38},
                             {Qt::Key_Right, 39},    {Qt::Key_Down, 40},   {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46}};

}  // namespace

bool ListView::InHeader(const QPoint& at) const {
  return Shown() && at.y() >= 0 && at.y() < RowHeight() && at.x() < Surface().width();
}

int ListView::BorderAt(const QPoint& at) const {
  if (!InHeader(at)) return -1;
  const std::vector<Span> spans = Spans();
  for (size_t i = spans.size(); i-- > 0;) {
    if (std::abs(at.x() - (spans[i].left + spans[i].width - 1)) <= kGrip) return static_cast<int>(i);
  }
  return -1;
}

bool ListView::SelectAt(const QPoint& at) {
  ClassQDBASE* table = Shown();
  if (!table || !Surface().contains(at)) return false;
  int left = 0, top = 0, width = 0, height = 0;
  table->TABLE_CLICK(0, at.x() - kInset, at.y(), left, top, width, height);
  for (const TableCell& cell : table->cells()) {
    if (at.y() < cell.top || at.y() > cell.bottom + 1) continue;
    return window_.UserRecord(cell.record);  // also beside the last column
  }
  return false;
}

void ListView::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  press_column_ = 0;
  edits_ = false;
  if (event->button() == Qt::LeftButton && InHeader(at)) {
    const int border = BorderAt(at);
    const std::vector<Span> spans = Spans();
    if (border >= 0) {
      drag_field_ = spans[static_cast<size_t>(border)].field;
      drag_from_ = at.x();
      drag_width_ = spans[static_cast<size_t>(border)].width;
      return;
    }
    for (const Span& span : spans) {
      if (at.x() >= span.left && at.x() < span.left + span.width) press_column_ = span.column;
    }
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
  setCursor(BorderAt(at) >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
  int hover = -1;
  if (InHeader(at) && BorderAt(at) < 0) {
    for (const Span& span : Spans()) {
      if (at.x() >= span.left && at.x() < span.left + span.width) hover = span.column;
    }
  }
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
  if (press_column_ == 0 || !InHeader(at)) return;
  for (const Span& span : Spans()) {
    if (span.column == press_column_ && at.x() >= span.left && at.x() < span.left + span.width) {
      window_.UserSortByColumn(press_column_);
      return;
    }
  }
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
  for (const KeyCode& row : kKeys) {
    if (row.key != key) continue;
    window_.UserKey(row.code);
    return;
  }
  QWidget::keyPressEvent(event);
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
  if (hover_column_ != -1) hover_column_ = -1, update();
}

bool ListView::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  // A press beside the open cell, on a border of the head, leaves it open: what is typed goes on to it.
  if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, this, [this] { editor_->TakeFocus(); });
  return QWidget::event(event);
}

}  // namespace ostrinka
