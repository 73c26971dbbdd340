// What the settings say about printing, read once a job: every sheet of a job looks as it was ordered when the job began.
//
// The language is not among them: ClassPRINT loads the catalogue of its words itself.
#pragma once

#include <cstdint>

#include "app/company_record.h"
#include "app/program.h"

namespace ostrinka {

struct PrintOptions {
  bool without_classification = false;          // no column of PKWiU
  bool rate_note = true;                        // the average rate under the payment of a document in another currency
  bool tax_number_first = false;                // the buyer's NIP right under the name
  bool address_sheet = false;                   // a sheet for a window envelope goes with each document
  int32_t address_left = 20, address_top = 20;  // mm, of the address on it
  int32_t head_style = 0;                       // of ClassPRINT::SetFldStyle
  bool footer_credit = true;                    // the program's name in the footer
  CompanyRecord company;                        // who issues; every text trimmed
};

PrintOptions ReadPrintOptions(Program& program);

// Whether documents carry the program's name in the footer: a line "FFV-" in the file data.ini of the database folder switches it off, a
// later "FFV+" on again.
bool ReadFooterFlag(Program& program);

}  // namespace ostrinka
