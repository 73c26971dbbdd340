#include "print/line_table.h"

#include <algorithm>

#include "base/format.h"

namespace ostrinka {
namespace {

// A line where it is printed.
struct LineCell {
  const Program& program;
  const PrintedDocument& document;
  const PrintedLine& line;
  size_t number;  // from 1
};

// A column: its head in one or two lines, its text in a line of the document and in a sum (null where it has none).
struct LineColumn {
  ColumnId id;
  const char* key;
  const char* second_key;  // null for a head of one line
  bool figures;
  double least, most;  // mm; both 0: takes the rest
  std::string (*text)(const LineCell& cell);
  std::string (*sum)(const PrintedDocument& document, const RateSum& sum);
};

std::string NameText(const LineCell& cell) {
  const PrintedLine& line = cell.line;
  if (line.found && line.PricesAgree()) return line.name;
  const std::string error = cell.program.Text("sdoc.error.ps");
  return line.name.empty() ? error : line.name + "\r\n" + error;
}

constexpr LineColumn kColumns[] = {
    {ColumnId::kNumber, "sdoc.table.nr", nullptr, true, 8, 0, [](const LineCell& cell) { return std::to_string(cell.number); }, nullptr},
    {ColumnId::kName, "sdoc.table.name", nullptr, false, 0, 0, NameText, nullptr},
    {ColumnId::kCode, "sdoc.table.pkwiu", nullptr, false, 13, 24, [](const LineCell& cell) { return cell.line.code; }, nullptr},
    {ColumnId::kQuantity, "sdoc.table.count", nullptr, true, 12, 0,
     [](const LineCell& cell) { return FormatNumber(cell.line.quantity, cell.line.unit_format); }, nullptr},
    {ColumnId::kUnit, "sdoc.table.unit", nullptr, false, 9, 16, [](const LineCell& cell) { return cell.line.unit; }, nullptr},
    {ColumnId::kNetPrice, "sdoc.nprice", "sdoc.pnetto", true, 16, 0,
     [](const LineCell& cell) { return cell.document.Price(cell.line.net_price); }, nullptr},
    {ColumnId::kDiscount, "sdoc.rabat", "sdoc.rabprc", true, 10, 0, [](const LineCell& cell) { return std::to_string(cell.line.discount); },
     nullptr},
    {ColumnId::kNet, "sdoc.nvalue", "sdoc.vnetto", true, 18, 0, [](const LineCell& cell) { return cell.document.Amount(cell.line.net); },
     [](const PrintedDocument& document, const RateSum& sum) { return document.Amount(sum.net); }},
    {ColumnId::kRate, "sdoc.vat", "sdoc.vatprc", true, 10, 0, [](const LineCell& cell) { return cell.line.rate; },
     [](const PrintedDocument&, const RateSum& sum) { return sum.rate; }},
    {ColumnId::kVat, "sdoc.vatvalue", "sdoc.valvat", true, 16, 0,
     [](const LineCell& cell) { return cell.document.Amount(cell.line.gross - cell.line.net); },
     [](const PrintedDocument& document, const RateSum& sum) { return document.Amount(sum.vat()); }},
    {ColumnId::kGross, "sdoc.bvalue", "sdoc.bnetto", true, 18, 0,
     [](const LineCell& cell) { return cell.document.Amount(cell.line.gross); },
     [](const PrintedDocument& document, const RateSum& sum) { return document.Amount(sum.gross); }},
};

const LineColumn& ColumnOf(ColumnId id) {
  return *std::find_if(std::begin(kColumns), std::end(kColumns), [&](const LineColumn& column) { return column.id == id; });
}

TotalRow SumRow(const PrintedDocument& document, const std::vector<const LineColumn*>& columns, const RateSum& sum) {
  TotalRow row;
  for (const LineColumn* column : columns) row.cells.push_back(column->sum ? column->sum(document, sum) : "");
  return row;
}

}  // namespace

TableContent LineTableOf(Program& program, const PrintedDocument& document, const std::vector<PrintedLine>& lines, const LineSums& sums,
                         const std::vector<ColumnId>& ids, const char* total_key, const char* rate_key) {
  std::vector<const LineColumn*> columns;
  TableContent content;
  for (const ColumnId id : ids) {
    const LineColumn& column = *columns.emplace_back(&ColumnOf(id));
    content.columns.push_back({program.Text(column.key), column.second_key ? program.Text(column.second_key) : "", column.figures,
                               column.least, column.most, column.least == 0 && column.most == 0});
  }
  content.rows = lines.size();
  content.cell = [&program, &document, &lines, columns](size_t row, size_t column) {
    return columns[column]->text({program, document, lines[row], row + 1});
  };
  content.totals.push_back(SumRow(document, columns, sums.total));
  content.totals.back().label = program.Text(total_key);
  content.totals.back().as_head = true;
  for (const RateSum& sum : sums.by_rate) content.totals.push_back(SumRow(document, columns, sum));
  if (content.totals.size() > 1) content.totals[1].label = program.Text(rate_key);
  return content;
}

}  // namespace ostrinka
