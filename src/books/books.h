// Reading and writing the company's tables by typed rows and columns.
//
// Everything here goes past position, buffer and selection of the open tables: a list, a bound form and a record being edited stay as they
// are. Deleted records can be read, since links go on leading to them. A table that is not open reads as empty and takes nothing.
#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "app/program.h"
#include "books/column.h"

namespace ostrinka {

// Values for some columns of one record, as a form or a rule gathers them.
class ColumnValues {
 public:
  template <typename T>
  ColumnValues& Set(const Column<T>& column, const std::type_identity_t<Held<T>>& value) {
    values_.push_back({column.name, Value(value)});
    return *this;
  }
  // The value last set for the column; nothing when none was.
  template <typename T>
  std::optional<Held<T>> Get(const Column<T>& column) const {
    for (auto at = values_.rbegin(); at != values_.rend(); ++at) {
      if (at->field.name() == column.name) return FromStored(column, at->value);
    }
    return std::nullopt;
  }
  const std::vector<FieldValue>& all() const { return values_; }
  // Leaves out what `other`, made in the same order, has as well.
  void DropEqual(const ColumnValues& other);

 private:
  std::vector<FieldValue> values_;
};

// The columns of a row with its values.
template <typename Row>
ColumnValues ValuesOf(const Row& row) {
  ColumnValues values;
  Row::Each(row, [&](const auto& column, const auto& member) { values.Set(column, member); });
  return values;
}
template <typename Row>
const std::vector<FieldId>& FieldsOf() {
  static const std::vector<FieldId> kFields = [] {
    std::vector<FieldId> fields;
    const Row row;
    Row::Each(row, [&](const auto& column, const auto&) { fields.emplace_back(column.name); });
    return fields;
  }();
  return kFields;
}
template <typename Row, typename Cells>
Row RowFrom(const Cells& cells) {
  Row row;
  size_t i = 0;
  Row::Each(row, [&](const auto& column, auto& member) { member = FromStored(column, cells[i++]); });
  return row;
}

// --- reading

// The row in `record`, also a deleted one; nothing where there is no such record.
template <typename Row>
std::optional<Row> Read(Program& program, int32_t record) {
  std::vector<Value> values;
  if (record < 1 || !Table(program, Row::kTable).READ(record, FieldsOf<Row>(), values)) return std::nullopt;
  return RowFrom<Row>(values);
}
// One column of a record; 0, false or "" where there is no such record.
template <typename T>
Held<T> ReadColumn(Program& program, const Column<T>& column, int32_t record) {
  std::vector<Value> values;
  if (record < 1 || !Table(program, column.table).READ(record, {column.name}, values)) return {};
  return FromStored(column, values[0]);
}
// The text that a link of the record shows, that of a deleted record too; "" where the link leads nowhere.
std::string LinkText(Program& program, const Column<Link>& column, int32_t record);
// Whether the record is there and not deleted.
bool IsLive(Program& program, int table, int32_t record);

// Calls `visit(record, row)` for every live record in their order until it returns false.
template <typename Row, typename Visit>
void EachRow(Program& program, Visit visit) {
  Table(program, Row::kTable).WALK(FieldsOf<Row>(), [&](int32_t record, const RecordCells& cells) {
    return visit(record, RowFrom<Row>(cells));
  });
}
// Calls `visit(record, value...)` with these columns of every live record of table `table` until it returns false. The number stands
// for itself where tables of one shape are walked; elsewhere it is that of the columns.
template <typename Visit, typename... T>
void EachOf(Program& program, int table, Visit visit, const Column<T>&... columns) {
  Table(program, table).WALK({FieldId(columns.name)...}, [&](int32_t record, const RecordCells& cells) {
    return [&]<size_t... I>(std::index_sequence<I...>) {
      return visit(record, FromStored(columns, cells[I])...);
    }
    (std::index_sequence_for<T...>());
  });
}

// --- writing

// Sets these columns of a record and saves it; everything else stays. False when it could not be written.
[[nodiscard]] bool Store(Program& program, int table, int32_t record, const ColumnValues& values);
template <typename T>
[[nodiscard]] bool StoreColumn(Program& program, const Column<T>& column, int32_t record, const std::type_identity_t<Held<T>>& value) {
  return Store(program, column.table, record, ColumnValues().Set(column, value));
}
// Saves the row as `record`. A column that holds its value already keeps it byte for byte.
template <typename Row>
[[nodiscard]] bool Store(Program& program, int32_t record, const Row& row) {
  const std::optional<Row> stored = Read<Row>(program, record);
  if (!stored) return false;
  ColumnValues values = ValuesOf(row);
  values.DropEqual(ValuesOf(*stored));
  return Store(program, Row::kTable, record, values);
}
// Adds a record with these columns; its number. 0 when it could not be written: the empty record is deleted then.
[[nodiscard]] int32_t Add(Program& program, int table, const ColumnValues& values);
template <typename Row>
[[nodiscard]] int32_t Add(Program& program, const Row& row) {
  return Add(program, Row::kTable, ValuesOf(row));
}
// Adds a copy of `source`, every field as it is but for these columns; else as Add.
[[nodiscard]] int32_t AddCopy(Program& program, int table, int32_t source, const ColumnValues& changes);

}  // namespace ostrinka
