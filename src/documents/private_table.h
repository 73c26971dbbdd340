// A second look at a table of the open company, for lists of their own: its position, buffer and selection are not those of the table.
#pragma once

#include "company/tables.h"

namespace ostrinka {

// The file of the open table `number`, opened once more under the same login for as long as the object lives.
class PrivateTable {
 public:
  PrivateTable(Program& program, int number, bool links = false);
  ~PrivateTable();
  PrivateTable(const PrivateTable&) = delete;
  PrivateTable& operator=(const PrivateTable&) = delete;

  bool IsOpen() const { return table_.IsOpen(); }
  ClassQDBASE& table() { return table_; }

 private:
  ClassQDBASE table_;
};

}  // namespace ostrinka
