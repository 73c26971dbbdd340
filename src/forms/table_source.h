// An engine table as the table of a form: its selection row by row, its columns on show.
#pragma once

#include <string>

#include "controls/form.h"
#include "engine/table_view.h"

namespace ostrinka {

class QdbTableSource : public TableSource {
 public:
  explicit QdbTableSource(ClassQDBASE& table) : table_(table) {}
  TableLook look;

  int Rows() override { return table_.MAX_ROWS(); }
  int Columns() override { return table_.MAX_COLUMNS(); }
  std::string CellText(int row, int column) override;
  int CurrentRow() override { return RowOf(table_.RECORD_POSITION()); }
  void SelectRow(int row) override;
  void Draw(Canvas& canvas, int first_row, int first_column, double zoom, const std::vector<int>& widths) override;
  bool HitTest(double x, double y, int& row, int& column) override;
  int ColumnWidthOf(int column) override { return table_.ColumnWidth(FieldOf(column)); }
  void SetColumnWidthOf(int column, int width) override { table_.ColumnWidth(FieldOf(column), width); }
  std::string HeadingOf(int column) override { return table_.ColumnTitle(FieldOf(column)); }

  // The record on show in a row, 0 when there is no such row; the row of a record, 0 when it is not on show.
  int32_t RecordOf(int row) const;
  int RowOf(int32_t record) const;

 private:
  int FieldOf(int column) const;

  ClassQDBASE& table_;
};

}  // namespace ostrinka
