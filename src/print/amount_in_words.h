// Amounts in words, with the grammatical forms that a currency's record supplies.
//
// The words come from the print catalogue. The grammar of a currency is "zero,one,few,many/zero,one,few,many": four forms of the main unit,
// then four of the minor one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/program.h"

namespace ostrinka {

// One whole number in words. `mode` 1 appends the noun of the main unit, 2 that of the minor one, below 1 none. `compact` takes out all
// blanks. A grammar with fewer than four forms on a side gives the text of wd.err.
std::string AmountInWords(const Program& program, int32_t amount, bool compact, int16_t mode, std::string_view grammar);

// A document's total: whole units, a blank, hundredths. A total whose whole units do not fit 32 bits gives the text of wd.err.
std::string TotalInWords(const Program& program, double total, std::string_view grammar);

}  // namespace ostrinka
