// A table's selection shown as a grid: which columns with what widths, titles and formats, what was drawn where, and the current cell.
//
// A table has one view of its own, `ClassQDBASE::view()`, on which its TABLE_... operations work; further ones show the same records with
// columns of their own. A copy starts as the view that it is made from. The table must outlive its views.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/grid_geometry.h"
#include "engine/qdbase.h"

namespace ostrinka {

class TablePainter;

// How a field is shown as a column.
struct ColumnFormat {
  int width = 100;
  std::string title = {}, format = {};
  bool sum_up = false;
  int alignment = 0;  // 0 centred, above 0 left, below 0 right
};

class TableView {
 public:
  explicit TableView(ClassQDBASE& table);

  // Numbers of the fields on show; those that the table lost meanwhile leave with the next drawing.
  const std::vector<int>& columns() const { return columns_; }
  // As SELECTION names them: names parted by commas, "*" or nothing for all, "!" for none, "~" for no change.
  void ShowColumns(std::string_view fields);
  void ForgetLostColumns();
  void ForgetColumns() { columns_.clear(); }

  // An unknown field is ignored; a "@" in its name does not count.
  void Format(const FieldId& field, const ColumnFormat& format);
  const ColumnFormat& FormatOf(int field) const;  // the default for a number that no field can have
  void Width(int field, int width);
  bool sum_up = false;  // kept: a flag that nothing reads
  bool hide_current_row = false;

  // Text of a cell as the view shows it: row from 1 in the selection, field number; field 0 gives the row's number.
  std::string CellText(int row, int field, const TableLook& look);

  // Draws the rows from `first_row` and the columns from `first_column` (0 is that of the row numbers) and remembers the cells.
  void Draw(Canvas& surface, int first_row, int first_column, bool heads, const TableLook& look);
  // Where the columns from `first_column` would lie; draws and remembers nothing.
  GridGeometry Layout(const TableLook& look, const GridSurface& surface, int first_column) const;
  // How many rows a drawing from `first_row` puts above `record`: records deleted meanwhile take none. -1 when it is not among the first
  // `most` rows.
  int RowsAbove(int32_t record, int first_row, int most);

  // --- of the last drawing
  const GridGeometry& grid() const { return grid_; }
  const std::vector<TableCell>& cells() const { return cells_; }
  int Rows() const;  // that the surface has room for
  // Null when no cell lies there; the second for any cell of the row at that height.
  const TableCell* CellAt(double x, double y) const;
  const TableCell* RowAt(double y) const;
  // Makes the cell under a point the current one and its record that of the table; null when none lies there.
  const TableCell* Click(int x, int y);
  // The lowest cell of the column that was clicked last, null when it is not on show.
  const TableCell* LastOfClickedColumn() const;
  int ColumnAt(int x, int y) const;  // its number, -1 for none
  // Moves the current cell by CELL_GOTO's directions and makes its record that of the table; null when there are no cells.
  const TableCell* Go(int direction, int& status);
  int clicked_field() const { return clicked_field_; }

 private:
  void DrawRows(TablePainter& painter, int first_row, const TableLook& look);
  std::string TextOf(int field, const char* record, const TableLook& look) const;

  ClassQDBASE* table_;
  std::vector<int> columns_;
  std::vector<ColumnFormat> formats_;  // by field number
  GridGeometry grid_;
  std::vector<TableCell> cells_;
  int current_ = -1;  // index into cells_
  int clicked_field_ = 0, clicked_column_ = 0;
};

}  // namespace ostrinka
