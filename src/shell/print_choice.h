// How documents are printed: the mode that is ticked on the ribbon, the transfer form that goes with them, what a split button makes.
#pragma once

#include <string_view>

#include "app/program.h"
#include "shell/ribbon.h"

namespace ostrinka {

// Ticks what a program starts with: the original alone, and the transfer form as it was left.
void StartPrintChoice(Program& program, RibbonControl& ribbon);

// Ticks a mode and none of its neighbours in the same list.
void TickPrintMode(RibbonControl& ribbon, const RibbonRow& mode);
PrintMode TickedPrintMode(const RibbonControl& ribbon);  // of single documents; the original when none is ticked

bool TransferFormTicked(const RibbonControl& ribbon);
void ToggleTransferForm(Program& program, RibbonControl& ribbon);  // kept in the settings

enum class PrintOutput { kPrinter, kPreview, kPdf };
// What the split button's choice makes.
PrintOutput ChosenOutput(const RibbonControl& ribbon, std::string_view button);

}  // namespace ostrinka
