// The table of a document's lines: what stands in its columns, and the sums under it.
#pragma once

#include <string>
#include <vector>

#include "print/document_sums.h"
#include "print/paged_table.h"
#include "print/printed_document.h"

namespace ostrinka {

enum class ColumnId { kNumber, kName, kCode, kQuantity, kUnit, kNetPrice, kDiscount, kNet, kRate, kVat, kGross };

// The columns `ids` of some lines of a document, with their sums as totals: a row headed by the text of `total_key`, and one a rate of VAT
// headed by that of `rate_key`. The content refers to `document` and `lines`, which must outlive it.
TableContent LineTableOf(Program& program, const PrintedDocument& document, const std::vector<PrintedLine>& lines, const LineSums& sums,
                         const std::vector<ColumnId>& ids, const char* total_key, const char* rate_key);

}  // namespace ostrinka
