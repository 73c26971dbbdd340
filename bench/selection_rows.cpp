// Selections by text, by date and through a link, ordering by a folded name, and the next number of a document.
#include <algorithm>

#include "company/tables.h"
#include "documents/numbering.h"
#include "generate_company.h"
#include "rows.h"
#include "sqlite.h"

namespace ostrinka::bench {
namespace {

struct SelectionRow {
  const char* name;
  int table;
  std::string condition, order_field;
  SortOrder order;
  std::string statement;  // with a column of record numbers
  double at_most;
};

// lower(), and the nine Polish letters beside the plain ones.
std::string Folded(const std::string& column) {
  constexpr std::pair<const char*, const char*> kLetters[] = {{"ą", "a"}, {"ć", "c"}, {"ę", "e"}, {"ł", "l"}, {"ń", "n"},
                                                              {"ó", "o"}, {"ś", "s"}, {"ź", "z"}, {"ż", "z"}};
  std::string text = "lower(" + column + ")";
  for (const auto& [letter, plain] : kLetters) text = "replace(" + text + ", '" + letter + "', '" + plain + "')";
  return text;
}

void SelectionAgainstStatement(Data& data, Report& report, const SelectionRow& row) {
  if (!report.Wants(row.name)) return;
  ClassQDBASE table(data.full.platform());
  Require(
      table.DATABASE_OPEN(Table(data.full.program(), row.table).DATABASE_PATH(), kGeneratedUser, kGeneratedPassword, false, false, true),
      "a table cannot be opened");
  Sqlite database(data.full.sqlite());
  Statement statement(database, row.statement);
  std::vector<int32_t> theirs;
  const auto our_side = [&] { return Seconds([&] { table.SELECTION("*", row.condition, row.order_field, row.order); }); };
  const auto their_side = [&] { return Seconds([&] { theirs = statement.Numbers(); }); };
  const Pairs pairs = Compare(our_side, their_side);
  std::vector<int32_t> ours = table.selection();
  std::sort(ours.begin(), ours.end());
  std::sort(theirs.begin(), theirs.end());
  Require(!ours.empty() && ours == theirs, std::string("the two sides found different records: ") + row.name);
  report.Ratio(row.name, pairs, row.at_most);
}

void NextNumberRow(Data& data, Report& report) {
  const char* name = "next_number";
  if (!report.Wants(name)) return;
  Program& program = data.full.program();
  constexpr int32_t kInvoice = 1;
  const Date issued = Date::FromYmd(2008, 3, 5).value_or(Date());
  Sqlite database(data.full.sqlite());
  Statement statement(database,
                      "SELECT MAX(d.NR_DOK) FROM dok_sprzed d JOIN dokument_kat k ON k.rowid = d.TYP "
                      "WHERE d.DATA_WYSTAWIENIA >= ? AND d.DATA_WYSTAWIENIA < ? AND k.ZESTAW = ?");
  statement.Bind(1, Date::FromYmd(2008, 1, 1).value_or(Date())).Bind(2, Date::FromYmd(2009, 1, 1).value_or(Date())).Bind(3, 0);
  int32_t ours = 0, theirs = 0;
  const auto our_side = [&] { return Seconds([&] { ours = next_number(program, kDokSprzed, issued, kInvoice, 0); }); };
  const auto their_side = [&] { return Seconds([&] { theirs = statement.Numbers().at(0) + 1; }); };
  const Pairs pairs = Compare(our_side, their_side);
  Require(ours == theirs && ours > 1, "the two sides found different numbers");
  report.Ratio(name, pairs, 0.9);
}

}  // namespace

void SelectionRows(Data& data, Report& report) {
  const auto days = [](int year, int month, int day) { return std::to_string(Date::FromYmd(year, month, day).value_or(Date()).days()); };
  Table(data.full.program(), kDokSprzed).RECORD_LOAD(data.customers * 5 / 2);
  const std::string document = std::to_string(Table(data.full.program(), kDokSprzed).Int("ID_DOK"));
  const SelectionRow rows[] = {
      {"SELECTION: NAZWA # \"kow\", customers", kKontrahenci, "NAZWA # \"kow\"", "", ordAsc,
       "SELECT rowid FROM kontrahenci WHERE NAZWA LIKE '%kow%'", 1.0},
      {"SELECTION: dates from-to, documents", kDokSprzed, "DATA_WYSTAWIENIA >= 2007-02-01 AND DATA_WYSTAWIENIA <= 2007-04-30", "", ordAsc,
       "SELECT rowid FROM dok_sprzed WHERE DATA_WYSTAWIENIA >= " + days(2007, 2, 1) + " AND DATA_WYSTAWIENIA <= " + days(2007, 4, 30), 0.9},
      {"SELECTION: KONTRAHENT # \"kow\" through the link, documents", kDokSprzed, "KONTRAHENT # \"kow\"", "", ordAsc,
       "SELECT d.rowid FROM dok_sprzed d JOIN kontrahenci k ON k.rowid = d.KONTRAHENT WHERE k.NAZWA LIKE '%kow%'", 0.4},
      {"SELECTION: by NAZWA descending, customers", kKontrahenci, "*", "NAZWA", ordDesc,
       "SELECT rowid FROM kontrahenci ORDER BY " + Folded("NAZWA") + " DESC", 1.0},
      {"SELECTION: the lines of one document, all lines", kSprzedane, "ID_DOK >=1 AND ID_DOK=" + document, "", ordAsc,
       "SELECT rowid FROM sprzedane WHERE ID_DOK >= 1 AND ID_DOK = " + document, 1.0},
  };
  for (const SelectionRow& row : rows) SelectionAgainstStatement(data, report, row);
  NextNumberRow(data, report);
}

}  // namespace ostrinka::bench
