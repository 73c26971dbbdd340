// A table on paper: columns as wide as their contents ask, a head on every page, rows that go on over pages, and rows of totals under it.
//
// Every list and every document's lines are made of it. Lengths are mm. The text of each cell is asked for once.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "print/page_flow.h"

namespace ostrinka {

struct TableColumn {
  std::string head, second_head;  // the second line of the head; "" for none
  bool figures = false;           // set flush right, never broken; other texts stand at the left and break where they are too wide
  double least = 0, most = 0;     // the column is as wide as its texts between these; `most` 0: no limit
  bool takes_rest = false;        // takes what the others leave; several share it alike. Without any the table is narrower than the page
};

// A row of totals: figures under the columns that they belong to.
struct TotalRow {
  std::string label;               // left of the first column that has a total; "" for none
  std::vector<std::string> cells;  // by column, "" for nothing
  bool as_head = false;            // bold on the ground of a head
};

struct TableContent {
  std::vector<TableColumn> columns;
  size_t rows = 0;
  std::function<std::string(size_t row, size_t column)> cell;
  std::vector<TotalRow> totals;  // under the last row
  // Whether the row stays on the page of the one after it, the last one with `under_totals`. The last row always stays with the totals.
  // Null: no other does.
  std::function<bool(size_t row)> stays_with_next;
  double under_totals = 0;  // height of what the caller puts under the totals and wants on their page
  // The sums of the first `rows` rows: at the foot of a page that the table leaves (`onward` true) and under the head of the next. Null:
  // none.
  std::function<TotalRow(size_t rows, bool onward)> carried;
};

class PagedTable {
 public:
  // Measures; draws nothing.
  PagedTable(PageFlow& flow, TableContent content);

  // Head, rows and totals at the cursor, on as many pages as they take; the cursor goes to the lower end.
  void Draw();
  // Left end of each column, and the right end of the last.
  const std::vector<double>& positions() const { return x_; }
  double size() const { return size_; }  // of the rows' text, smaller where the columns ask for more than the page has

 private:
  using Lines = std::vector<std::string>;
  struct Row {
    std::vector<Lines> cells;  // by column
    size_t lines = 1;          // of the tallest cell
    double height = 0;
  };
  const std::string& Cell(size_t row, size_t column) const { return texts_[row * content_.columns.size() + column]; }
  double HeadWidth(const TableColumn& column);
  double WidestTotal(size_t column);
  double ColumnWidth(size_t column);
  void Measure();
  bool Place(double size, double least_rest);
  void Squeeze();
  Row MakeRow(size_t row) const;
  double HeightOf(size_t lines) const { return flow_.Pitch() * static_cast<double>(lines) + 2 * kPad; }
  double TotalsHeight() const { return HeightOf(1) * static_cast<double>(content_.totals.size()); }
  double FootHeight(size_t row) const;
  double TallestRow() const;
  double NeededFrom(size_t row, double height) const;
  bool FitsWithFoot(size_t row, double height) const { return flow_.Fits(height + FootHeight(row)); }
  void DrawHead();
  void DrawRows();
  void DrawLines(const Row& row, size_t first, size_t count);
  void DrawTallRow(const Row& row, size_t number);
  void DrawTotals();
  size_t FirstTotalColumn(const std::vector<TotalRow>& rows) const;
  double LabelEnd(const std::vector<TotalRow>& rows, size_t first);
  void DrawTotalRow(const TotalRow& row, double left);
  void DrawCarried(size_t rows, bool onward);
  void Close();                  // the upright lines
  void BreakPage(size_t above);  // with `above` whole rows on the pages so far

  static constexpr double kPad = 0.95;  // above and below the text of a row

  PageFlow& flow_;
  TableContent content_;
  std::vector<std::string> texts_;  // of the cells, row by row
  std::vector<double> x_;
  double right_ = 0;
  double size_ = 9;
  double top_ = 0;   // of the upright lines on this page
  double body_ = 0;  // of its rows
};

}  // namespace ostrinka
