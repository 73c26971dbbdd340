// Customers and articles from separated text files.
//
// The first line names the columns, by the table's field names or by the headings that people write; docs/formats/separated-file.md has
// both. A row is taken whole or not at all: nothing is cut, and what is left out is told with its row and field. Rows that are in the
// company already are left out too, so that the same file can be read again after it was mended.
#pragma once

#include <string>
#include <vector>

#include "app/program.h"

namespace ostrinka {

// Sentences kept for each of the two lists of a result; the rest is only counted.
inline constexpr size_t kImportSentences = 500;

struct ImportResult {
  int added = 0;                             // records written; they are shown in the table's list
  int rows_left_out = 0;                     // rows that did not come in
  std::vector<std::string> left_out;         // a sentence for each of them
  int rows_doubtful = 0;                     // rows that came in although a number in them does not check
  std::vector<std::string> doubtful;         // a sentence for each doubt
  std::vector<std::string> ignored_columns;  // headings that name no field of the table
  std::vector<std::string> new_entries;      // what dictionaries were given, as "heading: text"
  std::string error;                         // why reading stopped, "" otherwise; the `added` records before that are written all the same
};

// Adds a record to the open company for each row of the file at `path`. No question is asked and no message shown.
ImportResult ImportCustomers(Program& program, const std::string& path);
ImportResult ImportArticles(Program& program, const std::string& path);

}  // namespace ostrinka
