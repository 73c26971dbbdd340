// Draws the grid of a table view on a canvas: ground, heads, rows, cell texts.
#pragma once

#include <string>
#include <vector>

#include "engine/qdbase.h"

namespace ostrinka {

// How a field is shown as a column of the table view.
struct ColumnFormat {
  int width = 100;
  std::string title, format;
  bool sum_up = false;
  int alignment = 0;  // 0 centred, above 0 left, below 0 right
};

// A column as it was drawn: its number (0 the row number column), field (0 for that one), left edge and width in pixels.
struct ColumnSpan {
  int column, field, left, width;
};

class TablePainter {
 public:
  TablePainter(Canvas& surface, const TableLook& look);

  int row_height() const { return row_height_; }
  // The columns of `fields` from `first_column` that begin within the surface.
  std::vector<ColumnSpan> Columns(const std::vector<int>& fields, const std::vector<ColumnFormat>& formats, int first_column);
  void Background();
  void Header(const std::vector<ColumnSpan>& spans, const std::vector<ColumnFormat>& formats);
  void RowGround(int top, bool even, bool chosen);
  // A text that is wider than its cell ends in "…".
  void Cell(const TableCell& cell, const std::string& text, int alignment);
  // Lines between the columns, down to `bottom`.
  void Grid(const std::vector<ColumnSpan>& spans, int bottom);

 private:
  std::string Fitted(const std::string& text, double width);

  Canvas& surface_;
  const TableLook& look_;
  double zoom_;
  FontSpec font_;
  int row_height_;
};

}  // namespace ostrinka
