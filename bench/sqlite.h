// The other side: SQLite with its default settings, and the copy of a company in it.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "app/program.h"
#include "base/value.h"
#include "engine/qdbase.h"

namespace ostrinka::bench {

class Sqlite {
 public:
  explicit Sqlite(const std::string& path);
  ~Sqlite() { sqlite3_close(handle_); }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;

  sqlite3* handle() { return handle_; }
  void Run(const std::string& statement);

 private:
  sqlite3* handle_ = nullptr;
};

// A prepared statement; every failure ends the program.
class Statement {
 public:
  Statement(Sqlite& database, const std::string& text);
  ~Statement() { sqlite3_finalize(handle_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Parameters count from 1, columns from 0.
  Statement& Bind(int parameter, const Value& value);
  bool Step();  // whether a row stands there
  void Reset() { sqlite3_reset(handle_); }
  int64_t Integer(int column) { return sqlite3_column_int64(handle_, column); }
  double Real(int column) { return sqlite3_column_double(handle_, column); }
  const unsigned char* Text(int column) { return sqlite3_column_text(handle_, column); }
  // The first column of all rows; the statement is ready to run again.
  std::vector<int32_t> Numbers();

 private:
  sqlite3_stmt* handle_ = nullptr;
};

// CREATE TABLE with the columns of an open table, in its order.
std::string CreateStatement(const std::string& name, ClassQDBASE& table);
// INSERT with a parameter for each column.
std::string InsertStatement(const std::string& name, ClassQDBASE& table);
// A record's stored values: links as record numbers, texts as texts.
std::vector<Value> StoredValues(ClassQDBASE& table, int32_t record);

// Makes `path` with all open tables of the company, named by their files without the ending, rowid equal to the record number.
void CopyCompany(Program& program, const std::string& path);
std::string SqlName(int table_number);

}  // namespace ostrinka::bench
