// The copies of sales documents in a job: which ones a print mode asks for, each appended with its own count of pages.
#pragma once

#include <cstdint>

#include "print/document_copy.h"
#include "print/print_job.h"

namespace ostrinka {

// Appends the pages of one copy, numbered from 1 and stamped with their total. Positions of the tables are kept.
void AppendDocument(PrintJob& job, const DocumentCopy& copy);

// Appends the copies of the document in record `record` of dok_sprzed that `mode` asks for. A pro forma document gets one print without a
// label, whatever the mode. False for any other mode than PrintMode names, which appends nothing.
bool AppendCopies(PrintJob& job, int32_t record, PrintMode mode);

// Stamps the pages from `first` to the last, which are those of one copy, with their number. Sheets before them are left alone, whatever
// their size.
void StampPageTotals(ClassPRINT& print, int32_t first);

}  // namespace ostrinka
