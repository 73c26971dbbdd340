// Where the cells of a dictionary lie, and the field over the one that is open.
#include <algorithm>

#include "desktop/list_canvas.h"
#include "desktop/list_view.h"
#include "shell/tabs.h"

namespace ostrinka {

void ListView::PlaceEditor() {
  if (editor_) editor_->Refresh(ListCanvas::Font(TextZoom(window_.list.zoom())));
}

QRect ListView::CellArea(int32_t record, int column) const {
  ClassQDBASE* table = Shown();
  if (!table) return {};
  const GridGeometry grid = Grid();
  const int most = grid.RowsWithin(Surface().bottom() - 1) + 1;  // the last one may be cut off
  const int row = table->view().RowsAbove(record, window_.list.first_row, most);
  const ColumnSpan* span = grid.Numbered(column);
  if (row < 0 || !span) return {};
  return QRect(span->left, grid.RowTop(row), span->width - 1, grid.row_height() - 1) & Surface();
}

void ListView::Reveal(int32_t record, int column) {
  ClassQDBASE* table = Shown();
  if (!table) return;
  const auto& rows = table->selection();
  const auto here = std::find(rows.begin(), rows.end(), record);
  if (here != rows.end()) current_row_ = static_cast<int>(here - rows.begin()) + 1;
  KeepInView();
  if (column < first_column_) columns_->setValue(column - 1);
  for (int tries = 0; tries < table->MAX_COLUMNS() && first_column_ < column; ++tries) {
    const GridGeometry grid = Grid();
    const ColumnSpan* span = grid.Numbered(column);
    if (!span || span->left + span->width <= Surface().width() || columns_->value() == columns_->maximum()) break;
    columns_->setValue(columns_->value() + 1);
  }
}

bool ListView::EditAt(const QPoint& at) {
  ClassQDBASE* table = Shown();
  if (window_.list.CurrentTable != kDictionariesTab || !table) return false;
  const auto& rows = table->selection();
  const auto here = std::find(rows.begin(), rows.end(), table->RECORD_POSITION());
  if (here == rows.end()) return false;
  const GridGeometry grid = Grid();
  const ColumnSpan* span = grid.ColumnAt(at.x());
  return span && window_.UserCell(static_cast<int>(here - rows.begin()) + 1, span->column);
}

}  // namespace ostrinka
