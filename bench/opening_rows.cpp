// Opening and closing an empty company: all its tables as the program opens them, against the same tables in SQLite with one row read of
// each.
#include "company/ost_engine.h"
#include "company/table_definitions.h"
#include "rows.h"
#include "sqlite.h"

namespace ostrinka::bench {

void OpeningRows(Data& data, Report& report) {
  const char* name = "opening and closing an empty company";
  if (!report.Wants(name)) return;
  Program& program = data.empty.program();
  OSTEngine(program).close_(false);
  const auto our_side = [&] {
    bool open = false;
    const double seconds = Seconds([&] {
      OSTEngine engine(program);
      engine.open_(true, open);
      engine.close_(false);
    });
    Require(open, "the company cannot be opened");
    return seconds;
  };
  const auto their_side = [&] {
    return Seconds([&] {
      Sqlite database(data.empty.sqlite());
      for (const TableDefinition& table : TableDefinitions())
        Statement(database, "SELECT * FROM " + SqlName(table.number) + " LIMIT 1").Step();
    });
  };
  report.Ratio(name, Compare(our_side, their_side, 2 * kRounds), 6);
}

}  // namespace ostrinka::bench
