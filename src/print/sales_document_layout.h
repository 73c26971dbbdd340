// Lays out one copy of a sales document: the door to the layouts, which differ by the document's type.
#pragma once

#include "print/document_copy.h"
#include "print/print_job.h"

namespace ostrinka {

// Appends the pages of one copy to the job. Positions of the tables are kept.
void PrintSalesDocument(PrintJob& job, const DocumentCopy& copy);

}  // namespace ostrinka
