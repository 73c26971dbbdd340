// The layout of a VAT invoice and of every ordinary document that has no layout of its own.
#pragma once

#include "print/document_copy.h"
#include "print/print_job.h"

namespace ostrinka {

void PrintInvoice(PrintJob& job, const DocumentCopy& copy);

}  // namespace ostrinka
