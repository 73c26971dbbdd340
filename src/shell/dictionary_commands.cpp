// The commands of the tab of dictionaries: which one is on show, adding, editing and deleting its rows in place.
#include <algorithm>

#include "shell/main_window.h"

namespace ostrinka {

void MainWindow::PickDictionary(const Command& command, int) {
  if (CurrentTable != -2) UserTab("SŁOWNIKI");
  for (const Command& other : Commands()) {
    if (other.run == &MainWindow::PickDictionary) ribbon.ButtonChecked(other.key, other.key == command.key);
  }
  DictionaryTable = command.table;
  first_row_ = 1;
}

void MainWindow::AddDictionaryRecord(const Command&, int) {
  if (!TableIsOpen(program_, DictionaryTable)) {
    program_.platform.ui.Beep();
    return;
  }
  if (program_.Message("msg.question.addnewrecord", MessageKind::kQuestion) != Answer::kYes) return;
  if (CurrentTable != -2) UserTab("SŁOWNIKI");
  ClassQDBASE& table = Table(program_, DictionaryTable);
  if (!table.RECORD_ADD()) {
    program_.Message("mdi.message.dict.error", MessageKind::kError);
    return;
  }
  sort_[static_cast<size_t>(DictionaryTable)] = shown_order_[static_cast<size_t>(DictionaryTable)] = {};
  table.SELECTION("~", "*", "", ordAsc);
  table.MOVE_LAST();
  ref_();
  dictionary.Click(DictionaryTable, table.RECORD_POSITION(), 1);
}

void MainWindow::EditDictionaryRecord(const Command&, int) {
  if (CurrentTable != -2 || !TableIsOpen(program_, DictionaryTable)) {
    program_.platform.ui.Beep();
    return;
  }
  const int32_t record = CurrentRecord(DictionaryTable);
  if (record == 0) {
    program_.Message("msg.info.norecordstoedit", MessageKind::kInformation);
  } else {
    dictionary.Edit(DictionaryTable, record);
  }
}

// Nothing asks whether the record is in use (kept: documents go on reading it through their links).
void MainWindow::DeleteDictionaryRecord(const Command&, int) {
  if (!TableIsOpen(program_, DictionaryTable)) {
    program_.platform.ui.Beep();
    return;
  }
  const int32_t record = CurrentRecord(DictionaryTable);
  if (record == 0) {
    program_.Message("msg.info.norecordstodel", MessageKind::kInformation);
    return;
  }
  if (program_.Message("msg.question.deleterecord", MessageKind::kQuestion) != Answer::kYes) return;
  ClassQDBASE& table = Table(program_, DictionaryTable);
  table.RECORD_POSITION(record);
  if (!table.RECORD_DELETE(record)) {
    program_.Message("mdi.message.dict.error", MessageKind::kError);
    return;
  }
  // The row that took the place of the deleted one becomes the current one.
  const int32_t neighbour = table.RECORD_POSITION();
  const SortState& sort = sort_[static_cast<size_t>(DictionaryTable)];
  table.SELECTION("~", "*", sort.field, sort.order);
  if (table.RECORD_SELECT(neighbour)) table.RECORD_POSITION(neighbour);
}

bool MainWindow::UserCell(int row, int column) {
  if (!UserRow(row)) return false;
  ClassQDBASE& table = *ViewTable();
  if (column < 1 || column > table.MAX_COLUMNS()) return false;
  if (CurrentTable == -2) dictionary.Click(DictionaryTable, table.RECORD_POSITION(), column);
  return true;
}

}  // namespace ostrinka
