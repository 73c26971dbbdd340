// The widths of the lists' columns, kept in the settings from one run to the next.
#pragma once

#include "app/program.h"

namespace ostrinka {

// Writes the width of every field of every open table, when it is at least 1 and differs from the stored one.
void SaveColumnWidths(Program& program);

}  // namespace ostrinka
