// Reads the records of a range one after the other, in either direction: in place where the platform shows the file, in large blocks
// elsewhere.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/field_layout.h"
#include "engine/table_file.h"

namespace ostrinka {

class BlockReader {
 public:
  // Records `first` to `last`, from the end backwards when `ascending` is false. An empty range reads nothing.
  BlockReader(TableFile& file, int32_t record_length, int32_t first, int32_t last, bool ascending);

  // Names a field that the pass looks at: records read in place lie far apart in memory, and what is named is fetched ahead of its turn.
  void WillTouch(const FieldDef& field);

  // The bytes of the next record and its number; null at the end of the range or of what can be read.
  const char* Next(int32_t& n);

 private:
  bool Fill();
  void SeeAll();

  TableFile& file_;
  int32_t record_length_, first_, last_, next_, per_block_;
  bool ascending_;
  std::string block_;
  std::vector<int32_t> touched_;      // places in a record
  std::shared_ptr<const char> seen_;  // the whole range, when it is read in place
  const char* data_ = nullptr;        // record `block_first_`
  int32_t block_first_ = 1, block_last_ = 0;
};

}  // namespace ostrinka
