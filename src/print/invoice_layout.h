// The layout of a VAT invoice and of every ordinary document that has no layout of its own.
#pragma once

#include "print/sales_document_layout.h"

namespace ostrinka {

void PrintInvoice(Program& program, ClassPRINT& print, const DocumentCopy& copy);

}  // namespace ostrinka
