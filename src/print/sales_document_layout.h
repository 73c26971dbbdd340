// Lays out one copy of a sales document: the door to the layouts, which differ by the document's type.
#pragma once

#include <cstdint>
#include <string>

#include "app/program.h"
#include "print/print.h"

namespace ostrinka {

// One copy of a document to be laid out.
struct DocumentCopy {
  int32_t record = 0;       // in dok_sprzed
  bool is_original = true;  // false for a copy
  std::string label;        // under the title, may be empty
};

// Appends the pages of one copy to the job. Positions of the tables are kept.
void PrintSalesDocument(Program& program, ClassPRINT& print, int32_t record, bool is_original, const std::string& copy_label);

}  // namespace ostrinka
