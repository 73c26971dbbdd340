// The list on show: which table it is, what of it was chosen, in which order.
//
// Every table keeps its choice and order while another one is on show. The order has two sides: what the next search keeps to, and what the
// list shows now; a period or a range of letters shows the records in their own order, and the next search sorts them again.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "books/books.h"

namespace ostrinka {

struct ListOrder {
  std::string field;  // as SELECTION takes it; "" the order of the records
  int direction = ordAsc;
};

class ShownList {
 public:
  explicit ShownList(Program& program) : program_(program) {}

  int16_t CurrentTable = kDokSprzed;         // of the tab in front: a table's number, kReportsTab, kDictionariesTab, or 0
  int DictionaryTable = 0, ReportTable = 0;  // what those two tabs show; 0 none yet
  int first_row = 1;                         // the row that is drawn first, from 1
  bool visible = true;                       // false while a company is being opened

  int TableNumber() const;  // 0 for none
  ClassQDBASE* Table();     // null when none is open
  // The current record of a table, 0 when no row of its list is current.
  int32_t CurrentRecord(int table);
  // The column, from 1 of those on show, that the list is ordered by, and ordAsc or ordDesc; 0 for none.
  std::pair<int, int> Order();
  // Whether a choice keeps records off the list.
  bool Filtered() const { return TableNumber() > 0 && filtered_[Slot(TableNumber())]; }

  double zoom() const { return zoom_; }
  void Zoom(double zoom);  // 1 is 100 %; a zoom at which the list cannot be read is brought within its bounds
  TableLook Look() const;

  // True for a table that was opened since its list was last filled.
  bool New();
  // Fills the list of such a table with all its records.
  void Fill();

  // The order that a search in the table keeps to.
  const ListOrder& KeptOrder(int table) const { return kept_[Slot(table)]; }
  void KeepOrder(int table, const ListOrder& order) { kept_[Slot(table)] = order; }
  // Lists the records of the table under a condition of SELECTION, in that order; nothing else of the list changes.
  void List(int table, std::string_view condition, const ListOrder& order);
  // The same as a choice: a list that holds something gets a current record, which the commands that follow work on.
  void Choose(int table, std::string_view condition, const ListOrder& order = {});
  // The same with those records of the column's table whose value `wanted` takes.
  template <typename T, typename Wanted>
  void ChooseWhere(const Column<T>& column, Wanted wanted) {
    List(column.table, "!", {});
    const auto show = [&](int32_t record, const Held<T>& value) {
      if (wanted(value)) ostrinka::Table(program_, column.table).RECORD_SHOW(record);
      return true;
    };
    EachOf(program_, column.table, show, column);
    Chosen(column.table, true);
  }
  // Orders the list by a column, from 1 of those on show, each time the other way. False for no such column.
  bool OrderByColumn(int column);
  void ForgetDirections() { directions_.clear(); }

  // 0 to 3: first, previous, next, last record of the table. False for any other number.
  bool Move(int table, int arrow);

 private:
  static size_t Slot(int table) { return static_cast<size_t>(table); }
  void Chosen(int table, bool filtered);

  Program& program_;
  double zoom_ = 1;
  std::array<std::weak_ptr<ClassQDBASE>, kTableSlots + 1> filled_;  // tables whose list was filled
  std::array<bool, kTableSlots + 1> filtered_{};
  std::array<ListOrder, kTableSlots + 1> kept_, shown_;
  std::map<std::pair<int, int>, int> directions_;  // the last one by table and field
};

}  // namespace ostrinka
