#include "shell/periods.h"

#include <utility>

#include "base/format.h"
#include "company/tables.h"

namespace ostrinka {

Span ChosenSpan(const RibbonControl& ribbon, std::string_view button) {
  constexpr std::pair<std::string_view, Span> kSpans[] = {
      {".TYDZIEŃ", Span::kWeek}, {".MIESIĄC", Span::kMonth}, {".KWARTAŁ", Span::kQuarter}, {".ROK", Span::kYear}};
  for (const auto& [part, span] : kSpans) {
    if (ribbon.ChosenItem(button).ends_with(part)) return span;
  }
  return Span::kWeek;
}

int DaysBack(Span span, int table) {
  switch (span) {
    case Span::kWeek:
      return 7;
    case Span::kMonth:
      return 31;
    case Span::kQuarter:
      return table == kDokZakupu ? 92 : 93;  // the quarter of purchases is a day shorter (kept: users know these numbers)
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

Date FirstDayOfCurrent(Span span, Date today) {
  const YearMonthDay ymd = today.Ymd();
  if (span == Span::kMonth) return *Date::FromYmd(ymd.year, ymd.month, 1);
  if (span == Span::kYear) return *Date::FromYmd(ymd.year, 1, 1);
  const auto part = [&](Date date) { return span == Span::kWeek ? date.WeekFromMonday() : date.Quarter(); };
  constexpr int kMostDays = 999;  // so that a date at the calendar's beginning ends the walk too
  Date first = today;
  for (int i = 0; i <= kMostDays && part(today.PlusDays(-i)) == part(today); ++i) first = today.PlusDays(-i);
  return first;
}

}  // namespace ostrinka
