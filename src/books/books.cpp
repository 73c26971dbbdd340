#include "books/books.h"

namespace ostrinka {
namespace {

// Fills the record that RECORD_ADD has just written from `source`.
int32_t AddFrom(ClassQDBASE& table, int32_t source, const std::vector<FieldValue>& values) {
  if (!table.RECORD_ADD()) return 0;
  const int32_t added = table.RECORD_ADDED();
  if (table.WRITE(added, source < 1 ? added : source, values)) return added;
  // What follows tells of the failure; a record that cannot even be marked stays empty, and lists show it as such.
  static_cast<void>(table.RECORD_DELETE(added));
  return 0;
}

}  // namespace

void ColumnValues::DropEqual(const ColumnValues& other) {
  size_t kept = 0;
  for (size_t i = 0; i < values_.size(); ++i) {
    const bool equal =
        i < other.values_.size() && values_[i].field.name() == other.values_[i].field.name() && values_[i].value == other.values_[i].value;
    if (!equal) values_[kept++] = values_[i];
  }
  values_.resize(kept, {FieldId(0), {}});
}

std::string LinkText(Program& program, const Column<Link>& column, int32_t record) {
  return record < 1 ? std::string() : Table(program, column.table).TextOf(record, column.name);
}

bool IsLive(Program& program, int table, int32_t record) {
  return record >= 1 && Table(program, table).RECORD_EXIST(record);
}

bool Store(Program& program, int table, int32_t record, const ColumnValues& values) {
  return record >= 1 && Table(program, table).WRITE(record, record, values.all());
}

int32_t Add(Program& program, int table, const ColumnValues& values) {
  return AddFrom(Table(program, table), 0, values.all());
}

int32_t AddCopy(Program& program, int table, int32_t source, const ColumnValues& changes) {
  // A source that is not there would leave the new record filled by nothing.
  return source < 1 || source > Table(program, table).RECORD_COUNT() ? 0 : AddFrom(Table(program, table), source, changes.all());
}

}  // namespace ostrinka
