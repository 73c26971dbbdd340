// The condition that looks for a text in every field of a table.
#pragma once

#include <string>
#include <string_view>

#include "engine/qdbase.h"

namespace ostrinka {

// For SELECTION: a text field that contains `text`, or any other field equal to it. Blanks at the ends and double quotes in `text` do not
// count; where nothing is left the condition is "*".
std::string FindFilter(ClassQDBASE& table, std::string_view text);

}  // namespace ostrinka
