#include "engine/table_view.h"

#include <algorithm>

#include "base/format.h"
#include "base/text.h"
#include "engine/qdbase_state.h"
#include "engine/table_painter.h"

namespace ostrinka {
namespace {

enum CellDirection { kUp = 1, kDown = 2, kFirst = 3, kLeft = 4, kRight = 5, kLast = 6, kRowStart = 7 };
enum CellStatus {
  kMoved = 0,
  kTopReached = 1,
  kBottomReached = 2,
  kMovedLeft = 3,
  kMoreColumns = 4,
  kAtFirst = 5,
  kAtLast = 6,
  kRowEnd = 7
};

}  // namespace

TableView::TableView(ClassQDBASE& table) : table_(&table), formats_(kMaxFields + 1) {}

void TableView::ShowColumns(std::string_view fields) {
  const FieldLayout& layout = table_->state_->layout;
  const std::string wanted = Upper(Trim(fields));
  if (wanted == "~") return;
  columns_.clear();
  if (wanted == "!") return;
  if (wanted.empty() || wanted == "*") {
    for (int n = 1; n <= layout.count(); ++n) columns_.push_back(n);
    return;
  }
  for (const std::string& name : Split(wanted, ',')) {
    if (const int n = layout.Find(Trim(name))) columns_.push_back(n);
  }
}

void TableView::ForgetLostColumns() {
  std::erase_if(columns_, [&](int n) { return !table_->state_->layout.Has(n); });
}

void TableView::Format(const FieldId& field, const ColumnFormat& format) {
  const int n = table_->state_->layout.Resolve(field.by_number() ? field : FieldId(ReplaceAll(field.name(), "@", "")));
  if (n != 0) formats_[static_cast<size_t>(n)] = format;
}

const ColumnFormat& TableView::FormatOf(int field) const {
  static const ColumnFormat none{.width = 0};
  return field >= 0 && field <= kMaxFields ? formats_[static_cast<size_t>(field)] : none;
}

void TableView::Width(int field, int width) {
  if (field >= 0 && field <= kMaxFields) formats_[static_cast<size_t>(field)].width = width;
}

std::string TableView::TextOf(int n, const char* record, const TableLook& look) const {
  ClassQDBASE::State& s = *table_->state_;
  const FieldDef& field = s.layout.field(n);
  Value value = DecodeField(field, record);
  if (field.type == kLink) value = ShownValue(s.LinkValue(n, Int32Or0(value)));
  const std::string& format = formats_[static_cast<size_t>(n)].format;
  if (const bool* flag = std::get_if<bool>(&value); flag && format.empty()) return *flag ? look.true_text : look.false_text;
  if (const Date* date = std::get_if<Date>(&value); date && (date->days() == 0 || !date->IsValid())) return {};
  std::string text = IsText(value) || format.empty() ? ToText(value) : FormatNumber(value, format);
  if (IsText(value) && !format.empty()) text = FormatNumber(Value(Trim(text)), format);
  text = ReplaceAll(ReplaceAll(text, "\r\n", " "), std::string_view("\0", 1), "");
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return Trim(text);
}

std::string TableView::CellText(int row, int field, const TableLook& look) {
  ClassQDBASE::State& s = *table_->state_;
  const auto& entries = s.selection.entries();
  if (row < 1 || static_cast<size_t>(row) > entries.size()) return {};
  if (field == 0) return std::to_string(row);
  std::string record;
  const int32_t n = entries[static_cast<size_t>(row - 1)];
  if (!s.layout.Has(field) || !s.InRange(n) || !s.ReadRecord(n, record)) return {};
  return TextOf(field, record.data(), look);
}

GridGeometry TableView::Layout(const TableLook& look, const GridSurface& surface, int first_column) const {
  GridGeometry grid(surface);
  for (int column = std::max(first_column, 0); column <= static_cast<int>(columns_.size()) && grid.right() < surface.right; ++column) {
    const int field = column == 0 ? 0 : columns_[static_cast<size_t>(column - 1)];
    grid.Add(column, field, column == 0 ? surface.number_width : GridColumnWidth(look, column, formats_[static_cast<size_t>(field)].width));
  }
  return grid;
}

void TableView::Draw(Canvas& surface, int first_row, int first_column, bool heads, const TableLook& look) {
  TablePainter painter(surface, look);
  cells_.clear();
  painter.Background();
  ForgetLostColumns();
  GridSurface room{painter.row_height(), surface.Height(), surface.Width(), 0, painter.number_width(), heads};
  if (table_->state_->path.empty() || columns_.empty()) room.right = 0;  // no column
  grid_ = Layout(look, room, first_column);
  if (grid_.columns().empty()) return;
  if (heads) painter.Header(grid_, formats_);
  table_->state_->CountRecords();
  DrawRows(painter, std::max(first_row, 1), look);
}

void TableView::DrawRows(TablePainter& painter, int first_row, const TableLook& look) {
  ClassQDBASE::State& s = *table_->state_;
  const std::vector<int32_t>& entries = s.selection.entries();
  const int bottom = static_cast<int>(grid_.height());
  std::string record;
  int top = grid_.RowTop(0);
  for (size_t i = static_cast<size_t>(first_row); i <= entries.size() && top < bottom; ++i) {
    const int32_t n = entries[i - 1];
    if (n < 1 || n > s.count || !s.ReadRecord(n, record) || record[0] != 0) continue;
    painter.RowGround(top, i % 2 == 0, n == s.current && !hide_current_row);
    int position = 0;
    for (const ColumnSpan& span : grid_.columns()) {
      TableCell& cell = cells_.emplace_back(grid_.Cell(span, top));
      cell.record = n;
      cell.position = ++position;
      painter.Cell(cell, span.field == 0 ? std::to_string(i) : TextOf(span.field, record.data(), look),
                   formats_[static_cast<size_t>(span.field)].alignment);
    }
    top += grid_.row_height();
  }
  painter.Lines(grid_, top);
  current_ = std::min(current_, static_cast<int>(cells_.size()) - 1);
}

int TableView::RowsAbove(int32_t record, int first_row, int most) {
  const std::vector<int32_t>& entries = table_->selection();
  int above = 0;
  for (size_t i = static_cast<size_t>(std::max(first_row, 1) - 1); i < entries.size() && above < most; ++i) {
    if (entries[i] == record) return above;
    if (table_->RECORD_EXIST(entries[i])) ++above;
  }
  return -1;
}

int TableView::Rows() const {
  // Kept: one row less than the surface holds, with heads or without.
  return grid_.row_height() > 0 ? std::max(static_cast<int>(grid_.height()) / grid_.row_height() - 1, 0) : 0;
}

const TableCell* TableView::CellAt(double x, double y) const {
  const auto found = std::find_if(cells_.begin(), cells_.end(), [&](const TableCell& cell) { return cell.Holds(x, y); });
  return found == cells_.end() ? nullptr : &*found;
}

const TableCell* TableView::RowAt(double y) const {
  const auto found = std::find_if(cells_.begin(), cells_.end(), [&](const TableCell& cell) { return cell.HoldsHeight(y); });
  return found == cells_.end() ? nullptr : &*found;
}

const TableCell* TableView::Click(int x, int y) {
  const TableCell* cell = CellAt(x, y);
  if (!cell) return nullptr;
  current_ = static_cast<int>(cell - cells_.data());
  clicked_field_ = cell->field;
  clicked_column_ = cell->column;
  table_->RECORD_POSITION(cell->record);
  return cell;
}

const TableCell* TableView::LastOfClickedColumn() const {
  const auto found = std::find_if(cells_.rbegin(), cells_.rend(), [&](const TableCell& cell) { return cell.column == clicked_column_; });
  return found == cells_.rend() ? nullptr : &*found;
}

int TableView::ColumnAt(int x, int y) const {
  const ColumnSpan* span = y < 0 || y > static_cast<int>(grid_.height()) ? nullptr : grid_.ColumnAt(x);
  return span ? span->column : -1;
}

const TableCell* TableView::Go(int direction, int& status) {
  const int count = static_cast<int>(cells_.size()), row = static_cast<int>(grid_.columns().size());
  status = kMoved;
  if (count == 0) return nullptr;
  const int from = std::clamp(current_, 0, count - 1);
  const TableCell& cell = cells_[static_cast<size_t>(from)];
  int to = from;
  switch (direction) {
    case kUp:
      to = from - row;
      break;
    case kDown:
      to = from + row;
      break;
    case kFirst:
      to = 0, status = kAtFirst;
      break;
    case kLeft:
      to = std::max(from - 1, 0), status = from == 0 ? kMoved : kMovedLeft;
      break;
    case kRight:
      if (cell.position < row) {
        to = from + 1;
      } else {
        status = static_cast<size_t>(cell.column) < columns_.size() ? kMoreColumns : kRowEnd;
      }
      break;
    case kLast:
      to = count - 1, status = kAtLast;
      break;
    case kRowStart:
      to = from - (cell.position - 1);
      break;
    default:
      break;
  }
  if (to < 0) to = from, status = kTopReached;
  if (to >= count) to = from, status = kBottomReached;
  current_ = to;
  const TableCell& reached = cells_[static_cast<size_t>(to)];
  table_->RECORD_POSITION(reached.record);
  return &reached;
}

}  // namespace ostrinka
