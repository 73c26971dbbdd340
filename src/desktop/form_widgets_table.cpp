// A table inside a form: drawn by its source, with a header whose columns are resized by dragging, a current row and scroll bars.
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <vector>

#include "desktop/dialog_style.h"
#include "desktop/form_widgets.h"
#include "desktop/list_canvas.h"
#include "forms/table_source.h"

namespace ostrinka {
namespace {

constexpr double kZoom = 1.125;  // letters as large as those of the fields
constexpr int kGrip = 4, kNarrowest = 20, kShownRows = 7, kSearched = 200, kHeadingRoom = 14;
constexpr int kOver = 2;  // pixels by which the last column reaches out, so that its line does not double the frame

Colour FromQColor(const QColor& colour) {
  return Rgb(colour.red(), colour.green(), colour.blue());
}

class TableField : public QAbstractScrollArea {
 public:
  TableField(FieldHost& host, TableControl& control, QWidget* parent) : QAbstractScrollArea(parent), host_(host), control_(control) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    viewport()->setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()})
      connect(bar, &QScrollBar::valueChanged, this, [this] { Redraw(); });
    if (auto* source = dynamic_cast<QdbTableSource*>(control.source)) {
      const DialogColours& c = DialogStyle::Of(host.look).colours();
      source->look.foreground = FromQColor(c.text);
      source->look.line = FromQColor(c.card_line);
      source->look.highlight = FromQColor(c.ring);
    }
  }
  void Show() {
    const int row = source() ? source()->CurrentRow() : 0;
    FitColumns();
    UpdateBars();
    if (row != shown_row_) ShowRow(row);
    shown_row_ = row;
    viewport()->setToolTip(ToQt(control_.tool_tip()));
    Redraw();
  }
  QSize sizeHint() const override { return {400, kShownRows * (FieldHeight(*this) - 4)}; }
  QSize minimumSizeHint() const override { return {200, 5 * (FieldHeight(*this) - 4)}; }
  int Rows() const { return source() ? source()->Rows() : 0; }
  QString RowText() const {
    if (!source() || source()->CurrentRow() < 1) return {};
    QString text;
    for (int column = 1; column <= source()->Columns(); ++column) {
      const QString cell = ToQt(source()->CellText(source()->CurrentRow(), column));
      if (!cell.isEmpty()) text += (text.isEmpty() ? "" : ", ") + ToQt(source()->HeadingOf(column)) + " " + cell;
    }
    return text;
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(viewport());
    painter.setFont(font());
    if (!source()) {
      painter.fillRect(viewport()->rect(), palette().color(isEnabled() ? QPalette::Base : QPalette::Window));
      return;
    }
    ListCanvas canvas(painter, viewport()->width(), viewport()->height());
    source()->Draw(canvas, FirstRow(), FirstColumn(), kZoom, widths_);
    if (!isEnabled()) painter.fillRect(viewport()->rect(), QColor(255, 255, 255, 120));
    if (pitch_ == 0 && Rows() > 0) {
      MeasureRows();
      if (pitch_ > 0)
        QMetaObject::invokeMethod(
            this, [this] { Show(); }, Qt::QueuedConnection);
    }
  }
  void resizeEvent(QResizeEvent* event) override {
    QAbstractScrollArea::resizeEvent(event);
    FitColumns();
    UpdateBars();
  }
  // A table on another page gets its size while it is hidden.
  void showEvent(QShowEvent* event) override {
    QAbstractScrollArea::showEvent(event);
    FitColumns();
    UpdateBars();
  }
  void keyPressEvent(QKeyEvent* event) override {
    const int rows = Rows(), row = source() ? source()->CurrentRow() : 0, page = std::max(1, VisibleRows() - 1);
    int to = row;
    switch (event->key()) {
      case Qt::Key_Up:
        to = row - 1;
        break;
      case Qt::Key_Down:
        to = row + 1;
        break;
      case Qt::Key_PageUp:
        to = row - page;
        break;
      case Qt::Key_PageDown:
        to = row + page;
        break;
      case Qt::Key_Home:
        to = 1;
        break;
      case Qt::Key_End:
        to = rows;
        break;
      case Qt::Key_Left:
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - 1);
        return;
      case Qt::Key_Right:
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + 1);
        return;
      default:
        event->ignore();
        return;
    }
    to = std::clamp(to, 1, std::max(rows, 1));
    if (rows < 1 || (to == row && row != 0)) return;
    control_.UserClick(to, 1);
    Show();
  }
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton || !source()) return;
    const QPointF at = event->position();
    dragged_ = GripAt(at);
    if (dragged_ > 0) {
      drag_left_ = at.x() - Width(dragged_) * kZoom;
      return;
    }
    int row = 0, column = 0;
    host_.settle();
    if (source() && source()->HitTest(at.x(), at.y(), row, column)) control_.UserClick(row, column);
    Show();
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const QPointF at = event->position();
    if (dragged_ > 0 && source()) {
      TakeOverWidths();
      source()->SetColumnWidthOf(dragged_, std::max(kNarrowest, static_cast<int>((at.x() - drag_left_) / kZoom)));
      UpdateBars();
      Redraw();
    } else {
      viewport()->setCursor(GripAt(at) > 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
    }
  }
  void mouseReleaseEvent(QMouseEvent*) override { dragged_ = 0; }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    int row = 0, column = 0;
    if (!source() || GripAt(event->position()) > 0) return;
    host_.settle();
    const QPointer<QWidget> guard(this);
    if (source()->HitTest(event->position().x(), event->position().y(), row, column)) control_.UserDoubleClick(row);
    if (guard) Show();
  }
  void wheelEvent(QWheelEvent* event) override {
    const int steps = event->angleDelta().y() / 40;
    verticalScrollBar()->setValue(verticalScrollBar()->value() - steps);
    event->accept();
  }
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }

 private:
  TableSource* source() const { return control_.source; }
  int FirstRow() const { return verticalScrollBar()->value() + 1; }
  int FirstColumn() const { return horizontalScrollBar()->value() + 1; }
  void Redraw() { viewport()->update(); }

  // Where the first row begins and how far the rows are apart, found by asking for the cells of the last drawing.
  void MeasureRows() {
    int row = 0, column = 0, begin = -1;
    for (int y = 0; y < std::min(viewport()->height(), kSearched); ++y) {
      const bool hit = source()->HitTest(1, y, row, column);
      if (begin < 0 && hit) begin = y;
      if (begin >= 0 && (!hit || row != FirstRow())) {
        top_ = begin;
        pitch_ = y - begin;
        return;
      }
    }
  }
  // As it is drawn: at zoom 1, and in pixels.
  int Width(int column) const {
    return static_cast<size_t>(column) <= widths_.size() ? widths_[static_cast<size_t>(column - 1)] : source()->ColumnWidthOf(column);
  }
  int WidthOf(int column) const { return static_cast<int>(kZoom * Width(column)); }
  // No heading is shortened, and the widest column takes the room that is left; until a person sets the widths himself.
  void FitColumns() {
    if (!source() || fitted_by_hand_ || !isVisible()) return;
    widths_.clear();
    int total = 0, widest = 0;
    for (int column = 1; column <= source()->Columns(); ++column) {
      const int heading = QFontMetrics(ListCanvas::Font(kZoom)).horizontalAdvance(ToQt(source()->HeadingOf(column))) + kHeadingRoom;
      const int kept = WidthOf(column);
      widths_.push_back(kept > 0 && kept < heading ? static_cast<int>(heading / kZoom) + 1 : source()->ColumnWidthOf(column));
      total += WidthOf(column);
      if (widest == 0 || WidthOf(column) > WidthOf(widest)) widest = column;
    }
    const int room = viewport()->width() - total;
    if (widest > 0 && room > 0) widths_[static_cast<size_t>(widest - 1)] += static_cast<int>(room / kZoom) + kOver;
  }
  // From here on the widths are the person's: as they stand they become those that are kept.
  void TakeOverWidths() {
    fitted_by_hand_ = true;
    for (size_t i = 0; i < widths_.size(); ++i) source()->SetColumnWidthOf(static_cast<int>(i) + 1, widths_[i]);
    widths_.clear();
  }
  int VisibleRows() const { return pitch_ > 0 ? std::max(1, (viewport()->height() - top_) / pitch_) : kShownRows; }
  void UpdateBars() {
    const int visible = VisibleRows();
    verticalScrollBar()->setPageStep(visible);
    verticalScrollBar()->setRange(0, std::max(0, Rows() - visible));
    int columns = source() ? source()->Columns() : 0, hidden = 0;
    double total = 0;
    for (int column = 1; column <= columns; ++column) total += WidthOf(column);
    while (hidden + 1 < columns && total > viewport()->width() + 2 * kOver) total -= WidthOf(++hidden);
    horizontalScrollBar()->setPageStep(1);
    horizontalScrollBar()->setRange(0, hidden);
  }
  void ShowRow(int row) {
    if (row < 1) return;
    const int visible = VisibleRows(), first = FirstRow();
    if (row < first) verticalScrollBar()->setValue(row - 1);
    if (row >= first + visible) verticalScrollBar()->setValue(row - visible);
  }
  // The column whose right edge lies under a point of the header; 0 for none.
  int GripAt(QPointF at) const {
    if (!source() || at.y() >= (top_ > 0 ? top_ - 4 : FieldHeight(*this))) return 0;
    double right = 0;
    for (int column = FirstColumn(); column <= source()->Columns(); ++column) {
      right += WidthOf(column);
      if (std::abs(at.x() - right) <= kGrip) return column;
    }
    return 0;
  }

  FieldHost& host_;
  TableControl& control_;
  std::vector<int> widths_;  // of the columns as they are drawn at zoom 1; empty for the kept ones
  int shown_row_ = 0, top_ = 0, pitch_ = 0, dragged_ = 0;
  double drag_left_ = 0;
  bool fitted_by_hand_ = false;
};

// Tells a reader of the screen that this is a table, and what stands in its current row.
class TableAccess : public QAccessibleWidget {
 public:
  explicit TableAccess(TableField* table) : QAccessibleWidget(table, QAccessible::Table) {}
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? static_cast<TableField*>(widget())->RowText() : QAccessibleWidget::text(kind);
  }
};

QAccessibleInterface* AccessTo(const QString&, QObject* object) {
  auto* table = dynamic_cast<TableField*>(object);
  return table ? new TableAccess(table) : nullptr;
}

}  // namespace

QWidget* MakeTableField(FieldHost& host, TableControl& control, QWidget* parent) {
  static const bool announced = (QAccessible::installFactory(AccessTo), true);
  (void)announced;
  auto* field = new TableField(host, control, parent);
  Follow(control, field, [field] { field->Show(); });
  return field;
}

}  // namespace ostrinka
