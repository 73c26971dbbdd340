// The spans of time that the period tools offer: the current and the last week, month, quarter and year.
#pragma once

#include <string_view>

#include "base/date.h"
#include "shell/ribbon.h"

namespace ostrinka {

enum class Span { kWeek, kMonth, kQuarter, kYear };

// The span that the split button of a current or a last period was left on; a week when it was left on none.
Span ChosenSpan(const RibbonControl& ribbon, std::string_view button);

// Days back of "the last ..." in the list of a table.
int DaysBack(Span span, int table);
// Whether a record's date lies in the current week, month, quarter or year.
bool InCurrent(Span span, Date date, Date today);
// First day of the current one as the reports count it.
Date FirstDayOfCurrent(Span span, Date today);

}  // namespace ostrinka
