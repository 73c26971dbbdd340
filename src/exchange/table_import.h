// The course of an import: columns, rows, cells, duplicates, writing. What is particular to a kind of record comes from a derived class.
#pragma once

#include <map>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "books/column.h"
#include "exchange/import_columns.h"
#include "exchange/import_dictionaries.h"
#include "exchange/import_result.h"
#include "exchange/separated_file.h"

namespace ostrinka {

// What tells one record from another, and the sentence for a row that says the same of itself.
struct RecordIdentity {
  std::string key;
  const char* sentence;  // catalogue key; {0} is the name of the record that has it already
};

class TableImport {
 public:
  virtual ~TableImport() = default;
  ImportResult Run(const std::string& path);

 protected:
  // `name` is the column that every row must fill; its table is the one that the rows go into.
  TableImport(Program& program, const Column<std::string>& name, std::span<const ColumnAlias> aliases);

  // Fills what follows from the row's other values. A sentence when the row cannot come in, "" otherwise.
  virtual std::string Complete() = 0;
  // Texts of numbers that do not check: the row comes in, but it is told.
  virtual void Doubts() {}
  // The fields that Identities reads, and what it makes of their values, in their order.
  virtual std::vector<FieldId> IdentityFields() const = 0;
  virtual std::vector<RecordIdentity> Identities(const std::vector<Value>& values) const = 0;

  // The row's value of a column; the empty value where the row has none.
  template <typename T>
  const Value& At(const Column<T>& column) const {
    return At(column.name);
  }
  template <typename T>
  void Put(const Column<T>& column, Value value) {
    Put(column.name, std::move(value));
  }
  // Whether the file has a column for it.
  template <typename T>
  bool HasColumn(const Column<T>& column) const {
    return HasColumn(column.name);
  }
  template <typename T>
  void Doubt(const Column<T>& column, std::string_view sentence_key) {
    Doubt(column.name, sentence_key);
  }

  Program& program_;
  ImportDictionaries dictionaries_;

 private:
  // By field name.
  const Value& At(std::string_view field) const;
  void Put(std::string_view field, Value value);
  bool HasColumn(std::string_view field) const;
  void Doubt(std::string_view field, std::string_view sentence_key);
  // The heading of the field's column, its name where there is none.
  std::string Heading(std::string_view field) const;

  bool ReadHeadings(SeparatedFile& file);
  void NoteExisting();
  void Take(const SeparatedRow& row);
  std::string ReadCells(const SeparatedRow& row);
  std::string ReadCell(const ImportColumn& column, const std::string& cell);
  std::string ReadText(const ImportColumn& column, const std::string& cell);
  std::string ReadNumberCell(const ImportColumn& column, const std::string& cell);
  std::string ReadFlag(const ImportColumn& column, const std::string& cell);
  std::string ReadLink(const ImportColumn& column, const std::string& text);
  std::string TextFault(const std::string& heading, const std::string& text, int32_t length) const;
  std::string Duplicate() const;
  std::vector<RecordIdentity> RowIdentities() const;
  bool Write();
  void LeaveOut(const SeparatedRow& row, const std::string& reason);
  std::string Sentence(int row, const std::string& reason) const;
  size_t IndexOf(std::string_view field) const;
  int LinkedTable(int field);

  const int number_;
  const std::string name_;  // of the field that names a record
  ClassQDBASE& table_;
  const std::span<const ColumnAlias> aliases_;
  size_t headings_ = 0;  // of the file, also empty ones
  std::vector<ImportColumn> columns_;
  std::map<std::string, size_t, std::less<>> index_;    // of a field by its name
  std::unordered_map<std::string, std::string> known_;  // name of the record by identity
  ImportResult result_;
  // The row that is being read.
  std::vector<Value> values_;
  std::map<size_t, std::string> new_entries_;  // texts that become dictionary entries, by the index of the link
  std::vector<std::string> doubts_;
};

}  // namespace ostrinka
