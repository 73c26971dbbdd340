#include "desktop/list_view.h"

#include <QAccessible>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/list_access.h"
#include "desktop/list_canvas.h"
#include "desktop/ribbon_painter.h"
#include "desktop/scroll_style.h"
#include "shell/commands.h"
#include "shell/tabs.h"

namespace ostrinka {
namespace {

constexpr double kBaseZoom = 1.125;  // the list's text is as large as that of the window at 100 %
constexpr double kWidest = 1.6;      // columns are not widened further than this to fill the window
constexpr int kBar = 14, kOrderMark = 8;

Colour ColourNumber(const QColor& colour) {
  return Rgb(colour.red(), colour.green(), colour.blue());
}

}  // namespace

ListView::ListView(Program& program, MainWindow& window, const Look& look, QWidget* parent)
    : QWidget(parent),
      program_(program),
      window_(window),
      look_(look),
      rows_(new QScrollBar(Qt::Vertical, this)),
      columns_(new QScrollBar(Qt::Horizontal, this)),
      editor_(new ListEditor(program, window, look, *this,
                             {[this](int32_t record, int column) { return CellArea(record, column); },
                              [this](int32_t record, int column) { Reveal(record, column); }})) {
  ListAccess::Announce();
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  for (QScrollBar* bar : {rows_, columns_}) {
    ApplyScrollStyle(*bar, look_);
    bar->setFocusPolicy(Qt::NoFocus);
    bar->hide();
  }
  QObject::connect(rows_, &QScrollBar::valueChanged, this, [this](int value) {
    window_.list.first_row = value + 1;
    PlaceEditor();
    update();
  });
  QObject::connect(columns_, &QScrollBar::valueChanged, this, [this](int value) {
    first_column_ = value + 1;
    PlaceEditor();
    update();
  });
}

double ListView::TextZoom(double zoom) {
  return zoom * kBaseZoom;
}

ClassQDBASE* ListView::Shown() const {
  return program_.database_open && window_.list.visible ? window_.ViewTable() : nullptr;
}

QRect ListView::Surface() const {
  return QRect(0, 0, width() - (rows_->isHidden() ? 0 : kBar), height() - (columns_->isHidden() ? 0 : kBar));
}

int ListView::RowHeight() const {
  return ListCanvas::RowHeight(TextZoom(window_.list.zoom()));
}

GridGeometry ListView::Grid(int first_column) const {
  TableLook look;
  look.zoom = TextZoom(window_.list.zoom());
  look.widen = fit_;
  GridSurface room;
  room.row_height = RowHeight();
  room.height = Surface().height();
  room.left = kInset;
  ClassQDBASE* table = Shown();
  return table ? table->view().Layout(look, room, first_column) : GridGeometry(room);
}

int ListView::PageRows() const {
  return std::max(Grid().RowsWithin(Surface().height()), 1);
}

void ListView::Fit() {
  ClassQDBASE* table = Shown();
  if (!table || drag_field_ != 0) return;
  double sum = 0;
  for (int field : table->columns()) sum += table->ColumnWidth(field);
  sum *= TextZoom(window_.list.zoom());
  fit_ = sum > 0 ? std::clamp((Surface().width() - kInset - 1) / sum, 1.0, kWidest) : 1;
}

void ListView::Refresh() {
  ClassQDBASE* table = Shown();
  const int32_t record = table ? table->RECORD_POSITION() : 0;
  const int count = table ? table->MAX_ROWS() : 0;
  const bool another = table != table_ || count != row_count_;
  if (table != table_) first_column_ = 1, fitted_width_ = -1;
  if (another || record != record_) {
    current_row_ = 0;
    if (table) {
      const auto& rows = table->selection();
      const auto here = std::find(rows.begin(), rows.end(), record);
      if (here != rows.end()) current_row_ = static_cast<int>(here - rows.begin()) + 1;
    }
    table_ = table;
    record_ = record;
    row_count_ = count;
    Arrange();
    KeepInView();
    TellAccessibility();
  } else {
    Arrange();
  }
  PlaceEditor();
  update();
}

void ListView::LookChanged() {
  for (QScrollBar* bar : {rows_, columns_}) ApplyScrollStyle(*bar, look_);
  update();
}

void ListView::Arrange() {
  ClassQDBASE* table = Shown();
  const int count = table ? table->MAX_ROWS() : 0;
  rows_->setVisible(count > 0 && count > Grid().RowsWithin(height()));
  const int zoom_and_width = Surface().width() * 1000 + static_cast<int>(std::lround(window_.list.zoom() * 100));
  if (zoom_and_width != fitted_width_) {
    fitted_width_ = zoom_and_width;
    Fit();
  }
  const int columns = table ? table->MAX_COLUMNS() : 0;
  const GridGeometry all = Grid(1);
  const int total = table ? all.right() : 0;
  columns_->setVisible(total > Surface().width());
  // Columns may scroll until the last one stands whole.
  int most = 0;
  while (most + 1 < columns && total - all.columns()[static_cast<size_t>(most)].left > Surface().width()) ++most;
  first_column_ = columns_->isHidden() ? 1 : std::clamp(first_column_, 1, std::max(most + 1, 1));
  {
    const QSignalBlocker quiet(columns_);
    columns_->setRange(0, most);
    columns_->setPageStep(std::max(columns - most, 1));
    columns_->setValue(first_column_ - 1);
  }
  const int page = PageRows(), last = std::max(count - page, 0);
  {
    const QSignalBlocker quiet(rows_);
    rows_->setRange(0, last);
    rows_->setPageStep(page);
    rows_->setValue(std::clamp(window_.list.first_row - 1, 0, last));
  }
  window_.list.first_row = rows_->value() + 1;
  rows_->setGeometry(width() - kBar, RowHeight(), kBar, height() - RowHeight() - (columns_->isHidden() ? 0 : kBar));
  columns_->setGeometry(0, height() - kBar, width() - (rows_->isHidden() ? 0 : kBar), kBar);
}

void ListView::KeepInView() {
  if (current_row_ == 0) return;
  const int page = PageRows(), first = rows_->value() + 1;
  if (current_row_ < first) rows_->setValue(current_row_ - 1);
  if (current_row_ >= first + page) rows_->setValue(current_row_ - page);
}

void ListView::TellAccessibility() {
  QString row;
  if (ClassQDBASE* table = Shown(); table && current_row_ > 0) {
    for (int field : table->columns()) row += ToQt(table->CellText(current_row_, field, window_.list.Look())) + "; ";
  }
  setAccessibleName(ToQt(window_.ribbon.ButtonText(window_.ribbon.TabID())));
  setAccessibleDescription(row);
  if (!QAccessible::isActive()) return;
  QAccessibleEvent event(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&event);
  if (!hasFocus() || current_row_ < 1) return;
  QAccessibleEvent moved(this, QAccessible::Focus);
  moved.setChild((current_row_ - std::max(window_.list.first_row, 1)) * (table_ ? table_->MAX_COLUMNS() : 0));
  QAccessible::updateAccessibility(&moved);
}

QString ListView::Hint() const {
  if (!program_.database_open) return look_.Text("mdi.list.nocompany");
  if (!window_.list.visible) return look_.Text("mdi.pleasewait");
  if (window_.list.CurrentTable == kReportsTab) return look_.Text(IsBuilt("ZESTAWIENIA.BILANS") ? "mdi.list.noreport" : "common.notbuilt");
  return look_.Text("mdi.list.nodict");
}

void ListView::PaintHint(QPainter& painter, const QString& text, const QRect& area) {
  QFont font = look_.WindowFont();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  painter.setFont(font);
  painter.setPen(MixOf(look_.Colour(SkinColour::kToolbarText), Qt::white, 0.15));
  painter.drawText(area.adjusted(40, 0, -40, 0), Qt::AlignCenter | Qt::TextWordWrap, text);
}

void ListView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  ClassQDBASE* table = Shown();
  if (!table) {
    PaintHint(painter, Hint(), rect().adjusted(0, 0, 0, -height() / 5));
    return;
  }
  PaintTable(painter, *table);
  if (table->MAX_ROWS() > 0) return;
  PaintHint(painter, look_.Text(window_.list.Filtered() ? "mdi.list.none" : "mdi.list.empty"), Surface().adjusted(0, 0, 0, -height() / 4));
}

void ListView::PaintTable(QPainter& painter, ClassQDBASE& table) {
  RibbonPainter paint(painter, look_);
  const FrameColours& colours = paint.colours();
  const QRect surface = Surface();
  TableLook look = window_.list.Look();
  look.zoom = TextZoom(window_.list.zoom());
  look.widen = fit_;
  look.foreground = ColourNumber(look_.Colour(SkinColour::kButtonText));
  look.background = Rgb(255, 255, 255);
  look.line = ColourNumber(colours.list_line);
  look.highlight = ColourNumber(look_.Accent());
  painter.save();
  painter.setClipRect(surface);
  painter.translate(kInset, 0);
  ListCanvas canvas(painter, surface.width() - kInset, surface.height(), kInset);
  table.TABLE_DRAW(canvas, window_.list.first_row, first_column_, true, look);
  painter.restore();
  const int header = RowHeight();
  if (!rows_->isHidden()) painter.fillRect(QRect(width() - kBar, 0, kBar, header), MixOf(Qt::white, colours.list_line, 0.35));
  if (!rows_->isHidden() && !columns_->isHidden()) painter.fillRect(QRect(width() - kBar, height() - kBar, kBar, kBar), colours.panel);
  paint.Hairline({0, header - 1.0}, {static_cast<double>(width()), header - 1.0}, colours.panel_edge);
  PaintOrder(painter);
  const GridGeometry grid = Grid();
  if (const ColumnSpan* span = grid.Numbered(hover_column_)) {
    painter.fillRect(QRect(span->left, header - 2, span->width - 1, 2), look_.Accent());
  }
  for (const TableCell& cell : table.cells()) {
    if (cell.record != record_ || cell.position != 1) continue;
    painter.fillRect(QRect(0, cell.top, 3, cell.bottom - cell.top + 1), look_.Accent());
    if (hasFocus()) paint.FocusRing(QRectF(0, cell.top, surface.width(), cell.bottom - cell.top + 2));
  }
  if (const QRect open = editor_->Area(); !open.isEmpty()) paint.FocusRing(QRectF(open).adjusted(-2, -2, 2, 2));
}

// A small arrow at the upper edge of the column that the list is ordered by, where it covers no heading.
void ListView::PaintOrder(QPainter& painter) {
  const auto [column, direction] = window_.list.Order();
  const GridGeometry grid = Grid();
  const ColumnSpan* span = grid.Numbered(column);
  if (!span || span->width < 2 * kOrderMark) return;
  const double middle = span->left + span->width / 2.0, top = 2, bottom = top + kOrderMark * 0.6;
  const double tip = direction == ordDesc ? bottom : top, base = direction == ordDesc ? top : bottom;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look_.Colour(SkinColour::kToolbarText));
  painter.drawPolygon(QPolygonF({{middle - kOrderMark / 2.0, base}, {middle + kOrderMark / 2.0, base}, {middle, tip}}));
  painter.restore();
}

void ListView::resizeEvent(QResizeEvent*) {
  Arrange();
  KeepInView();
  PlaceEditor();
}

}  // namespace ostrinka
