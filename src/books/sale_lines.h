// The lines of sales documents, grouped by document.
#pragma once

#include <map>
#include <set>
#include <vector>

#include "app/program.h"
#include "books/rows.h"

namespace ostrinka {

struct StoredLine {
  int32_t record = 0;
  SalesLine row;
};

// Live lines by the identity of their document, in the order of their records.
using LinesByDocument = std::map<int32_t, std::vector<StoredLine>>;

// The lines of these documents; a document without lines is left out, as is an identity below 1. One pass over the table for all of them.
LinesByDocument LinesOfDocuments(Program& program, const std::set<int32_t>& identities);
// The lines of every document.
LinesByDocument AllLines(Program& program);
// The lines of one document.
std::vector<StoredLine> LinesOfDocument(Program& program, int32_t identity);

}  // namespace ostrinka
