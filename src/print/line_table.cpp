#include "print/line_table.h"

#include <algorithm>

#include "base/format.h"
#include "base/text.h"

namespace ostrinka {
namespace {

constexpr double kHeadHeight = 8;
constexpr double kHeadSize = 10;
constexpr double kSecondHeadLine = 4.1;  // from the top of the head cell to its second line
constexpr double kInset = 1;             // between a column's line and its text
constexpr double kWrapAir = 1.6;         // what a text that may wrap needs beside its width
constexpr double kPad = 0.95;            // above and below the text of a row
constexpr double kHeadPad = 0.75;        // above the text of a head cell

constexpr LineColumn kColumns[] = {
    {ColumnId::kNumber, "sdoc.table.nr", nullptr, true, 8, 0, nullptr, nullptr},
    {ColumnId::kName, "sdoc.table.name", nullptr, false, 0, 0, [](const PrintedDocument&, const PrintedLine& line) { return line.name; },
     nullptr},
    {ColumnId::kCode, "sdoc.table.pkwiu", nullptr, false, 13, 24, [](const PrintedDocument&, const PrintedLine& line) { return line.code; },
     nullptr},
    {ColumnId::kQuantity, "sdoc.table.count", nullptr, true, 12, 0,
     [](const PrintedDocument&, const PrintedLine& line) { return FormatNumber(line.quantity, line.unit_format); }, nullptr},
    {ColumnId::kUnit, "sdoc.table.unit", nullptr, false, 9, 16, [](const PrintedDocument&, const PrintedLine& line) { return line.unit; },
     nullptr},
    {ColumnId::kNetPrice, "sdoc.nprice", "sdoc.pnetto", true, 16, 0,
     [](const PrintedDocument& document, const PrintedLine& line) { return document.Price(line.net_price); }, nullptr},
    {ColumnId::kDiscount, "sdoc.rabat", "sdoc.rabprc", true, 10, 0,
     [](const PrintedDocument&, const PrintedLine& line) { return std::to_string(line.discount); }, nullptr},
    {ColumnId::kNet, "sdoc.nvalue", "sdoc.vnetto", true, 18, 0,
     [](const PrintedDocument& document, const PrintedLine& line) { return document.Amount(line.net); },
     [](const PrintedDocument& document, const RateSum& sum) { return document.Amount(sum.net); }},
    {ColumnId::kRate, "sdoc.vat", "sdoc.vatprc", true, 10, 0, [](const PrintedDocument&, const PrintedLine& line) { return line.rate; },
     [](const PrintedDocument&, const RateSum& sum) { return sum.rate; }},
    {ColumnId::kVat, "sdoc.vatvalue", "sdoc.valvat", true, 16, 0,
     [](const PrintedDocument& document, const PrintedLine& line) { return document.Amount(line.gross - line.net); },
     [](const PrintedDocument& document, const RateSum& sum) { return document.Amount(sum.vat()); }},
    {ColumnId::kGross, "sdoc.bvalue", "sdoc.bnetto", true, 18, 0,
     [](const PrintedDocument& document, const PrintedLine& line) { return document.Amount(line.gross); },
     [](const PrintedDocument& document, const RateSum& sum) { return document.Amount(sum.gross); }},
};

// Sizes of the rows' text from the one that is wished for, each with the least width of the name column that it is taken for.
constexpr struct { double size, name_width; } kSizes[] = {{9, 46}, {8, 42}, {7, 38}, {6, 0}};

}  // namespace

const LineColumn& ColumnOf(ColumnId id) {
  return *std::find_if(std::begin(kColumns), std::end(kColumns), [&](const LineColumn& column) { return column.id == id; });
}

LineTable::LineTable(PageFlow& flow, const PrintedDocument& document, const std::vector<PrintedLine>& lines,
                     const std::vector<ColumnId>& columns)
    : flow_(flow), document_(document), lines_(lines), sums_(SumsByRate(lines)) {
  for (const ColumnId id : columns) columns_.push_back(&ColumnOf(id));
  for (const RateSum& sum : sums_) {
    total_.net += sum.net;
    total_.gross += sum.gross;
  }
  for (const auto& [size, name_width] : kSizes) {
    if (Place(size)) break;
  }
}

std::string LineTable::CellText(const LineColumn& column, size_t line) const {
  const PrintedLine& row = lines_[line];
  if (column.id == ColumnId::kNumber) return std::to_string(line + 1);
  if (column.id != ColumnId::kName) return column.text(document_, row);
  const std::string name = column.text(document_, row);
  if (row.found && row.PricesAgree()) return name;
  const std::string error = flow_.program().Text("sdoc.error.ps");
  return name.empty() ? error : name + "\r\n" + error;
}

double LineTable::HeadWidth(const LineColumn& column) {
  flow_.Font(kHeadSize, true);
  double width = flow_.TextWidth(flow_.program().Text(column.key));
  if (column.second_key) width = std::max(width, flow_.TextWidth(flow_.program().Text(column.second_key)));
  return width;
}

double LineTable::ColumnWidth(const LineColumn& column) {
  const double head = HeadWidth(column);
  double widest = 0;
  flow_.Font(size_);
  for (size_t line = 0; line < lines_.size(); ++line) widest = std::max(widest, flow_.TextWidth(CellText(column, line)));
  if (column.sum) {
    for (const RateSum& sum : sums_) widest = std::max(widest, flow_.TextWidth(column.sum(document_, sum)));
    flow_.Font(size_, true);
    widest = std::max(widest, flow_.TextWidth(column.sum(document_, total_)));
  }
  const double width = std::max({column.least, head + 2 * kInset + 0.6, widest + 2 * kInset + (column.figures ? 0.6 : kWrapAir)});
  return column.most > 0 ? std::min(width, std::max(column.most, head + 2 * kInset + 0.6)) : width;
}

bool LineTable::Place(double size) {
  size_ = size;
  std::vector<double> widths;
  double taken = 0, name_width = 0;
  for (const LineColumn* column : columns_) {
    widths.push_back(column->id == ColumnId::kName ? 0 : ColumnWidth(*column));
    taken += widths.back();
  }
  x_ = {flow_.Left()};
  for (size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i]->id == ColumnId::kName) widths[i] = name_width = flow_.Right() - flow_.Left() - taken;
    x_.push_back(x_.back() + widths[i]);
  }
  const auto row = std::find_if(std::begin(kSizes), std::end(kSizes), [&](const auto& at) { return at.size == size; });
  return name_width >= row->name_width;
}

LineTable::Row LineTable::MakeRow(size_t line) const {
  Row row;
  size_t most = 1;
  for (size_t i = 0; i < columns_.size(); ++i) {
    const std::string text = CellText(*columns_[i], line);
    row.cells.push_back(columns_[i]->figures ? std::vector{text} : flow_.Break(text, x_[i + 1] - x_[i] - 2 * kInset + 0.4));
    most = std::max(most, row.cells.back().size());
  }
  row.height = flow_.Pitch() * static_cast<double>(most) + 2 * kPad;
  return row;
}

void LineTable::DrawHead() {
  top_ = flow_.y;
  flow_.Font(kHeadSize, true);
  for (size_t i = 0; i < columns_.size(); ++i) {
    const double width = x_[i + 1] - x_[i];
    flow_.Head(flow_.program().Text(columns_[i]->key), x_[i], top_, width, kHeadHeight);
    if (columns_[i]->second_key) flow_.Line(x_[i] + kInset, top_ + kSecondHeadLine, flow_.program().Text(columns_[i]->second_key));
  }
  flow_.y += kHeadHeight;
  flow_.Rule(flow_.Left(), flow_.y, flow_.Right(), flow_.y);
  flow_.Font(size_);
}

void LineTable::DrawRow(const Row& row) {
  const double at = flow_.y + kPad;
  double lowest = flow_.y + row.height;
  for (size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i]->figures)
      flow_.Line(x_[i + 1] - kInset, at, row.cells[i].front(), -1);
    else
      lowest = std::max(lowest, flow_.Lines(x_[i] + kInset, at, row.cells[i], x_[i + 1] - x_[i] - 2 * kInset + 0.4) + kPad);
  }
  flow_.y = lowest;
  flow_.Rule(flow_.Left(), flow_.y, flow_.Right(), flow_.y);
}

void LineTable::Close() {
  for (const double x : x_) flow_.Rule(x, top_, x, flow_.y);
}

void LineTable::BreakPage() {
  flow_.NextPage();
  DrawHead();
}

void LineTable::Draw() {
  flow_.Font(size_);
  const double first = lines_.empty() ? 0 : MakeRow(0).height;
  if (!flow_.Fits(kHeadHeight + first)) flow_.NextPage();
  DrawHead();
  for (size_t line = 0; line < lines_.size(); ++line) {
    const Row row = MakeRow(line);
    // The last row goes with the sums, which would stand alone under a head otherwise.
    const double with_sums = row.height + (line + 1 == lines_.size() ? SumsHeight() : 0);
    if (!flow_.Fits(with_sums <= flow_.Room() - kHeadHeight ? with_sums : row.height) && flow_.y > top_ + kHeadHeight) {
      Close();
      BreakPage();
    }
    DrawRow(row);
  }
  Close();
}

double LineTable::SumsHeight() {
  flow_.Font(size_);
  return (flow_.Pitch() + 2 * kPad) * static_cast<double>(sums_.size() + 1);
}

void LineTable::DrawSumRow(const RateSum& sum, double pad, double height) {
  for (size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i]->sum) flow_.Line(x_[i + 1] - kInset, flow_.y + pad, columns_[i]->sum(document_, sum), -1);
  }
  flow_.y += height;
}

void LineTable::DrawSums(const char* total_key, const char* rate_key) {
  const Program& program = flow_.program();
  if (!flow_.Fits(SumsHeight())) {
    BreakPage();
    Close();
  }
  const double height = flow_.Pitch() + 2 * kPad;

  size_t first = 0;
  while (first + 1 < columns_.size() && !columns_[first]->sum) ++first;
  flow_.Font(size_, true);
  const double label = std::max(flow_.TextWidth(program.Text(total_key)), flow_.TextWidth(program.Text(rate_key))) + 2 * kInset + 3;
  const double left = std::max(flow_.Left(), x_[first] - label);
  const auto close = [&] {
    flow_.Rule(left, top_, left, flow_.y);
    for (size_t i = first; i < x_.size(); ++i) flow_.Rule(x_[i], top_, x_[i], flow_.y);
  };
  top_ = flow_.y;
  flow_.Head(program.Text(total_key), left, top_, flow_.Right() - left, height);
  DrawSumRow(total_, kHeadPad, height);
  flow_.Font(size_);
  flow_.Rule(left, flow_.y, flow_.Right(), flow_.y);
  for (size_t i = 0; i < sums_.size(); ++i) {
    if (!flow_.Fits(height)) {
      close();
      BreakPage();
      Close();
      top_ = flow_.y;
    }
    if (i == 0) flow_.Line(left + kInset, flow_.y + kPad, program.Text(rate_key));
    DrawSumRow(sums_[i], kPad, height);
    flow_.Rule(i + 1 < sums_.size() ? x_[first] : left, flow_.y, flow_.Right(), flow_.y);
  }
  close();
}

}  // namespace ostrinka
