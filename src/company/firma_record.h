// The company record: record 1 of firma.
#pragma once

#include "app/program.h"
#include "engine/qdbase.h"

namespace ostrinka {

// Puts the date and percent formats of the settings into the loaded record, that of the screen into the field `screen_date`; the caller
// saves. False when one could not be set.
[[nodiscard]] bool FillFormats(Program& program, ClassQDBASE& firma, const char* screen_date = "FORMAT_DATA_EKR");
// Adds record 1 with its formats to an empty table. False when it could not be written; true as well when the table is not empty.
bool EnsureCompanyRecord(Program& program, ClassQDBASE& firma);
// A record whose S_NAZWA is filled goes to the settings of section "user" and to Program::company, so that documents show the company that
// is open.
void TakeCompanyDetails(Program& program, ClassQDBASE& firma);

}  // namespace ostrinka
