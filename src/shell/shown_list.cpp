#include "shell/shown_list.h"

#include <algorithm>
#include <iterator>

#include "shell/tabs.h"

namespace ostrinka {
namespace {

constexpr double kLeastZoom = 0.5, kMostZoom = 2;

}  // namespace

int ShownList::TableNumber() const {
  return CurrentTable == kReportsTab ? ReportTable : CurrentTable == kDictionariesTab ? DictionaryTable : CurrentTable;
}

ClassQDBASE* ShownList::Table() {
  const int number = TableNumber();
  return number > 0 && TableIsOpen(program_, number) ? &ostrinka::Table(program_, number) : nullptr;
}

int32_t ShownList::CurrentRecord(int number) {
  ClassQDBASE& table = ostrinka::Table(program_, number);
  const int32_t record = table.RECORD_POSITION();
  return table.RECORD_COUNT() >= 1 && record >= 1 && table.RECORD_SELECT(record) && table.RECORD_EXIST(record) ? record : 0;
}

std::pair<int, int> ShownList::Order() {
  ClassQDBASE* table = Table();
  if (!table) return {0, ordAsc};
  const ListOrder& order = shown_[Slot(TableNumber())];
  for (int column = 1; column <= table->MAX_COLUMNS(); ++column) {
    const std::string name = table->FIELD_NAME(table->columns()[static_cast<size_t>(column - 1)]);
    if (!order.field.empty() && (order.field == name || order.field == "@" + name)) return {column, order.direction};
  }
  return {0, ordAsc};
}

void ShownList::Zoom(double zoom) {
  zoom_ = std::clamp(zoom, kLeastZoom, kMostZoom);
}

TableLook ShownList::Look() const {
  TableLook look;
  look.zoom = zoom_;
  return look;
}

bool ShownList::New() {
  // A table opened anew may lie where the old one did: only the owner tells them apart.
  return Table() && filled_[Slot(TableNumber())].lock() != OpenTable(program_, TableNumber());
}

void ShownList::Fill() {
  const int number = TableNumber();
  filled_[Slot(number)] = OpenTable(program_, number);
  kept_[Slot(number)] = {};
  filtered_[Slot(number)] = false;
  List(number, "*", {});
  ClassQDBASE& table = ostrinka::Table(program_, number);
  if (!table.RECORD_SELECT(table.RECORD_POSITION()) && table.MAX_ROWS() > 0) table.RECORD_POSITION(table.selection()[0]);
}

void ShownList::List(int table, std::string_view condition, const ListOrder& order) {
  shown_[Slot(table)] = order;
  const ListOrder now = order;  // a large table lets events run, which may change what `order` refers to
  ostrinka::Table(program_, table).SELECTION("~", condition, now.field, now.direction);
}

void ShownList::Choose(int table, std::string_view condition, const ListOrder& order) {
  List(table, condition, order);
  Chosen(table, condition != "*");
}

void ShownList::Chosen(int number, bool filtered) {
  ClassQDBASE& table = ostrinka::Table(program_, number);
  if (!table.RECORD_SELECT(table.RECORD_POSITION())) table.MOVE_FIRST();
  filtered_[Slot(number)] = filtered;
}

bool ShownList::OrderByColumn(int column) {
  ClassQDBASE* table = Table();
  if (!table || column < 1 || column > table->MAX_COLUMNS()) return false;
  const int number = TableNumber(), field = table->columns()[static_cast<size_t>(column - 1)];
  int& direction = directions_[{number, field}];
  direction = direction == ordAsc ? ordDesc : ordAsc;
  KeepOrder(number, {(table->FIELD_TYPE(field) == kLink ? "@" : "") + table->FIELD_NAME(field), direction});
  List(number, "~", KeptOrder(number));
  return true;
}

bool ShownList::Move(int table, int arrow) {
  constexpr bool (ClassQDBASE::*kMoves[])() = {&ClassQDBASE::MOVE_FIRST, &ClassQDBASE::MOVE_PREV, &ClassQDBASE::MOVE_NEXT,
                                               &ClassQDBASE::MOVE_LAST};
  if (arrow < 0 || arrow >= static_cast<int>(std::size(kMoves))) return false;
  (ostrinka::Table(program_, table).*kMoves[arrow])();
  return true;
}

}  // namespace ostrinka
