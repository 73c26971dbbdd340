// Period, sort, alphabet and find: what is chosen from a list and in which order.
#include "base/text.h"
#include "engine/find_filter.h"
#include "shell/main_window.h"

namespace ostrinka {
namespace {

enum class Span { kWeek, kMonth, kQuarter, kYear };

struct SpanRow {
  Span span;
  const char* current;
  const char* last;
};
constexpr SpanRow kSpans[] = {{Span::kWeek, "mdi.seldate.currentweek", "mdi.seldate.lastweek"},
                              {Span::kMonth, "mdi.seldate.currentmonth", "mdi.seldate.lastmonth"},
                              {Span::kQuarter, "mdi.seldate.currentquart", "mdi.seldate.lastquart"},
                              {Span::kYear, "mdi.seldate.currentyear", "mdi.seldate.lastyear"}};

// The span that a button's caption names; a week for any other caption.
Span ChosenSpan(const Program& program, const std::string& caption, bool current) {
  for (const SpanRow& row : kSpans) {
    if (caption == program.Text(current ? row.current : row.last)) return row.span;
  }
  return Span::kWeek;
}

// Days back of "the last ..."; the quarter of purchases is a day shorter (kept: users know these numbers).
int DaysBack(Span span, int table) {
  switch (span) {
    case Span::kWeek:
      return 7;
    case Span::kMonth:
      return 31;
    case Span::kQuarter:
      return table == kDokZakupu ? 92 : 93;
    default:
      return 365;
  }
}

bool InCurrent(Span span, Date date, Date today) {
  const auto equal = [&](const char* pattern) { return FormatDate(date, pattern) == FormatDate(today, pattern); };
  if (!equal("yyyy")) return false;
  switch (span) {
    // Only the record's date is shifted by the day (kept: users know these weeks).
    case Span::kWeek:
      return FormatDate(date.PlusDays(-1), "ww") == FormatDate(today, "ww");
    case Span::kMonth:
      return equal("mm");
    case Span::kQuarter:
      return equal("q");
    default:
      return true;
  }
}

constexpr const char* kPeriodTools[] = {".OKRES.DZISIAJ", ".OKRES.BIEŻĄCY", ".OKRES.OSTATNI", ".OKRES.WSZYSTKIE"};

}  // namespace

// After a choice: a list that holds something has a current record, which the commands that follow work on.
void MainWindow::Chosen(const Command& command, bool filtered) {
  ClassQDBASE& table = Table(program_, command.table);
  if (!table.RECORD_SELECT(table.RECORD_POSITION())) table.MOVE_FIRST();
  filtered_[static_cast<size_t>(command.table)] = filtered;
}

void MainWindow::ClearLetters(std::string_view tab) {
  for (const RibbonRow* row : ribbon.Children(std::string(tab) + ".SELEKCJA.ALFABET")) ribbon.ButtonChecked(row->key, false);
}

void MainWindow::ClearPeriod(std::string_view tab) {
  for (const char* tool : kPeriodTools) ribbon.ButtonChecked(std::string(tab) + tool, false);
}

std::string MainWindow::PeriodPrefix(const Command& command) const {
  return std::string(command.key.substr(0, command.key.find('.')));
}

void MainWindow::TickPeriod(const Command& command) {
  shown_order_[static_cast<size_t>(command.table)] = {};  // a period lists the records in their own order
  for (const char* tool : kPeriodTools) {
    const std::string key = PeriodPrefix(command) + tool;
    ribbon.ButtonChecked(key, key == command.key);
  }
}

void MainWindow::PeriodToday(const Command& command, int) {
  TickPeriod(command);
  const Date today = program_.platform.clock.Now().WithoutTime();
  Table(program_, command.table).SELECTION("~", "DATA_WYSTAWIENIA = " + today.Iso(), "", ordAsc);
  Chosen(command, true);
}

void MainWindow::PeriodAll(const Command& command, int) {
  TickPeriod(command);
  Table(program_, command.table).SELECTION("~", "*", "", ordAsc);
  Chosen(command, false);
}

void MainWindow::PeriodLast(const Command& command, int) {
  TickPeriod(command);
  const Date today = program_.platform.clock.Now().WithoutTime();
  const Span span = ChosenSpan(program_, ribbon.ButtonText(command.key), false);
  const Date from = today.PlusDays(-DaysBack(span, command.table));
  Table(program_, command.table).SELECTION("~", "DATA_WYSTAWIENIA > " + from.Iso() + " AND DATA_WYSTAWIENIA <= " + today.Iso(), "", ordAsc);
  Chosen(command, true);
}

void MainWindow::PeriodCurrent(const Command& command, int) {
  TickPeriod(command);
  const Date today = program_.platform.clock.Now().WithoutTime();
  const Span span = ChosenSpan(program_, ribbon.ButtonText(command.key), true);
  ClassQDBASE& table = Table(program_, command.table);
  table.SELECTION("~", "!", "", ordAsc);
  for (int32_t n = 1, count = table.RECORD_COUNT(); n <= count; ++n) {
    if (table.RECORD_EXIST(n) && table.RECORD_LOAD(n) && InCurrent(span, table.Day("DATA_WYSTAWIENIA"), today)) table.RECORD_SHOW(n);
  }
  Chosen(command, true);
}

void MainWindow::ReportPeriodToday(const Command& command, int) {
  TickPeriod(command);
  ReportAllDates = true;
  ReportDateFrom = ReportDateTo = program_.platform.clock.Now().WithoutTime();
  RerunReport();
}

void MainWindow::ReportPeriodCurrent(const Command& command, int) {
  TickPeriod(command);
  ReportAllDates = true;
  const Date today = program_.platform.clock.Now().WithoutTime();
  const Span span = ChosenSpan(program_, ribbon.ButtonText(command.key), true);
  const YearMonthDay ymd = today.Ymd();
  ReportDateTo = ReportDateFrom = today;
  const auto part = [&](Date date) { return span == Span::kWeek ? date.WeekFromMonday() : date.Quarter(); };
  if (span == Span::kMonth) {
    ReportDateFrom = *Date::FromYmd(ymd.year, ymd.month, 1);
  } else if (span == Span::kYear) {
    ReportDateFrom = *Date::FromYmd(ymd.year, 1, 1);
  } else {
    for (int i = 0; i <= 999 && part(today.PlusDays(-i)) == part(today); ++i) ReportDateFrom = today.PlusDays(-i);
  }
  RerunReport();
}

void MainWindow::ReportPeriodLast(const Command& command, int) {
  TickPeriod(command);
  ReportAllDates = true;
  const Span span = ChosenSpan(program_, ribbon.ButtonText(command.key), false);
  ReportDateTo = program_.platform.clock.Now().WithoutTime();
  ReportDateFrom = ReportDateTo.PlusDays(-DaysBack(span, kDokSprzed));
  RerunReport();
}

void MainWindow::ReportPeriodAll(const Command& command, int) {
  TickPeriod(command);
  ReportAllDates = false;
  RerunReport();
}

void MainWindow::RerunReport() {
  for (const char* report : {"ZESTAWIENIA.BILANS", "ZESTAWIENIA.SPRZEDAŻ", "ZESTAWIENIA.NALEŻNOŚCI", "ZESTAWIENIA.CENNIK"}) {
    if (!ribbon.ButtonChecked(report)) continue;
    const Command* command = FindCommand(report);
    (this->*command->run)(*command, -1);
    return;
  }
}

void MainWindow::SortRecords(const Command& command, int) {
  const std::string caption = ribbon.ButtonText(command.key);
  SortState& sort = sort_[static_cast<size_t>(command.table)];
  if (caption == program_.Text("mdi.sort.records")) {
    sort = {"!", ordAsc};
  } else {
    sort = {command.detail, caption == program_.Text("mdi.sort.desc.name") ? ordDesc : ordAsc};
  }
  shown_order_[static_cast<size_t>(command.table)] = sort;
  Table(program_, command.table).SELECTION("~", "~", sort.field, sort.order);
}

void MainWindow::AlphabetRange(const Command& command, int) {
  const std::string_view bounds = command.detail;
  const std::string own = std::string(command.key), parent = own.substr(0, own.rfind('.'));
  for (const RibbonRow* row : ribbon.Children(parent)) ribbon.ButtonChecked(row->key, own == row->key);
  ClassQDBASE& table = Table(program_, command.table);
  SortState& shown = shown_order_[static_cast<size_t>(command.table)];
  shown = {};
  if (bounds.empty()) {
    shown = {"NAZWA", ordAsc};
    table.SELECTION("~", "*", "NAZWA", ordAsc);
    Chosen(command, false);
    return;
  }
  const std::string first = Lower(bounds.substr(0, 1)), last = Lower(bounds.substr(1));
  table.SELECTION("~", "!", "", ordAsc);
  for (int32_t n = 1, count = table.RECORD_COUNT(); n <= count; ++n) {
    if (!table.RECORD_EXIST(n) || !table.RECORD_LOAD(n)) continue;
    const std::string letter = Lower(LeftCharacters(table.Text("NAZWA"), 1));
    if (!letter.empty() && letter >= first && letter <= last) table.RECORD_SHOW(n);
  }
  Chosen(command, true);
}

void MainWindow::FindRecords(const Command& command, int) {
  ClassQDBASE& table = Table(program_, command.table);
  const SortState& sort = sort_[static_cast<size_t>(command.table)];
  shown_order_[static_cast<size_t>(command.table)] = sort;
  const bool all = ribbon.ButtonText(command.key) == program_.Text("mdi.records.showall");
  const std::string filter = all ? "*" : FindFilter(table, ribbon.FindText());
  table.SELECTION("~", filter, sort.field, sort.order);
  ClearLetters(PeriodPrefix(command));
  Chosen(command, filter != "*");
}

}  // namespace ostrinka
