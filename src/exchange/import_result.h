// What an import tells of itself: how many records came in, and in sentences what did not.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

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

}  // namespace ostrinka
