// The table's own view by the operations of the table.
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

bool GiveRectangle(const TableCell* cell, int& left, int& top, int& width, int& height) {
  if (!cell) return false;
  left = cell->left;
  top = cell->top;
  width = cell->right - cell->left;
  height = cell->bottom - cell->top;
  return true;
}

}  // namespace

TableView& ClassQDBASE::view() {
  return state_->view;
}

void ClassQDBASE::TABLE_FIELD_FORMAT(const FieldId& field, int width, std::string_view title, std::string_view format, bool sum_up,
                                     int alignment) {
  state_->Debug("TABLE_FIELD_FORMAT(", field.by_number() ? std::to_string(field.number()) : field.name(), ", ", std::to_string(width), ", ",
                std::string(title), ", ", std::string(format), ")");
  state_->view.Format(field, {width, std::string(title), std::string(format), sum_up, alignment});
}

int ClassQDBASE::ColumnWidth(int n) const {
  return state_->view.FormatOf(n).width;
}

void ClassQDBASE::ColumnWidth(int n, int width) {
  state_->view.Width(n, width);
}

std::string ClassQDBASE::ColumnTitle(int n) const {
  return state_->view.FormatOf(n).title;
}

void ClassQDBASE::TABLE_SUMUP(bool flag) {
  state_->view.sum_up = flag;
}

bool ClassQDBASE::HideTSelectRow() const {
  return state_->view.hide_current_row;
}

void ClassQDBASE::HideTSelectRow(bool hide) {
  state_->view.hide_current_row = hide;
}

void ClassQDBASE::TABLE_DRAW(Canvas& surface, int first_row, int first_column, bool show_header, const TableLook& look) {
  state_->view.Draw(surface, first_row, first_column, show_header, look);
}

int ClassQDBASE::TABLE_ROWS() const {
  return state_->view.Rows();
}

bool ClassQDBASE::TABLE_CLICK(int mode, int x, int y, int& left, int& top, int& width, int& height) {
  TableView& view = state_->view;
  return GiveRectangle(mode == 0 ? view.Click(x, y) : view.LastOfClickedColumn(), left, top, width, height);
}

int ClassQDBASE::TABLE_COLUMN(int x, int y) const {
  return state_->view.ColumnAt(x, y);
}

int ClassQDBASE::CELL_GOTO(int direction, int& left, int& top, int& width, int& height) {
  int status = 0;
  GiveRectangle(state_->view.Go(direction, status), left, top, width, height);
  return status;
}

int ClassQDBASE::MAX_ROWS() const {
  return static_cast<int>(state_->selection.size());
}

int ClassQDBASE::MAX_COLUMNS() const {
  return static_cast<int>(columns().size());
}

const std::vector<int>& ClassQDBASE::columns() const {
  return state_->view.columns();
}

const std::vector<TableCell>& ClassQDBASE::cells() const {
  return state_->view.cells();
}

int ClassQDBASE::clicked_field() const {
  return state_->view.clicked_field();
}

std::string ClassQDBASE::CellText(int row, int field, const TableLook& look) {
  return state_->view.CellText(row, field, look);
}

// Kept: the header is written back even when nothing changed in it.
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
  // A stamp of this object's own number is a change of its own.
  if (s.header.change_stamp() > 0 && s.header.change_stamp() != s.instance) {
    s.header.SetChangeStamp(0);
    refresh = true;
  }
  s.WriteHeader();
  return refresh;
}

}  // namespace ostrinka
