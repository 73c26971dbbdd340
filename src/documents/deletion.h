// Deleting a sales document with its links.
#pragma once

#include "app/program.h"

namespace ostrinka {

enum class [[nodiscard]] DeletionOutcome{
    kDeleted,
    kHasCorrection,  // the document was corrected, and its correction stands
    kNotWritten,     // a table refuses; what pointed at the document does so still, unless the last step alone failed
};

// Deletes the document in `record`. The document that it corrects loses its correction, and the fields that reports and links look at are
// emptied first, so that nothing finds anything in the deleted record. Its lines stay, under an identity that no document has.
DeletionOutcome DeleteSalesDocument(Program& program, int32_t record);

}  // namespace ostrinka
