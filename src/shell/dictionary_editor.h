// A dictionary edited in place: which cell of the list is open, what it may hold, how it is written back.
//
// One cell at a time: text and numbers in `txtEdit`, a record of another table in the list `txtLink`; a boolean cell is never open, a click
// negates it. What was typed is written when the cell is left, and before any command of the main window.
#pragma once

#include <cstdint>

#include "app/program.h"
#include "controls/form.h"
#include "engine/qdbase.h"

namespace ostrinka {

class DictionaryEditor : public Form {
 public:
  explicit DictionaryEditor(Program& program);

  TextBoxControl txtEdit;
  ComboControl txtLink;

  enum class Cell { kNone, kText, kList };
  Cell cell() const { return cell_; }
  Control* Front();  // the control that is open; null when none is
  int32_t record() const { return record_; }
  int column() const { return column_; }      // from 1 of those on show; of the cell last edited when none is open
  bool OfNumber() const;                      // the cell last opened holds a number
  std::string Heading() const;                // of its column
  int openings() const { return openings_; }  // counts the cells opened so far: a window sees by it that another one is open

  // A click on a cell of the table numbered `table`: negates a boolean, opens any other. False for a cell that is not on show.
  bool Click(int table, int32_t record, int column);
  // Opens the first cell of that row that takes text, from the column last edited on. False when there is none.
  bool Edit(int table, int32_t record);
  // The blank key: changes the boolean of the row, or opens its list. False when the row has neither.
  bool ChangeMark(int table, int32_t record);

  // Writes what was typed and closes the cell; true when nothing is open. A value that the field does not take, or a record that cannot be
  // written, is told, and the record stays as it was.
  bool VSC_GOTO_END_();
  // Closes the cell and forgets what was typed.
  void Cancel();
  // Writes, then opens the next cell that takes text: by column and row, or `rows` further in the same column.
  void NextCell(bool forward);
  void OtherRow(int rows);
  // Keys of an open cell by their codes: Enter, Tab, Esc, up and down; Delete clears what stands chosen, and the keys of the caret stay
  // here.
  bool UserKey(int code, bool ctrl) override;

 private:
  ClassQDBASE& Shown() const;
  int FieldOf(int column) const;  // 0 for a column that is not on show
  int TypeOf(int column) const;
  bool TakesText(int column) const;
  int RowOf(int32_t record) const;  // from 0 in the selection, -1 for none
  bool OpenText(int32_t record, int column);
  bool OpenList(int32_t record, int column);
  bool Negate(int32_t record, int column);
  void Choose();
  void Hide();
  bool Store(int32_t record, int field, const Value& value);
  void Failed();

  Program& program_;
  int table_ = 0;
  Cell cell_ = Cell::kNone;
  int32_t record_ = 0;
  int column_ = 1, openings_ = 0;
  std::string before_;   // what the cell held when it was opened
  bool chosen_ = false;  // all of it is selected still
};

}  // namespace ostrinka
