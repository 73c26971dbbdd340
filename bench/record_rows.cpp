// Records one by one: loading at random, adding, walking through a selection.
#include <filesystem>
#include <random>

#include "company/table_definitions.h"
#include "engine/table_header.h"
#include "generate_company.h"
#include "rows.h"
#include "sqlite.h"

namespace ostrinka::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kLoads = 100000, kAdds = 10000;
constexpr int32_t kShortWalk = 25000, kLongWalk = 100000;
constexpr const char* kReadFields[] = {"NR_DOK", "DATA_WYSTAWIENIA", "ODEBRAL", "WARTOSC_BRUTTO"};

void OpenTable(ClassQDBASE& table, const std::string& path, bool links) {
  Require(table.DATABASE_OPEN(path, kGeneratedUser, kGeneratedPassword, false, false, links), "a table cannot be opened: " + path);
}

// The sums of what was read keep both sides honest: they must be equal.
struct Sum {
  int64_t numbers = 0;
  size_t letters = 0;
  double days = 0, gross = 0;
  bool operator==(const Sum&) const = default;
};

void LoadRow(Data& data, Report& report) {
  const char* name = "RECORD_LOAD of 100,000 documents at random";
  if (!report.Wants(name)) return;
  ClassQDBASE table(data.full.platform());
  OpenTable(table, Table(data.full.program(), kDokSprzed).DATABASE_PATH(), true);
  Sqlite database(data.full.sqlite());
  Statement statement(database, "SELECT * FROM dok_sprzed WHERE rowid = ?");
  std::mt19937 engine(1);
  std::vector<int32_t> records(kLoads);
  for (int32_t& record : records) record = 1 + static_cast<int32_t>(engine() % static_cast<uint32_t>(table.RECORD_COUNT()));
  // The columns of SELECT * stand in the order of the fields.
  int columns[4] = {};
  for (int n = 1; n <= table.FIELD_COUNT(); ++n) {
    for (size_t i = 0; i < 4; ++i) columns[i] = table.FIELD_NAME(n) == kReadFields[i] ? n - 1 : columns[i];
  }
  Sum ours, theirs;
  const auto our_side = [&] {
    ours = {};
    return Seconds([&] {
      for (const int32_t record : records) {
        table.RECORD_LOAD(record);
        ours.numbers += table.Int(kReadFields[0]);
        ours.days += table.Day(kReadFields[1]).days();
        ours.letters += table.Text(kReadFields[2]).size();
        ours.gross += table.Real(kReadFields[3]);
      }
    });
  };
  const auto their_side = [&] {
    theirs = {};
    return Seconds([&] {
      database.Run("BEGIN");
      for (const int32_t record : records) {
        statement.Bind(1, record).Step();
        theirs.numbers += statement.Integer(columns[0]);
        theirs.days += statement.Real(columns[1]);
        theirs.letters += std::string(reinterpret_cast<const char*>(statement.Text(columns[2]))).size();
        theirs.gross += statement.Real(columns[3]);
        statement.Reset();
      }
      database.Run("COMMIT");
    });
  };
  const Pairs pairs = Compare(our_side, their_side);
  Require(ours == theirs && ours.letters > 0, "the two sides read different records");
  report.Ratio(name, pairs, 1.0);
}

// An empty table beside all it links to.
std::string EmptyTable(Data& data, const std::string& folder, int number) {
  const std::string there = data.scratch + folder + "/";
  if (!fs::exists(there)) fs::copy(data.empty.tables(), there);
  const std::string path = there + TableFile(number);
  fs::resize_file(path, static_cast<uintmax_t>(kRecordsOffset));
  return path;
}

// One commit a record, write-ahead log, synchronous normal.
double AddToSqlite(const std::string& path, ClassQDBASE& like, const std::vector<std::vector<Value>>& rows) {
  for (const char* companion : {"", "-wal", "-shm"}) fs::remove(path + companion);
  Sqlite database(path);
  database.Run("PRAGMA journal_mode = WAL");
  database.Run("PRAGMA synchronous = NORMAL");
  database.Run(CreateStatement("dok_sprzed", like));
  Statement insert(database, InsertStatement("dok_sprzed", like));
  return Seconds([&] {
    for (const std::vector<Value>& row : rows) {
      for (size_t i = 0; i < row.size(); ++i) insert.Bind(static_cast<int>(i) + 1, row[i]);
      insert.Step();
      insert.Reset();
    }
  });
}

void AddRow(Data& data, Report& report) {
  const char* name = "RECORD_ADD of 10,000 documents";
  if (!report.Wants(name)) return;
  ClassQDBASE& documents = Table(data.full.program(), kDokSprzed);
  std::vector<std::vector<Value>> rows;
  for (int i = 0; i < kAdds; ++i) rows.push_back(StoredValues(documents, 1 + i % documents.RECORD_COUNT()));
  const auto our_side = [&] {
    ClassQDBASE table(data.full.platform());
    OpenTable(table, EmptyTable(data, "add", kDokSprzed), true);
    const double seconds = Seconds([&] {
      for (const std::vector<Value>& row : rows) Require(table.RECORD_ADD(row), "no record was added");
    });
    Require(table.RECORD_COUNT() == kAdds, "not every record was added");
    return seconds;
  };
  const auto their_side = [&] { return AddToSqlite(data.scratch + "add.sqlite", documents, rows); };
  report.Ratio(name, Compare(our_side, their_side), 0.5);
}

void FillWalkTable(Data& data, const std::string& path, int32_t count) {
  ClassQDBASE& lines = Table(data.full.program(), kSprzedane);
  ClassQDBASE table(data.full.platform());
  OpenTable(table, path, false);
  for (int32_t i = 0; i < count; ++i) Require(table.RECORD_ADD(StoredValues(lines, 1 + i % lines.RECORD_COUNT())), "no record was added");
}

double Walk(ClassQDBASE& table, int32_t count) {
  table.SELECTION("*", "*", "", ordAsc);
  int32_t steps = 1;
  const double seconds = Seconds([&] {
    table.MOVE_FIRST();
    while (table.MOVE_NEXT()) ++steps;
  });
  Require(steps == count, "the walk did not reach every record");
  return seconds;
}

double ShowAll(ClassQDBASE& table, int32_t count) {
  table.SELECTION("*", "!", "", ordAsc);
  const double seconds = Seconds([&] {
    for (int32_t n = 1; n <= count; ++n) table.RECORD_SHOW(n);
  });
  Require(table.selection().size() == static_cast<size_t>(count), "not every record was shown");
  return seconds;
}

void WalkRows(Data& data, Report& report) {
  const std::string walk = "walk by MOVE_NEXT, 100,000 records to 25,000", show = "RECORD_SHOW of all, 100,000 records to 25,000";
  if (!report.Wants(walk) && !report.Wants(show)) return;
  const std::string long_path = EmptyTable(data, "walk-long", kSprzedane), short_path = EmptyTable(data, "walk-short", kSprzedane);
  FillWalkTable(data, long_path, kLongWalk);
  FillWalkTable(data, short_path, kShortWalk);
  ClassQDBASE long_table(data.full.platform()), short_table(data.full.platform());
  OpenTable(long_table, long_path, true);
  OpenTable(short_table, short_path, true);
  if (report.Wants(walk)) {
    report.Ratio(walk, Compare([&] { return Walk(long_table, kLongWalk); }, [&] { return Walk(short_table, kShortWalk); }), 6);
  }
  if (report.Wants(show)) {
    report.Ratio(show, Compare([&] { return ShowAll(long_table, kLongWalk); }, [&] { return ShowAll(short_table, kShortWalk); }), 6);
  }
}

}  // namespace

void RecordRows(Data& data, Report& report) {
  LoadRow(data, report);
  AddRow(data, report);
  WalkRows(data, report);
}

}  // namespace ostrinka::bench
