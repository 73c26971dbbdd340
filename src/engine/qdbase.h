// ClassQDBASE: one open table of the system's own flat-file database.
//
// One object is one table file and its companions. Operations never throw; a failure is a false result passed through DErr, kept as the
// last error and, when ShowErrMsg is set, told to `error_event`. Records count from 1 and never move: deletion marks.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/value.h"
#include "engine/grid_geometry.h"
#include "platform/platform.h"

namespace ostrinka {

class BoundField;
class TableView;
struct FieldDef;

// Type codes of fields, as they stand in the file.
enum FieldType : int32_t {
  kByte = 1,
  kBoolean = 2,
  kInteger = 3,
  kLong = 4,
  kSingle = 5,
  kDouble = 6,
  kCurrency = 7,
  kDate = 8,
  kText = 9,
  kLink = 100,
  kMemo = 200,
};
enum UserType : int32_t { kOwner = 1024, kReadWrite = 512, kInvalidUser = 256 };
enum SortOrder { ordAsc = 1, ordDesc = 2 };
enum ExportFormat { kSeparatedValues = 64, kXml = 128 };

// A field by name (".NAME" raw, "@NAME" through the link) or by number from 1.
class FieldId {
 public:
  FieldId(int number) : number_(number), by_number_(true) {}
  FieldId(const char* name) : name_(name) {}
  FieldId(std::string_view name) : name_(name) {}
  FieldId(const std::string& name) : name_(name) {}
  bool by_number() const { return by_number_; }
  int number() const { return number_; }
  const std::string& name() const { return name_; }

 private:
  std::string name_;
  int number_ = -1;
  bool by_number_ = false;
};

// The stored values of some fields of one record, each decoded when it is asked for. Good for as long as the call lasts that hands it out.
class RecordCells {
 public:
  RecordCells(const char* bytes, const std::vector<const FieldDef*>& fields) : bytes_(bytes), fields_(fields) {}
  // Of the field named at `i`, from 0; a link gives its record number, an unknown field the empty value.
  Value operator[](size_t i) const;
  size_t size() const { return fields_.size(); }

 private:
  const char* bytes_;
  const std::vector<const FieldDef*>& fields_;
};

// A field and the value that it is to get.
struct FieldValue {
  FieldId field;
  Value value;
};

class ClassQDBASE {
 public:
  explicit ClassQDBASE(Platform& platform);
  ~ClassQDBASE();
  ClassQDBASE(const ClassQDBASE&) = delete;
  ClassQDBASE& operator=(const ClassQDBASE&) = delete;

  // --- events and errors
  std::function<void(int code, const std::string& message)> error_event;
  std::function<void(const std::string& line, bool start)> debug_event;  // start is false for "...OK"
  bool ShowErrMsg = false;
  void DErr(int code, std::string_view detail);
  int last_error_code() const;            // of the last failure since the opening began; -1 when there was none
  const std::string& last_error() const;  // "Can't open database < ... >", "" for none

  // --- table file and users
  bool DATABASE_OPEN(const std::string& file, std::string_view user, std::string_view password, bool create, bool select, bool links);
  void DATABASE_CLOSE();
  // Gives a table that a crash amid the test for sole use left under the name ".try" its name back, unless a file has that name.
  static void PutBack(FileSystem& files, const std::string& path);
  // Finishes a structure change of which a whole ".new" is left beside a table that is gone or has no header. False when there is none.
  static bool FinishChange(FileSystem& files, const std::string& path);
  bool IsOpen() const;
  std::string DATABASE_PATH() const;
  int64_t DATABASE_SIZE();
  bool Flush();  // returns when what was written stands on the disk
  bool UPDATE(bool reload);
  // Keeps the file from every other object, over as many operations as are made until LetGo() has been called as often: structure changes
  // in between find themselves alone, UPDATE keeps the file open. False when another object has it open. SoleUse does both.
  bool HoldAlone();
  void LetGo();
  int USER_COUNT();
  std::string USER_NAME(int n);
  std::string USER_PASS(int n);
  int32_t USER_TYPE(int n);
  int32_t LOGIN_TYPE() const;
  void ForReadingOnly();  // as if the login had no right to write, until the table is closed
  bool LOGIN_EXIST();
  [[nodiscard]] bool USER_ADD(std::string_view name, std::string_view password, int32_t type);
  [[nodiscard]] bool USER_DELETE(int n);
  [[nodiscard]] bool USER_SET(int n, std::string_view name, std::string_view password, int32_t type);

  // --- fields
  [[nodiscard]] bool FIELD_ADD(std::string_view name, int32_t type, int32_t length, std::string_view link_file,
                               std::string_view link_field);
  [[nodiscard]] bool FIELD_DELETE(const FieldId& id);
  bool FIELD_EXISTS(const FieldId& id);
  std::string FIELD_NAME(int n);
  std::string FIELD_LFILE(int n);
  std::string FIELD_LFIELD(int n);
  int32_t FIELD_TYPE(const FieldId& id);  // 0 on failure
  int32_t FIELD_LEN(const FieldId& id);   // 0 on failure
  [[nodiscard]] bool FIELD_RENAME(const FieldId& id, std::string_view new_name, bool force);
  [[nodiscard]] bool FIELD_SET(int n, std::string_view name, int32_t type, int32_t length);
  int FIELD_COUNT() const;

  // --- records
  [[nodiscard]] bool RECORD_ADD(const std::vector<Value>& values = {});
  // Number of the record that RECORD_ADD of this object wrote last, 0 before; another workstation may have added more since.
  int32_t RECORD_ADDED() const;
  bool RECORD_LOAD(int32_t n);
  [[nodiscard]] bool RECORD_SAVE(int32_t n, bool revive = false);
  [[nodiscard]] bool RECORD_DELETE(int32_t n);
  bool RECORD_EXIST(int32_t n);
  bool RECORD_LOCK(int32_t n);
  bool RECORD_UNLOCK(int32_t n);
  bool RECORD_SHOW(int32_t n);
  bool RECORD_SELECT(int32_t n) const;
  int32_t RECORD_LENGTH() const;
  int32_t RECORD_COUNT();  // -1 when closed
  int32_t RECORD_POSITION() const;
  bool RECORD_POSITION(int32_t n);
  void ForgetPosition();  // no record is current until the next is chosen
  bool MOVE_FIRST();
  bool MOVE_PREV();
  bool MOVE_NEXT();
  bool MOVE_LAST();
  // A field of the buffer: numbers as they are, anything else as text without nulls, trimmed; a date as text. Empty on failure.
  Value FIELD(const FieldId& id);
  [[nodiscard]] bool FIELD(const FieldId& id, const Value& value);
  // The same without the last step: a date stays a date.
  Value FieldRaw(const FieldId& id);
  // Readers of a known type; 0, false or "" where the value does not convert.
  std::string Text(const FieldId& id);
  int32_t Int(const FieldId& id);
  double Real(const FieldId& id);
  Currency Money(const FieldId& id);
  bool Flag(const FieldId& id);
  Date Day(const FieldId& id);
  // The shown text of a field of any record, read past the buffer, which stays as it is; "" where there is no such record.
  std::string TextOf(int32_t record, const FieldId& id);
  // The stored values of fields of any record, deleted ones too, read past the buffer: a link gives its record number, an unknown field
  // the empty value. False, with `values` empty, where there is no such record.
  bool READ(int32_t record, const std::vector<FieldId>& fields, std::vector<Value>& values);
  // Loads record `from`, sets these fields and saves all as record `n`, past position and buffer. False when one of them is unknown, and
  // where RECORD_LOAD, FIELD or RECORD_SAVE fail.
  [[nodiscard]] bool WRITE(int32_t n, int32_t from, const std::vector<FieldValue>& values);

  // --- selection
  // Called now and then during a long scan with 0 to 100; may be empty.
  std::function<void(int percent)> progress;
  int32_t SELECTION(std::string_view fields, std::string_view condition, std::string_view order_field, int order, int32_t first = 0,
                    int32_t last = 0);
  const std::vector<int32_t>& selection() const;
  // Calls `visit` for every live record in the order of the numbers, with the stored values of the fields (a link gives its record number,
  // an unknown field the empty value), until it returns false. Position, buffer and selection stay. False when closed.
  bool SCAN(const std::vector<FieldId>& fields, const std::function<bool(int32_t record, const std::vector<Value>& values)>& visit);
  // The same with the fields decoded only when they are asked for.
  bool WALK(const std::vector<FieldId>& fields, const std::function<bool(int32_t record, const RecordCells& cells)>& visit);
  const std::vector<int>& columns() const;  // field numbers on show

  // --- table view: the table's own (engine/table_view.h); others may stand beside it
  TableView& view();
  void TABLE_FIELD_FORMAT(const FieldId& field, int width, std::string_view title, std::string_view format, bool sum_up, int alignment);
  int ColumnWidth(int n) const;  // 0 for a number that no field can have
  void ColumnWidth(int n, int width);
  std::string ColumnTitle(int n) const;
  void TABLE_SUMUP(bool flag);
  void TABLE_DRAW(Canvas& surface, int first_row, int first_column, bool show_header, const TableLook& look);
  int TABLE_ROWS() const;
  // Whether another workstation changed the table since; clears that mark.
  bool TABLE_REFRESH();
  // Mode 0 makes the cell under a point and its record current; any other finds the lowest cell of the column that was clicked last.
  bool TABLE_CLICK(int mode, int x, int y, int& left, int& top, int& width, int& height);
  int TABLE_COLUMN(int x, int y) const;                                        // -1 for none
  int CELL_GOTO(int direction, int& left, int& top, int& width, int& height);  // the status
  int MAX_ROWS() const;
  int MAX_COLUMNS() const;
  bool HideTSelectRow() const;
  void HideTSelectRow(bool hide);
  const std::vector<TableCell>& cells() const;
  int clicked_field() const;
  // Text of a cell as the view shows it: row from 1 in the selection, field number.
  std::string CellText(int row, int field, const TableLook& look);

  // --- form binding
  // The form whose fields FORM_OBJECT_ADD binds; the one before is let go as it stands.
  void FORM_CONNECT(Modal& form);
  // Clears the bound fields and lets go of them and of the form.
  void FORM_DISCONNECT();
  // Takes no field of another form, and attachments for a field of that type alone. A list bound to a link is filled with its records.
  void FORM_OBJECT_ADD(std::unique_ptr<BoundField> shown, const FieldId& field);
  void FORM_REFRESH();             // fills the bound fields from the current record
  [[nodiscard]] bool FORM_SAVE();  // copies their content into the buffer; false when a field does not take it

  // --- attachments
  [[nodiscard]] bool MEMO_ADD(const FieldId& field, const std::string& file);
  [[nodiscard]] bool MEMO_DEL(const FieldId& field, int index);
  bool MEMO_EXEC(const FieldId& field, int index);
  void MEMO_REFRESH(const FieldId& field);
  // Of `memo_file`, or of this table's companion when empty.
  bool MEMO_FILE_COMPRESS_(const std::string& memo_file = {});

  // --- export
  bool DATABASE_EXPORT(const std::string& file, int format, bool all, char separator, char quote);

 private:
  friend class TableView;
  struct State;
  std::unique_ptr<State> state_;
};

// Sole use of an open table for as long as it lives.
class SoleUse {
 public:
  explicit SoleUse(ClassQDBASE& table) : table_(table), held_(table.HoldAlone()) {}
  ~SoleUse() {
    if (held_) table_.LetGo();
  }
  SoleUse(const SoleUse&) = delete;
  SoleUse& operator=(const SoleUse&) = delete;
  bool held() const { return held_; }

 private:
  ClassQDBASE& table_;
  bool held_;
};

}  // namespace ostrinka
