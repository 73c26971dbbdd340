// Customers and articles from separated text files.
//
// The first line names the columns, by the table's field names or by the headings that people write; docs/formats/separated-file.md has
// both. A row is taken whole or not at all: nothing is cut, and what is left out is told with its row and field. Rows that are in the
// company already are left out too, so that the same file can be read again after it was mended.
#pragma once

#include <string>

#include "app/program.h"
#include "exchange/import_result.h"

namespace ostrinka {

// Adds a record to the open company for each row of the file at `path`. No question is asked and no message shown.
ImportResult ImportCustomers(Program& program, const std::string& path);
ImportResult ImportArticles(Program& program, const std::string& path);

}  // namespace ostrinka
