#include "forms/table_source.h"

#include <algorithm>

namespace ostrinka {

int QdbTableSource::FieldOf(int column) const {
  const std::vector<int>& columns = table_.columns();
  return column >= 1 && static_cast<size_t>(column) <= columns.size() ? columns[static_cast<size_t>(column) - 1] : 0;
}

int32_t QdbTableSource::RecordOf(int row) const {
  const std::vector<int32_t>& rows = table_.selection();
  return row >= 1 && static_cast<size_t>(row) <= rows.size() ? rows[static_cast<size_t>(row) - 1] : 0;
}

int QdbTableSource::RowOf(int32_t record) const {
  if (record < 1 || !table_.RECORD_SELECT(record)) return 0;
  const std::vector<int32_t>& rows = table_.selection();
  const auto found = std::find(rows.begin(), rows.end(), record);
  return found == rows.end() ? 0 : static_cast<int>(found - rows.begin()) + 1;
}

std::string QdbTableSource::CellText(int row, int column) {
  const int field = FieldOf(column);
  return field < 1 ? std::string() : table_.CellText(row, field, look);
}

void QdbTableSource::SelectRow(int row) {
  const int32_t record = RecordOf(row);
  if (record >= 1) table_.RECORD_POSITION(record);
}

void QdbTableSource::Draw(Canvas& canvas, int first_row, int first_column, double zoom, const std::vector<int>& widths) {
  TableLook drawn = look;
  drawn.zoom = zoom;
  drawn.widths = widths;
  table_.TABLE_DRAW(canvas, std::max(first_row, 1), std::max(first_column, 1), true, drawn);
}

bool QdbTableSource::HitTest(double x, double y, int& row, int& column) {
  const TableCell* cell = table_.view().CellAt(x, y);
  if (!cell) return false;
  row = RowOf(cell->record);
  column = cell->column;
  return row >= 1 && column >= 1;
}

}  // namespace ostrinka
