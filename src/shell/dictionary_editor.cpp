#include "shell/dictionary_editor.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "company/tables.h"
#include "forms/bound_control.h"

namespace ostrinka {
namespace {

constexpr size_t kLineLetters = 256;  // that a single-line box takes

template <typename Number>
std::optional<Value> Wrapped(const std::optional<Number>& number) {
  return number ? std::optional<Value>(*number) : std::nullopt;
}

// What was typed as a value of the field's type; nothing when it does not convert.
std::optional<Value> Converted(const std::string& text, int type) {
  const Value typed(Trim(text));
  switch (type) {
    case kByte:
      return Wrapped(ToByte(typed));
    case kBoolean:
      return Wrapped(ToBoolean(typed));
    case kInteger:
      return Wrapped(ToInt16(typed));
    case kLong:
      return Wrapped(ToInt32(typed));
    case kSingle:
      return Wrapped(ToFloat(typed));
    case kDouble:
      return Wrapped(ToDouble(typed));
    case kCurrency:
      return Wrapped(ToCurrency(typed));
    case kDate:
      return Wrapped(ToDate(typed));
    default:
      return Value(text);
  }
}

}  // namespace

DictionaryEditor::DictionaryEditor(Program& program) : Form("frm_MDI", "mdi.tabs.dicts"), program_(program) {
  Register("txtEdit", txtEdit);
  Register("txtLink", txtLink);
  txtEdit.Changed += [this] { chosen_ = false; };
  txtLink.Changed += [this] { Choose(); };
}

Control* DictionaryEditor::Front() {
  if (cell_ == Cell::kText) return &txtEdit;
  return cell_ == Cell::kList ? &txtLink : nullptr;
}

ClassQDBASE& DictionaryEditor::Shown() const {
  return Table(program_, table_);
}

int DictionaryEditor::FieldOf(int column) const {
  const std::vector<int>& columns = Shown().columns();
  return column < 1 || static_cast<size_t>(column) > columns.size() ? 0 : columns[static_cast<size_t>(column - 1)];
}

int DictionaryEditor::TypeOf(int column) const {
  const int field = FieldOf(column);
  return field == 0 ? 0 : Shown().FIELD_TYPE(field);
}

bool DictionaryEditor::TakesText(int column) const {
  const int type = TypeOf(column);
  return type != 0 && type != kBoolean && type != kLink && type != kMemo;
}

bool DictionaryEditor::OfNumber() const {
  const int type = TypeOf(column_);
  return type == kByte || (type >= kInteger && type <= kCurrency);
}

std::string DictionaryEditor::Heading() const {
  const int field = FieldOf(column_);
  return field == 0 ? std::string() : Shown().ColumnTitle(field);
}

int DictionaryEditor::RowOf(int32_t record) const {
  const std::vector<int32_t>& rows = Shown().selection();
  const auto found = std::find(rows.begin(), rows.end(), record);
  return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

bool DictionaryEditor::Click(int table, int32_t record, int column) {
  VSC_GOTO_END_();
  table_ = table;
  const int type = RowOf(record) < 0 ? 0 : TypeOf(column);
  if (type == kBoolean) return Negate(record, column);
  if (type == kLink) return OpenList(record, column);
  return type != 0 && type != kMemo && OpenText(record, column);
}

bool DictionaryEditor::Edit(int table, int32_t record) {
  VSC_GOTO_END_();
  if (table != table_) column_ = 1;
  table_ = table;
  const int count = Shown().MAX_COLUMNS();
  if (RowOf(record) < 0 || count < 1) return false;
  for (int i = 0; i < count; ++i) {
    const int column = (column_ - 1 + i) % count + 1;
    if (TakesText(column)) return OpenText(record, column);
  }
  return false;
}

bool DictionaryEditor::ChangeMark(int table, int32_t record) {
  VSC_GOTO_END_();
  table_ = table;
  for (int column = 1; RowOf(record) >= 0 && column <= Shown().MAX_COLUMNS(); ++column) {
    if (TypeOf(column) == kBoolean) return Negate(record, column);
    if (TypeOf(column) == kLink) return OpenList(record, column);
  }
  return false;
}

bool DictionaryEditor::OpenText(int32_t record, int column) {
  ClassQDBASE& table = Shown();
  table.RECORD_POSITION(record);
  if (!table.RECORD_LOAD(record)) return false;
  const int field = FieldOf(column);
  before_ = Trim(ToText(table.FIELD(field)));
  txtEdit.Limit = table.FIELD_TYPE(field) == kText ? static_cast<size_t>(std::max(table.FIELD_LEN(field), 1)) : 0;
  // A text that has lines already keeps them.
  txtEdit.MultiLine = txtEdit.Limit > kLineLetters || Contains(before_, "\n");
  txtEdit.SetText(before_);
  cell_ = Cell::kText;
  record_ = record;
  column_ = column;
  chosen_ = true;
  ++openings_;
  program_.main_view->StatusText(program_.Text("mdi.message.dict.enter"));
  program_.main_view->ref_();
  return true;
}

bool DictionaryEditor::OpenList(int32_t record, int column) {
  ClassQDBASE& table = Shown();
  table.RECORD_POSITION(record);
  if (!table.RECORD_LOAD(record)) return false;
  table.FORM_CONNECT(*this);
  table.FORM_OBJECT_ADD(Bound(txtLink), FieldOf(column));
  table.FORM_REFRESH();
  cell_ = Cell::kList;
  record_ = record;
  column_ = column;
  ++openings_;
  program_.main_view->ref_();
  return true;
}

bool DictionaryEditor::Negate(int32_t record, int column) {
  ClassQDBASE& table = Shown();
  const int field = FieldOf(column);
  table.RECORD_POSITION(record);
  if (!table.RECORD_LOAD(record) || !Store(record, field, !table.Flag(field))) Failed();
  program_.main_view->ref_();
  return true;
}

// An entry of the list was picked.
void DictionaryEditor::Choose() {
  if (cell_ != Cell::kList) return;
  const int32_t target = txtLink.Value();
  const int field = FieldOf(column_);
  Hide();
  if (!Store(record_, field, target)) Failed();
  program_.main_view->ref_();
}

// The lock refuses a record that another workstation holds, and keeps the two fields apart when both write at once.
bool DictionaryEditor::Store(int32_t record, int field, const Value& value) {
  ClassQDBASE& table = Shown();
  if (!table.RECORD_EXIST(record) || !table.RECORD_LOCK(record)) return false;
  table.RECORD_POSITION(record);
  const bool stored = table.RECORD_LOAD(record) && table.FIELD(field, value) && table.RECORD_SAVE(record);
  table.RECORD_UNLOCK(record);
  return stored;
}

void DictionaryEditor::Failed() {
  program_.Message("mdi.message.dict.error", MessageKind::kError);
}

void DictionaryEditor::Hide() {
  const Cell before = cell_;
  cell_ = Cell::kNone;
  if (before == Cell::kList) Shown().FORM_DISCONNECT();
  if (before == Cell::kText) program_.main_view->StatusText("");
}

bool DictionaryEditor::VSC_GOTO_END_() {
  if (cell_ == Cell::kNone) return true;
  const bool typed = cell_ == Cell::kText && txtEdit.Text() != before_;
  const int field = FieldOf(column_);
  Hide();
  bool stored = true;
  if (typed) {
    const std::optional<Value> value = Converted(txtEdit.Text(), Shown().FIELD_TYPE(field));
    stored = value && Store(record_, field, *value);
    if (!stored) Failed();
  }
  if (program_.main_view) program_.main_view->ref_();
  return stored;
}

void DictionaryEditor::Cancel() {
  if (cell_ == Cell::kNone) return;
  Hide();
  program_.main_view->ref_();
}

void DictionaryEditor::NextCell(bool forward) {
  if (cell_ == Cell::kNone || !VSC_GOTO_END_()) return;
  const int columns = Shown().MAX_COLUMNS(), rows = Shown().MAX_ROWS(), step = forward ? 1 : -1;
  int row = RowOf(record_), column = column_ + step;
  for (; row >= 0 && row < rows; row += step, column = forward ? 1 : columns) {
    for (; column >= 1 && column <= columns; column += step) {
      if (!TakesText(column)) continue;
      OpenText(Shown().selection()[static_cast<size_t>(row)], column);
      return;
    }
  }
}

void DictionaryEditor::OtherRow(int rows) {
  if (cell_ == Cell::kNone || !VSC_GOTO_END_()) return;
  const int row = RowOf(record_) + rows;
  if (row < 0 || row >= Shown().MAX_ROWS()) return;
  const int32_t record = Shown().selection()[static_cast<size_t>(row)];
  if (TakesText(column_)) OpenText(record, column_);
}

bool DictionaryEditor::UserKey(int code, bool) {
  if (cell_ == Cell::kNone) return false;
  switch (code) {
    case kKeyTab:
    case kKeyEnter:
      NextCell(true);
      return true;
    case kKeyEscape:
      Cancel();
      return true;
    case kKeyUp:
      OtherRow(-1);
      return true;
    case kKeyDown:
      OtherRow(1);
      return true;
    case kKeyDelete:
      if (chosen_ && cell_ == Cell::kText) txtEdit.UserSet("");
      return true;
    case kKeyEnd:
    case kKeyHome:
    case kKeyLeft:
    case kKeyRight:
      chosen_ = false;
      return true;
    default:
      return false;
  }
}

}  // namespace ostrinka
