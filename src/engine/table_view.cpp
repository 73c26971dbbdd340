// The selection drawn as a grid: cells, columns, hit tests, moving from cell to cell.
#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "base/text.h"
#include "engine/qdbase_state.h"
#include "engine/table_painter.h"

namespace ostrinka {
namespace {

void GiveRectangle(const TableCell& cell, int& left, int& top, int& width, int& height) {
  left = cell.left;
  top = cell.top;
  width = cell.right - cell.left;
  height = cell.bottom - cell.top;
}

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

std::string ClassQDBASE::State::CellTextOf(int n, const char* record, const TableLook& look) {
  const FieldDef& field = layout.field(n);
  Value value = DecodeField(field, record);
  if (field.type == kLink) value = ShownValue(LinkValue(n, Int32Or0(value)));
  const std::string& format = view.columns[static_cast<size_t>(n)].format;
  if (const bool* flag = std::get_if<bool>(&value); flag && format.empty()) return *flag ? look.true_text : look.false_text;
  if (const Date* date = std::get_if<Date>(&value); date && (date->days() == 0 || !date->IsValid())) return {};
  std::string text = IsText(value) || format.empty() ? ToText(value) : FormatNumber(value, format);
  if (IsText(value) && !format.empty()) text = FormatNumber(Value(Trim(text)), format);
  text = ReplaceAll(ReplaceAll(text, "\r\n", " "), std::string_view("\0", 1), "");
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return Trim(text);
}

std::string ClassQDBASE::CellText(int row, int field, const TableLook& look) {
  State& s = *state_;
  const auto& entries = s.selection.entries();
  if (row < 1 || static_cast<size_t>(row) > entries.size()) return {};
  if (field == 0) return std::to_string(row);
  std::string record;
  const int32_t n = entries[static_cast<size_t>(row - 1)];
  if (!s.layout.Has(field) || !s.InRange(n) || !s.ReadRecord(n, record)) return {};
  return s.CellTextOf(field, record.data(), look);
}

void ClassQDBASE::TABLE_FIELD_FORMAT(const FieldId& field, int width, std::string_view title, std::string_view format, bool sum_up,
                                     int alignment) {
  State& s = *state_;
  s.Debug("TABLE_FIELD_FORMAT(", field.by_number() ? std::to_string(field.number()) : field.name(), ", ", std::to_string(width), ", ",
          std::string(title), ", ", std::string(format), ")");
  const int n = s.layout.Resolve(field.by_number() ? field : FieldId(ReplaceAll(field.name(), "@", "")));
  if (n != 0) s.view.columns[static_cast<size_t>(n)] = {width, std::string(title), std::string(format), sum_up, alignment};
}

int ClassQDBASE::ColumnWidth(int n) const {
  return n >= 0 && n <= kMaxFields ? state_->view.columns[static_cast<size_t>(n)].width : 0;
}

void ClassQDBASE::ColumnWidth(int n, int width) {
  if (n >= 0 && n <= kMaxFields) state_->view.columns[static_cast<size_t>(n)].width = width;
}

std::string ClassQDBASE::ColumnTitle(int n) const {
  return n >= 0 && n <= kMaxFields ? state_->view.columns[static_cast<size_t>(n)].title : std::string();
}

void ClassQDBASE::TABLE_SUMUP(bool flag) {
  state_->view.sum_up = flag;
}

void ClassQDBASE::TABLE_DRAW(Canvas& surface, int first_row, int first_column, bool show_header, const TableLook& look) {
  State& s = *state_;
  TableViewState& view = s.view;
  TablePainter painter(surface, look);
  view.cells.clear();
  view.spans.clear();
  view.cells_per_row = 0;
  view.row_height = painter.row_height();
  view.surface_height = static_cast<int>(surface.Height());
  painter.Background();
  if (s.path.empty() || s.columns.empty()) return;
  view.spans = painter.Columns(s.columns, view.columns, first_column);
  view.cells_per_row = static_cast<int>(view.spans.size());
  int top = 0;
  if (show_header) {
    painter.Header(view.spans, view.columns);
    top = view.row_height;
  }
  s.CountRecords();
  s.DrawRows(painter, std::max(first_row, 1), top + 5, look);
}

void ClassQDBASE::State::DrawRows(TablePainter& painter, int first_row, int top, const TableLook& look) {
  const std::vector<int32_t>& entries = selection.entries();
  std::string record;
  for (size_t i = static_cast<size_t>(first_row); i <= entries.size() && top < view.surface_height; ++i) {
    const int32_t n = entries[i - 1];
    if (n < 1 || n > count || !ReadRecord(n, record) || record[0] != 0) continue;
    const bool chosen = n == current && !self.HideTSelectRow;
    painter.RowGround(top, i % 2 == 0, chosen);
    int position = 0;
    for (const ColumnSpan& span : view.spans) {
      const TableCell cell{span.column, span.left, top, span.left + span.width - 2, top + view.row_height - 2, span.field, n, ++position};
      view.cells.push_back(cell);
      const std::string text = span.field == 0 ? std::to_string(i) : CellTextOf(span.field, record.data(), look);
      painter.Cell(cell, text, view.columns[static_cast<size_t>(span.field)].alignment);
    }
    top += view.row_height;
  }
  painter.Grid(view.spans, top);
  if (view.current >= static_cast<int>(view.cells.size())) view.current = static_cast<int>(view.cells.size()) - 1;
}

int ClassQDBASE::TABLE_ROWS() const {
  const TableViewState& view = state_->view;
  return view.row_height > 0 ? std::max(view.surface_height / view.row_height - 1, 0) : 0;
}

bool ClassQDBASE::TABLE_REFRESH() {
  State& s = *state_;
  if (!s.file.IsOpen() || !s.ReadyToWrite() || !s.ReadHeaderAgain()) return false;
  bool refresh = false;
  if (s.login_slot >= 1 && s.login_slot <= s.header.user_count()) {
    UserSlot user = s.header.User(s.login_slot);
    if (user.changed != 0) {
      user.changed = 0;
      s.header.SetUser(s.login_slot, user);
      refresh = true;
    }
  }
  if (s.header.change_stamp() > 0 && s.header.change_stamp() != s.instance) {
    s.header.SetChangeStamp(0);
    refresh = true;
  }
  s.WriteHeader();
  return refresh;
}

bool ClassQDBASE::TABLE_CLICK(int mode, int x, int y, int& left, int& top, int& width, int& height) {
  State& s = *state_;
  TableViewState& view = s.view;
  if (mode != 0) {
    const auto cell =
        std::find_if(view.cells.rbegin(), view.cells.rend(), [&](const TableCell& c) { return c.column == view.clicked_column; });
    if (cell == view.cells.rend()) return false;
    GiveRectangle(*cell, left, top, width, height);
    return true;
  }
  for (size_t i = 0; i < view.cells.size(); ++i) {
    const TableCell& cell = view.cells[i];
    if (x < cell.left || x > cell.right + 1 || y < cell.top || y > cell.bottom + 1) continue;
    view.current = static_cast<int>(i);
    view.clicked_field = cell.field;
    view.clicked_column = cell.column;
    GiveRectangle(cell, left, top, width, height);
    RECORD_POSITION(cell.record);
    return true;
  }
  return false;
}

int ClassQDBASE::TABLE_COLUMN(int x, int y) const {
  if (y < 0 || y > state_->view.surface_height) return -1;
  for (const ColumnSpan& span : state_->view.spans) {
    if (x >= span.left && x < span.left + span.width) return span.column;
  }
  return -1;
}

int ClassQDBASE::CELL_GOTO(int direction, int& left, int& top, int& width, int& height) {
  State& s = *state_;
  const std::vector<TableCell>& cells = s.view.cells;
  const int count = static_cast<int>(cells.size()), row = s.view.cells_per_row;
  if (count == 0) return kMoved;
  const int from = std::clamp(s.view.current, 0, count - 1);
  const TableCell& cell = cells[static_cast<size_t>(from)];
  int to = from, status = kMoved;
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
        status = static_cast<size_t>(cell.column) < s.columns.size() ? kMoreColumns : kRowEnd;
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
  s.view.current = to;
  const TableCell& reached = cells[static_cast<size_t>(to)];
  GiveRectangle(reached, left, top, width, height);
  RECORD_POSITION(reached.record);
  return status;
}

int ClassQDBASE::MAX_ROWS() const {
  return static_cast<int>(state_->selection.size());
}
int ClassQDBASE::MAX_COLUMNS() const {
  return static_cast<int>(state_->columns.size());
}
const std::vector<TableCell>& ClassQDBASE::cells() const {
  return state_->view.cells;
}
int ClassQDBASE::clicked_field() const {
  return state_->view.clicked_field;
}

}  // namespace ostrinka
