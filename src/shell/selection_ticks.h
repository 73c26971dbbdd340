// The ticks that tell what a list shows: one of the four period tools of a tab, one of its ranges of letters.
#pragma once

#include <string_view>

#include "shell/ribbon.h"

namespace ostrinka {

// Ticks a period tool; the others of its tab lose their ticks.
void TickPeriod(RibbonControl& ribbon, std::string_view tool);
void ClearPeriod(RibbonControl& ribbon, std::string_view tab);

// The same of the ranges of letters.
void TickLetters(RibbonControl& ribbon, std::string_view range);
void ClearLetters(RibbonControl& ribbon, std::string_view tab);

}  // namespace ostrinka
