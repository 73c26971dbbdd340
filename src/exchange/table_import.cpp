#include "exchange/table_import.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/text.h"
#include "books/columns.h"
#include "company/table_definitions.h"
#include "company/tables.h"
#include "exchange/import_check.h"

namespace ostrinka {
namespace {

constexpr size_t kShownName = 40;        // characters
constexpr size_t kMostNewEntries = 300;  // a wrong column must not fill a dictionary

// Fields whose boxes take line ends.
constexpr std::string_view kLongTexts[] = {
    customer_columns::kName.name,  customer_columns::kOwnAccount.name, customer_columns::kOwnAccountText.name,
    customer_columns::kNotes.name, article_columns::kName.name,        article_columns::kDescription.name,
    article_columns::kNotes.name};

struct FlagWord {
  std::string_view word;  // folded
  bool meaning;
};
constexpr FlagWord kFlagWords[] = {
    {"true", true},   {"tak", true},  {"t", true},  {"prawda", true}, {"1", true},  {"-1", true}, {"x", true},      {"usluga", true},
    {"false", false}, {"nie", false}, {"n", false}, {"falsz", false}, {"0", false}, {"-", false}, {"towar", false},
};

struct FaultSentence {
  RowFault fault;
  const char* key;
};
constexpr FaultSentence kFaultSentences[] = {
    {RowFault::kTooLong, "imp.row.long"},
    {RowFault::kOpenQuote, "imp.row.openquote"},
    {RowFault::kTextAfterQuote, "imp.row.afterquote"},
    {RowFault::kControlLetter, "imp.row.control"},
};

struct Bounds {
  int32_t type;
  double low, high;
};
constexpr Bounds kWholeNumbers[] = {
    {kByte, 0, 255},
    {kInteger, std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max()},
    {kLong, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()},
};

// Tabs, and line ends where the field has one line, become blanks.
std::string CleanText(std::string_view cell, bool one_line) {
  std::string text;
  for (const char letter : cell) {
    const bool gap = letter == '\t' || (one_line && (letter == '\r' || letter == '\n'));
    if (!gap) {
      text += letter;
    } else if (!text.empty() && text.back() != ' ') {
      text += ' ';
    }
  }
  return Trim(text);
}

// Where both signs stand in an amount, the first of them only groups: "1.234,56" and "1,234.56".
std::string WithoutGrouping(std::string text) {
  const size_t comma = text.find(','), point = text.find('.');
  if (comma == text.npos || point == text.npos) return text;
  return ReplaceAll(text, comma < point ? "," : ".", "");
}

}  // namespace

TableImport::TableImport(Program& program, const Column<std::string>& name, std::span<const ColumnAlias> aliases)
    : program_(program),
      dictionaries_(program),
      number_(name.table),
      name_(name.name),
      table_(Table(program, name.table)),
      aliases_(aliases) {}

ImportResult TableImport::Run(const std::string& path) {
  if (!TableIsOpen(program_, number_)) {
    result_.error = program_.Text("msg.info.dbnotopen");
    return std::move(result_);
  }
  SeparatedFile file;
  result_.error = OpenFault(program_, file.Open(program_.platform.files, path), path);
  if (!result_.error.empty() || !ReadHeadings(file)) return std::move(result_);
  NoteExisting();
  SeparatedRow row;
  while (result_.error.empty() && file.Next(row)) Take(row);
  return std::move(result_);
}

bool TableImport::ReadHeadings(SeparatedFile& file) {
  SeparatedRow row;
  if (!file.Next(row) || row.fault != RowFault::kNone) {
    result_.error = program_.Text("imp.err.nottext");
    return false;
  }
  headings_ = row.fields.size();
  columns_ = MatchColumns(table_, aliases_, row.fields, result_.ignored_columns);
  for (int n = 1; n <= table_.FIELD_COUNT(); ++n) index_.emplace(table_.FIELD_NAME(n), static_cast<size_t>(n) - 1);
  if (HasColumn(name_)) return true;
  result_.ignored_columns.clear();
  result_.error = program_.Text("imp.err.noname");
  return false;
}

void TableImport::NoteExisting() {
  std::vector<FieldId> fields = IdentityFields();
  fields.emplace_back(name_);
  table_.SCAN(fields, [&](int32_t, const std::vector<Value>& values) {
    for (const RecordIdentity& identity : Identities(values)) known_.emplace(identity.key, Trim(ToText(values.back())));
    return true;
  });
}

void TableImport::Take(const SeparatedRow& row) {
  values_.assign(static_cast<size_t>(table_.FIELD_COUNT()), Value());
  new_entries_.clear();
  doubts_.clear();
  std::string reason;
  for (const FaultSentence& sentence : kFaultSentences) {
    if (row.fault == sentence.fault) reason = program_.Text(sentence.key);
  }
  if (reason.empty()) reason = ReadCells(row);
  if (reason.empty() && TrimWhite(ToText(At(name_))).empty()) reason = program_.Text("imp.row.noname");
  if (reason.empty()) reason = Complete();
  if (reason.empty()) reason = Duplicate();
  if (!reason.empty()) return LeaveOut(row, reason);
  if (!Write()) {
    result_.error = program_.Text("imp.err.write", {std::to_string(row.number), std::to_string(result_.added)});
    return;
  }
  Doubts();
  if (!doubts_.empty()) ++result_.rows_doubtful;
  for (const std::string& doubt : doubts_) {
    if (result_.doubtful.size() < kImportSentences) result_.doubtful.push_back(Sentence(row.number, doubt));
  }
}

std::string TableImport::ReadCells(const SeparatedRow& row) {
  for (size_t i = headings_; i < row.fields.size(); ++i) {
    if (!TrimWhite(row.fields[i]).empty()) return program_.Text("imp.row.morefields");
  }
  // The name first, so that a sentence about another field can tell it.
  std::string reason;
  for (const bool names : {true, false}) {
    for (const ImportColumn& column : columns_) {
      if ((static_cast<size_t>(column.field) - 1 == IndexOf(name_)) != names || column.cell >= row.fields.size()) continue;
      reason = ReadCell(column, row.fields[column.cell]);
      if (!reason.empty()) return reason;
    }
  }
  return reason;
}

std::string TableImport::ReadCell(const ImportColumn& column, const std::string& cell) {
  const int32_t type = table_.FIELD_TYPE(column.field);
  if (type == kText) return ReadText(column, cell);
  if (type == kMemo || TrimWhite(cell).empty()) return "";  // attachments are not in the file
  if (type == kLink) return ReadLink(column, CleanText(cell, true));
  if (type == kBoolean) return ReadFlag(column, cell);
  return ReadNumberCell(column, cell);
}

std::string TableImport::ReadText(const ImportColumn& column, const std::string& cell) {
  const std::string name = table_.FIELD_NAME(column.field);
  const bool one_line = std::find(std::begin(kLongTexts), std::end(kLongTexts), name) == std::end(kLongTexts);
  const std::string text = CleanText(cell, one_line);
  std::string fault = TextFault(column.heading, text, table_.FIELD_LEN(column.field));
  if (fault.empty()) values_[static_cast<size_t>(column.field) - 1] = text;
  return fault;
}

// "" when the field can hold the text as it is.
std::string TableImport::TextFault(const std::string& heading, const std::string& text, int32_t length) const {
  const std::u32string letters = CodePoints(text);
  if (letters.size() > static_cast<size_t>(std::max(length, 0)))
    return program_.Text("imp.cell.long", {heading, std::to_string(letters.size()), std::to_string(length)});
  for (const char32_t letter : letters) {
    if (!Cp1250Byte(letter)) return program_.Text("imp.cell.letter", {heading, FromCodePoints({&letter, 1})});
  }
  return "";
}

std::string TableImport::ReadNumberCell(const ImportColumn& column, const std::string& cell) {
  std::string text = WithoutGrouping(TrimWhite(cell));
  if (text.back() == '%') text.pop_back();
  const std::optional<double> number = ReadNumber(text);
  bool fits = number && std::isfinite(*number);
  for (const Bounds& bounds : kWholeNumbers) {
    if (fits && table_.FIELD_TYPE(column.field) == bounds.type)
      fits = *number >= bounds.low && *number <= bounds.high && *number == std::floor(*number);
  }
  if (!fits) return program_.Text("imp.cell.number", {column.heading, LeftCharacters(TrimWhite(cell), kShownName)});
  values_[static_cast<size_t>(column.field) - 1] = *number;
  return "";
}

std::string TableImport::ReadFlag(const ImportColumn& column, const std::string& cell) {
  const std::string word = FoldPolish(TrimWhite(cell));
  for (const FlagWord& known : kFlagWords) {
    if (word != known.word) continue;
    values_[static_cast<size_t>(column.field) - 1] = known.meaning;
    return "";
  }
  return program_.Text("imp.cell.flag", {column.heading, LeftCharacters(TrimWhite(cell), kShownName)});
}

std::string TableImport::ReadLink(const ImportColumn& column, const std::string& text) {
  const size_t index = static_cast<size_t>(column.field) - 1;
  const int dictionary = LinkedTable(column.field);
  if (const int32_t record = dictionaries_.Find(dictionary, text); record > 0) {
    values_[index] = record;
    return "";
  }
  if (!dictionaries_.Grows(dictionary)) return program_.Text("imp.cell.unknown", {column.heading, LeftCharacters(text, kShownName)});
  if (result_.new_entries.size() + new_entries_.size() >= kMostNewEntries)
    return program_.Text("imp.cell.entries", {column.heading, std::to_string(kMostNewEntries), LeftCharacters(text, kShownName)});
  std::string fault = TextFault(column.heading, text, dictionaries_.NameLength(dictionary));
  if (fault.empty()) new_entries_[index] = text;
  return fault;
}

int TableImport::LinkedTable(int field) {
  const std::string file = Lower(table_.FIELD_LFILE(field));
  for (const TableDefinition& definition : TableDefinitions()) {
    if (file == definition.file) return definition.number;
  }
  return 0;
}

std::vector<RecordIdentity> TableImport::RowIdentities() const {
  std::vector<Value> values;
  for (const FieldId& field : IdentityFields()) values.push_back(At(field.name()));
  return Identities(values);
}

std::string TableImport::Duplicate() const {
  for (const RecordIdentity& identity : RowIdentities()) {
    if (const auto known = known_.find(identity.key); known != known_.end()) return program_.Text(identity.sentence, {known->second});
  }
  return "";
}

// Dictionary entries first: a record never points at one that could not be written.
bool TableImport::Write() {
  for (const auto& [index, text] : new_entries_) {
    const int field = static_cast<int>(index) + 1, dictionary = LinkedTable(field);
    int32_t record = dictionaries_.Find(dictionary, text);  // another column of this row may have made it
    if (record == 0) {
      record = dictionaries_.Add(dictionary, text);
      if (record == 0) return false;
      result_.new_entries.push_back(Heading(table_.FIELD_NAME(field)) + ": " + text);
    }
    values_[index] = record;
  }
  if (!table_.RECORD_ADD(values_)) return false;
  table_.RECORD_SHOW(table_.RECORD_ADDED());
  ++result_.added;
  for (const RecordIdentity& identity : RowIdentities()) known_.emplace(identity.key, Trim(ToText(At(name_))));
  return true;
}

void TableImport::LeaveOut(const SeparatedRow& row, const std::string& reason) {
  ++result_.rows_left_out;
  if (result_.left_out.size() < kImportSentences) result_.left_out.push_back(Sentence(row.number, reason));
}

std::string TableImport::Sentence(int row, const std::string& reason) const {
  const std::string name = LeftCharacters(CleanText(ToText(At(name_)), true), kShownName);
  const std::string number = std::to_string(row);
  return name.empty() ? program_.Text("imp.row.plain", {number, reason}) : program_.Text("imp.row.named", {number, name, reason});
}

size_t TableImport::IndexOf(std::string_view field) const {
  const auto found = index_.find(field);
  return found == index_.end() ? values_.size() : found->second;
}

const Value& TableImport::At(std::string_view field) const {
  static const Value kNone;
  const size_t index = IndexOf(field);
  return index < values_.size() ? values_[index] : kNone;
}

void TableImport::Put(std::string_view field, Value value) {
  if (const size_t index = IndexOf(field); index < values_.size()) values_[index] = std::move(value);
}

bool TableImport::HasColumn(std::string_view field) const {
  const auto found = index_.find(field);
  return found != index_.end() && std::any_of(columns_.begin(), columns_.end(), [&](const ImportColumn& column) {
           return static_cast<size_t>(column.field) - 1 == found->second;
         });
}

std::string TableImport::Heading(std::string_view field) const {
  for (const ImportColumn& column : columns_) {
    if (static_cast<size_t>(column.field) - 1 == IndexOf(field)) return column.heading;
  }
  return std::string(field);
}

void TableImport::Doubt(std::string_view field, std::string_view sentence_key) {
  doubts_.push_back(program_.Text(sentence_key, {Heading(field), ToText(At(field))}));
}

}  // namespace ostrinka
