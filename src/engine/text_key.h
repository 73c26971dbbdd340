// Texts of a table compared as they lie in it, in Windows-1250.
#pragma once

#include <string>
#include <string_view>

namespace ostrinka {

// What FIELD shows of a text without nulls: trimmed, unless it reads as a number.
std::string_view ShownBytes(std::string_view bytes);

// Order of two texts by their code points: below, at or above 0.
int CompareCodePoints(std::string_view a, std::string_view b);

// The key that a text sorts by: bytes whose order is that of the code points. `fold` puts the text in lower case and its Polish letters
// beside the plain ones first, unless it reads as a number.
void AppendSortKey(std::string_view bytes, bool fold, std::string& to);

}  // namespace ostrinka
