// The table of a document's lines: columns as wide as their contents ask, rows, page breaks, and the sums under it.
#pragma once

#include <string>
#include <vector>

#include "print/page_flow.h"
#include "print/printed_document.h"

namespace ostrinka {

enum class ColumnId { kNumber, kName, kCode, kQuantity, kUnit, kNetPrice, kDiscount, kNet, kRate, kVat, kGross };

// A column: its head in one or two lines, its text in a line of the document and in a sum (null where it has none).
struct LineColumn {
  ColumnId id;
  const char* key;
  const char* second_key;  // null for a head of one line
  bool figures;            // set flush right, never wrapped
  double least, most;      // mm; a column is as wide as its texts between these. `most` 0: no limit; both 0: takes what is left
  std::string (*text)(const PrintedDocument& document, const PrintedLine& line);
  std::string (*sum)(const PrintedDocument& document, const RateSum& sum);
};
const LineColumn& ColumnOf(ColumnId id);

class LineTable {
 public:
  LineTable(PageFlow& flow, const PrintedDocument& document, const std::vector<PrintedLine>& lines, const std::vector<ColumnId>& columns);

  // Head and rows at the cursor, on as many pages as they take.
  void Draw();
  // The totals and one row a rate, under the columns they belong to.
  void DrawSums(const char* total_key, const char* rate_key);
  // Left end of each column, and the right end of the last.
  const std::vector<double>& positions() const { return x_; }
  double size() const { return size_; }  // of the rows' text

 private:
  struct Row {
    std::vector<std::vector<std::string>> cells;  // lines by column
    double height = 0;
  };
  std::string CellText(const LineColumn& column, size_t line) const;
  double ColumnWidth(const LineColumn& column);
  double HeadWidth(const LineColumn& column);
  bool Place(double size);
  Row MakeRow(size_t line) const;
  void DrawRow(const Row& row);
  void DrawHead();
  void Close();  // the upright lines
  double SumsHeight();
  void DrawSumRow(const RateSum& sum, double pad, double height);
  void BreakPage();

  PageFlow& flow_;
  const PrintedDocument& document_;
  const std::vector<PrintedLine>& lines_;
  std::vector<const LineColumn*> columns_;
  std::vector<RateSum> sums_;
  RateSum total_;
  std::vector<double> x_;
  double size_ = 9;
  double top_ = 0;  // of the table on this page
};

}  // namespace ostrinka
