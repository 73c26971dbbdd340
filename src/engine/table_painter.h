// Draws the grid of a table view on a canvas: ground, heads, rows, cell texts.
#pragma once

#include <string>
#include <vector>

#include "engine/table_view.h"

namespace ostrinka {

class TablePainter {
 public:
  TablePainter(Canvas& surface, const TableLook& look);

  int row_height() const { return row_height_; }
  int number_width() const;  // of the column of row numbers
  void Background();
  void Header(const GridGeometry& grid, const std::vector<ColumnFormat>& formats);  // by field number
  void RowGround(int top, bool even, bool chosen);
  // A text that is wider than its cell ends in "…".
  void Cell(const TableCell& cell, const std::string& text, int alignment);
  // Between the columns, down to `bottom`.
  void Lines(const GridGeometry& grid, int bottom);

 private:
  std::string Fitted(const std::string& text, double width);

  Canvas& surface_;
  const TableLook& look_;
  FontSpec font_;
  int row_height_;
};

}  // namespace ostrinka
