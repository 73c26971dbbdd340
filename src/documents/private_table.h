// A second look at a table of the open company, for walks that must leave its position, buffer and selection alone.
#pragma once

#include <functional>
#include <initializer_list>
#include <vector>

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

  // Calls `visit` for every existing record in the order of the numbers, with the stored values of the named fields (a link gives its
  // record number), until it returns false.
  void Walk(const std::vector<const char*>& fields, const std::function<bool(int32_t record, const std::vector<Value>& values)>& visit);

 private:
  ClassQDBASE table_;
};

}  // namespace ostrinka
