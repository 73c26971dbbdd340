#include "print/paged_table.h"

#include <algorithm>
#include <cmath>

namespace ostrinka {
namespace {

constexpr double kHeadHeight = 8;
constexpr double kHeadSize = 10;
constexpr double kSecondHeadLine = 4.1;  // from the top of the head cell to its second line
constexpr double kInset = 1;             // between a column's line and its text
constexpr double kFigureAir = 0.6;       // what a text that never breaks needs beside its width and the insets
constexpr double kWrapAir = 1.6;         // what a text that may break needs
constexpr double kBreakAir = 0.4;        // what a broken text may reach into the inset
constexpr size_t kLeastPart = 3;         // lines of a tall row that begin on a page, so that no head stands over a shred

// Sizes of the rows' text from the one that is wished for, each with the least width of what takes the rest that it is taken for.
constexpr struct { double size, least_rest; } kSizes[] = {{9, 46}, {8, 42}, {7, 38}, {6, 0}};

}  // namespace

PagedTable::PagedTable(PageFlow& flow, TableContent content) : flow_(flow), content_(std::move(content)) {
  texts_.reserve(content_.rows * content_.columns.size());
  for (size_t row = 0; row < content_.rows; ++row) {
    for (size_t column = 0; column < content_.columns.size(); ++column) texts_.push_back(content_.cell(row, column));
  }
  for (TotalRow& total : content_.totals) total.cells.resize(content_.columns.size());
  Measure();
}

// --- widths

double PagedTable::HeadWidth(const TableColumn& column) {
  flow_.Font(kHeadSize, true);
  return std::max(flow_.TextWidth(column.head), flow_.TextWidth(column.second_head));
}

double PagedTable::WidestTotal(size_t column) {
  double widest = 0;
  for (const TotalRow& total : content_.totals) {
    flow_.Font(size_, total.as_head);
    widest = std::max(widest, flow_.TextWidth(total.cells[column]));
  }
  // Sums on their way may be wider than what they come to.
  flow_.Font(size_);
  for (size_t row = 1; content_.carried && row < content_.rows; ++row) {
    const TotalRow carried = content_.carried(row, true);
    if (column < carried.cells.size()) widest = std::max(widest, flow_.TextWidth(carried.cells[column]));
  }
  return widest;
}

double PagedTable::ColumnWidth(size_t column) {
  const TableColumn& plan = content_.columns[column];
  const double head = HeadWidth(plan) + 2 * kInset + kFigureAir;
  double widest = WidestTotal(column);
  flow_.Font(size_);
  for (size_t row = 0; row < content_.rows; ++row) widest = std::max(widest, flow_.TextWidth(Cell(row, column)));
  const double width = std::max({plan.least, head, widest + 2 * kInset + (plan.figures ? kFigureAir : kWrapAir)});
  return plan.most > 0 ? std::min(width, std::max(plan.most, head)) : width;
}

// False when what takes the rest gets less than it should at this size.
bool PagedTable::Place(double size, double least_rest) {
  size_ = size;
  const size_t count = content_.columns.size();
  std::vector<double> widths(count, 0);
  double taken = 0, sharers = 0;
  for (size_t column = 0; column < count; ++column) {
    if (content_.columns[column].takes_rest) {
      ++sharers;
    } else {
      widths[column] = ColumnWidth(column);
      taken += widths[column];
    }
  }
  const double room = flow_.Right() - flow_.Left(), rest = sharers > 0 ? (room - taken) / sharers : 0;
  x_ = {flow_.Left()};
  for (size_t column = 0; column < count; ++column) {
    x_.push_back(x_.back() + (content_.columns[column].takes_rest ? rest : widths[column]));
  }
  right_ = sharers > 0 ? flow_.Right() : x_.back();
  return sharers > 0 ? rest >= least_rest : taken <= room;
}

void PagedTable::Measure() {
  for (const auto& [size, least_rest] : kSizes) {
    if (Place(size, least_rest)) return;
  }
  Squeeze();
}

// More than the page has even in the smallest text: the columns that break give way alike, down to their least.
void PagedTable::Squeeze() {
  constexpr double kLeastColumn = 9;
  const size_t count = content_.columns.size();
  const std::vector<double> before = x_;
  std::vector<double> spare(count, 0);
  double missing = -(flow_.Right() - flow_.Left()), spared = 0;
  for (size_t column = 0; column < count; ++column) {
    const TableColumn& plan = content_.columns[column];
    const double width = plan.takes_rest ? kLeastColumn : before[column + 1] - before[column];
    if (!plan.takes_rest && !plan.figures) spare[column] = std::max(0.0, width - std::max(plan.least, kLeastColumn));
    x_[column + 1] = width;
    missing += width;
    spared += spare[column];
  }
  const double share = spared > 0 ? std::min(1.0, missing / spared) : 0;
  for (size_t column = 0; column < count; ++column) x_[column + 1] += x_[column] - spare[column] * share;
  right_ = x_.back();
}

// --- rows

PagedTable::Row PagedTable::MakeRow(size_t number) const {
  Row row;
  for (size_t column = 0; column < content_.columns.size(); ++column) {
    const std::string& text = Cell(number, column);
    row.cells.push_back(content_.columns[column].figures ? Lines{text}
                                                         : flow_.Break(text, x_[column + 1] - x_[column] - 2 * kInset + kBreakAir));
    row.lines = std::max(row.lines, row.cells.back().size());
  }
  row.height = HeightOf(row.lines);
  return row;
}

// What a page keeps free under a row for the sums carried onward.
double PagedTable::FootHeight(size_t row) const {
  return content_.carried && row + 1 < content_.rows ? HeightOf(1) : 0;
}

// The most that a further page holds under its head.
double PagedTable::TallestRow() const {
  return flow_.Room() - kHeadHeight - (content_.carried ? 2 * HeightOf(1) : 0);
}

// The height that must be free for the row to begin here: its own, with what stays with it as long as a page holds all of that.
double PagedTable::NeededFrom(size_t row, double height) const {
  double together = height;
  size_t last = row;
  const auto stays = [&](size_t at) { return content_.stays_with_next && content_.stays_with_next(at); };
  while (last + 1 < content_.rows && stays(last) && together <= TallestRow()) together += MakeRow(++last).height;
  if (last + 1 == content_.rows) together += TotalsHeight() + (stays(last) ? content_.under_totals : 0);
  return together <= TallestRow() ? together : height;
}

void PagedTable::DrawHead() {
  top_ = flow_.y;
  flow_.Font(kHeadSize, true);
  for (size_t column = 0; column < content_.columns.size(); ++column) {
    const TableColumn& plan = content_.columns[column];
    flow_.Head(plan.head, x_[column], top_, x_[column + 1] - x_[column], kHeadHeight);
    flow_.Line(x_[column] + kInset, top_ + kSecondHeadLine, plan.second_head);
  }
  flow_.y += kHeadHeight;
  flow_.Rule(flow_.Left(), flow_.y, right_, flow_.y);
  flow_.Font(size_);
  body_ = flow_.y;
}

// So many lines of a row from the one given, closed by a line.
void PagedTable::DrawLines(const Row& row, size_t first, size_t count) {
  const double at = flow_.y + kPad;
  double lowest = flow_.y + HeightOf(count);
  for (size_t column = 0; column < content_.columns.size(); ++column) {
    const Lines& lines = row.cells[column];
    if (first >= lines.size()) continue;
    if (content_.columns[column].figures) {
      flow_.Line(x_[column + 1] - kInset, at, lines.front(), -1);
      continue;
    }
    const auto from = lines.begin() + static_cast<std::ptrdiff_t>(first);
    const auto to = from + static_cast<std::ptrdiff_t>(std::min(count, lines.size() - first));
    lowest =
        std::max(lowest, flow_.Lines(x_[column] + kInset, at, {from, to}, x_[column + 1] - x_[column] - 2 * kInset + kBreakAir) + kPad);
  }
  flow_.y = lowest;
  flow_.Rule(flow_.Left(), flow_.y, right_, flow_.y);
}

// A row that no page holds: as many lines as fit, the rest on the next pages.
void PagedTable::DrawTallRow(const Row& row, size_t number) {
  for (size_t first = 0; first < row.lines;) {
    const double room = flow_.Bottom() - flow_.y;
    size_t count = std::min(row.lines - first, static_cast<size_t>(std::max(1.0, std::floor(room / flow_.Pitch()))));
    while (count > 1 && !FitsWithFoot(number, HeightOf(count))) --count;
    DrawLines(row, first, count);
    first += count;
    if (first < row.lines) BreakPage(number);
  }
}

void PagedTable::DrawRows() {
  for (size_t number = 0; number < content_.rows; ++number) {
    const Row row = MakeRow(number);
    const bool tall = row.height > TallestRow();
    const double needed = tall ? HeightOf(kLeastPart) : NeededFrom(number, row.height);
    if (!FitsWithFoot(number, needed) && flow_.y > body_) BreakPage(number);
    if (tall) {
      DrawTallRow(row, number);
    } else {
      DrawLines(row, 0, row.lines);
    }
  }
}

void PagedTable::Close() {
  for (const double x : x_) flow_.Rule(x, top_, x, flow_.y);
}

void PagedTable::BreakPage(size_t above) {
  Close();
  if (content_.carried) DrawCarried(above, true);
  flow_.NextPage();
  DrawHead();
  if (content_.carried) DrawCarried(above, false);
}

void PagedTable::Draw() {
  flow_.Font(size_);
  const double first = content_.rows == 0 ? 0 : MakeRow(0).height;
  if (!flow_.Fits(kHeadHeight + (first > TallestRow() ? HeightOf(kLeastPart) : first))) flow_.NextPage();
  DrawHead();
  DrawRows();
  Close();
  if (!content_.totals.empty()) DrawTotals();
}

// --- totals

size_t PagedTable::FirstTotalColumn(const std::vector<TotalRow>& rows) const {
  size_t first = 0;
  const auto empty = [&](const TotalRow& row) { return row.cells[first].empty(); };
  while (first + 1 < content_.columns.size() && std::all_of(rows.begin(), rows.end(), empty)) ++first;
  return first;
}

// Where the labels begin: as far left of the first total as the widest of them asks.
double PagedTable::LabelEnd(const std::vector<TotalRow>& rows, size_t first) {
  flow_.Font(size_, true);
  double widest = 0;
  for (const TotalRow& row : rows) widest = std::max(widest, flow_.TextWidth(row.label));
  return std::max(flow_.Left(), x_[first] - (widest + 2 * kInset + 3));
}

void PagedTable::DrawTotalRow(const TotalRow& row, double left) {
  constexpr double kHeadPad = 0.75;  // above the text of a head cell
  const double height = HeightOf(1), pad = row.as_head ? kHeadPad : kPad;
  flow_.Font(size_, row.as_head);
  if (row.as_head) {
    flow_.Head(row.label, left, flow_.y, right_ - left, height);
  } else {
    flow_.Line(left + kInset, flow_.y + pad, row.label);
  }
  for (size_t column = 0; column < content_.columns.size(); ++column)
    flow_.Line(x_[column + 1] - kInset, flow_.y + pad, row.cells[column], -1);
  flow_.y += height;
  flow_.Font(size_);
}

void PagedTable::DrawTotals() {
  const std::vector<TotalRow>& rows = content_.totals;
  flow_.Font(size_);
  if (!flow_.Fits(TotalsHeight())) {
    flow_.NextPage();
    DrawHead();
    Close();
  }
  const size_t first = FirstTotalColumn(rows);
  const double left = LabelEnd(rows, first);
  const auto close = [&] {
    flow_.Rule(left, top_, left, flow_.y);
    for (size_t column = first; column < x_.size(); ++column) flow_.Rule(x_[column], top_, x_[column], flow_.y);
  };
  top_ = flow_.y;
  flow_.Font(size_);
  for (size_t i = 0; i < rows.size(); ++i) {
    if (i > 0 && !flow_.Fits(HeightOf(1))) {
      close();
      flow_.NextPage();
      DrawHead();
      Close();
      top_ = flow_.y;
    }
    DrawTotalRow(rows[i], left);
    // A label's rows stand together: the line between them begins under the figures.
    const bool label_goes_on = !rows[i].as_head && i + 1 < rows.size() && rows[i + 1].label.empty();
    flow_.Rule(label_goes_on ? x_[first] : left, flow_.y, right_, flow_.y);
  }
  close();
}

// Under the rows of a page that is left, or over those of the next one, where the upright lines begin anew.
void PagedTable::DrawCarried(size_t rows, bool onward) {
  TotalRow row = content_.carried(rows, onward);
  row.cells.resize(content_.columns.size());
  const size_t first = FirstTotalColumn({row});
  const double left = LabelEnd({row}, first);
  if (!onward) Close();
  top_ = flow_.y;
  DrawTotalRow(row, left);
  flow_.Rule(onward ? left : flow_.Left(), flow_.y, right_, flow_.y);
  flow_.Rule(left, top_, left, flow_.y);
  for (size_t column = first; column < x_.size(); ++column) flow_.Rule(x_[column], top_, x_[column], flow_.y);
  top_ = body_ = flow_.y;
}

}  // namespace ostrinka
