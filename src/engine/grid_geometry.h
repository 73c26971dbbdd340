// Where the columns and rows of a grid lie, in pixels: the one place that knows, for drawing, clicks, moves from cell to cell and the
// window around the grid.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "platform/canvas.h"

namespace ostrinka {

// What a grid is drawn with: colours, texts, and how large.
struct TableLook {
  Colour foreground = 0, background = 0xFFFFFF, line = 0xC0C0C0, highlight = 0xC07030;
  double zoom = 1;  // held within 0.1 and 10
  double twips_per_pixel = 15;
  std::string true_text = "Tak", false_text = "Nie";
  // For this drawing alone: widths of the columns in place of the kept ones, in their order, as far as given; a factor of all widths.
  std::vector<int> widths = {};
  double widen = 1;
};

// A cell as it was drawn.
struct TableCell {
  int column = 0, left = 0, top = 0, right = 0, bottom = 0, field = 0;
  int32_t record = 0;
  int position = 0;  // of the cell in its row, from 1

  // The line at its right and lower edge counts as the cell's.
  bool Holds(double x, double y) const { return x >= left && x <= right + 1 && HoldsHeight(y); }
  bool HoldsHeight(double y) const { return y >= top && y <= bottom + 1; }
};

// A column: its number (0 the row number column), field (0 for that one), left edge and width.
struct ColumnSpan {
  int column, field, left, width;
  bool Holds(double x) const { return x >= left && x < left + width; }
};

// What a grid is laid out on.
struct GridSurface {
  int row_height = 0;
  double height = 0;
  double right = std::numeric_limits<double>::infinity();  // a column that begins here or further is left out
  int left = 0;                                            // edge of the first column
  int number_width = 0;                                    // of column 0
  bool heads = true;
};

// Height of a line of the grid's type by the size of the type.
inline constexpr double kGridCellOfType = 1.207;

// The type of a grid, its height in pixels.
FontSpec GridFont(const TableLook& look);
// Of a row whose texts are `text_height` high.
int GridRowHeight(double text_height);
// As `column` is drawn whose kept width is `kept`.
int GridColumnWidth(const TableLook& look, int column, int kept);

class GridGeometry {
 public:
  GridGeometry() = default;
  explicit GridGeometry(const GridSurface& surface);

  // Puts a column right of the former ones.
  void Add(int column, int field, int width);
  const std::vector<ColumnSpan>& columns() const { return columns_; }
  int right() const;                                     // edge of the last column
  const ColumnSpan* ColumnAt(double x) const;            // null when none is there
  const ColumnSpan* Numbered(int column) const;          // null for one that is not on show
  const ColumnSpan* BorderAt(double x, int grip) const;  // whose right border lies within `grip` of a point, the last such one

  int row_height() const { return row_height_; }
  double height() const { return height_; }
  int heads() const { return heads_; }  // height of the heads, 0 without them
  int RowTop(int place) const;          // of the row on show, from 0
  int RowsWithin(double height) const;  // rows that stand whole on a surface of that height
  TableCell Cell(const ColumnSpan& column, int top) const;

 private:
  std::vector<ColumnSpan> columns_;
  int row_height_ = 0, heads_ = 0, left_ = 0;
  double height_ = 0;
};

}  // namespace ostrinka
