#include "sqlite.h"

#include <filesystem>

#include "company/table_definitions.h"
#include "measure.h"

namespace ostrinka::bench {
namespace {

const char* SqlType(int32_t type) {
  switch (type) {
    case kText:
      return "TEXT";
    case kSingle:
    case kDouble:
    case kCurrency:
    case kDate:
      return "REAL";
    default:
      return "INTEGER";
  }
}

void CopyTable(Sqlite& database, int number, ClassQDBASE& table) {
  const std::string name = SqlName(number);
  database.Run(CreateStatement(name, table));
  Statement insert(database, InsertStatement(name, table));
  const int32_t count = table.RECORD_COUNT();
  for (int32_t record = 1; record <= count; ++record) {
    const std::vector<Value> values = StoredValues(table, record);
    for (size_t i = 0; i < values.size(); ++i) insert.Bind(static_cast<int>(i) + 1, values[i]);
    insert.Step();
    insert.Reset();
  }
}

}  // namespace

Sqlite::Sqlite(const std::string& path) {
  if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) GiveUp("SQLite cannot open " + path);
}

void Sqlite::Run(const std::string& statement) {
  if (sqlite3_exec(handle_, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) GiveUp(statement + ": " + sqlite3_errmsg(handle_));
}

Statement::Statement(Sqlite& database, const std::string& text) {
  if (sqlite3_prepare_v2(database.handle(), text.c_str(), -1, &handle_, nullptr) == SQLITE_OK) return;
  GiveUp(text + ": " + sqlite3_errmsg(database.handle()));
}

Statement& Statement::Bind(int parameter, const Value& value) {
  int result = SQLITE_OK;
  if (const std::string* text = std::get_if<std::string>(&value)) {
    result = sqlite3_bind_text(handle_, parameter, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
  } else if (const bool* flag = std::get_if<bool>(&value)) {
    result = sqlite3_bind_int(handle_, parameter, *flag ? 1 : 0);
  } else if (std::holds_alternative<Date>(value)) {
    result = sqlite3_bind_double(handle_, parameter, std::get<Date>(value).days());
  } else if (std::holds_alternative<double>(value) || std::holds_alternative<float>(value) || std::holds_alternative<Currency>(value)) {
    result = sqlite3_bind_double(handle_, parameter, DoubleOr0(value));
  } else {
    result = sqlite3_bind_int64(handle_, parameter, Int32Or0(value));
  }
  Require(result == SQLITE_OK, "SQLite does not take a value");
  return *this;
}

bool Statement::Step() {
  const int result = sqlite3_step(handle_);
  Require(result == SQLITE_ROW || result == SQLITE_DONE, "a statement of SQLite failed");
  return result == SQLITE_ROW;
}

std::vector<int32_t> Statement::Numbers() {
  std::vector<int32_t> numbers;
  while (Step()) numbers.push_back(static_cast<int32_t>(Integer(0)));
  Reset();
  return numbers;
}

std::string SqlName(int table_number) {
  std::string name = TableFile(table_number);
  if (name.ends_with(".ovd")) name.resize(name.size() - 4);
  for (char& c : name) c = c == '.' ? '_' : c;
  return name;
}

std::string CreateStatement(const std::string& name, ClassQDBASE& table) {
  std::string columns;
  for (int n = 1; n <= table.FIELD_COUNT(); ++n) {
    columns += (n > 1 ? ", \"" : "\"") + table.FIELD_NAME(n) + "\" " + SqlType(table.FIELD_TYPE(n));
  }
  return "CREATE TABLE " + name + " (" + columns + ")";
}

std::string InsertStatement(const std::string& name, ClassQDBASE& table) {
  std::string parameters = "?";
  for (int n = 2; n <= table.FIELD_COUNT(); ++n) parameters += ",?";
  return "INSERT INTO " + name + " VALUES (" + parameters + ")";
}

std::vector<Value> StoredValues(ClassQDBASE& table, int32_t record) {
  Require(table.RECORD_LOAD(record), "a record cannot be loaded");
  std::vector<Value> values;
  for (int n = 1; n <= table.FIELD_COUNT(); ++n) values.push_back(table.FieldRaw(n));
  return values;
}

void CopyCompany(Program& program, const std::string& path) {
  std::filesystem::remove(path);
  Sqlite database(path);
  database.Run("BEGIN");
  for (const TableDefinition& definition : TableDefinitions()) CopyTable(database, definition.number, Table(program, definition.number));
  database.Run("COMMIT");
}

}  // namespace ostrinka::bench
