// Where the fields of a table stand in its records.
//
// Positions in the file are not trusted: they are computed from the types and lengths.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "engine/qdbase.h"
#include "engine/table_header.h"

namespace ostrinka {

struct FieldDef {
  std::string name;  // UTF-8, upper case, trimmed
  int32_t type = 0;
  int32_t length = 0;  // as the slot has it
  int32_t width = 0;   // bytes in the record
  int32_t offset = 0;  // from the record's first byte
  bool operator==(const FieldDef&) const = default;
};

// Bytes that a field takes in a record; 0 for an unknown type, -1 for a text length outside 0 to 65,536.
int32_t FieldWidth(int32_t type, int32_t length);

class FieldLayout {
 public:
  // False when the slots describe no record that can be: the layout is empty then.
  bool Build(const TableHeader& header);
  void Clear();

  int count() const { return static_cast<int>(fields_.size()); }
  const FieldDef& field(int n) const { return fields_[static_cast<size_t>(n - 1)]; }  // n from 1
  bool Has(int n) const { return n >= 1 && n <= count(); }
  int32_t record_length() const { return record_length_; }
  bool SameAs(const FieldLayout& other) const { return fields_ == other.fields_; }

  // Number of the field of that name, in any case and with blanks around it; 0 for none.
  int Find(std::string_view name) const;
  // By number, by name, or by a text that is a number; 0 for none.
  int Resolve(const FieldId& id) const;

 private:
  std::vector<FieldDef> fields_;
  std::map<std::string, int, std::less<>> by_name_;
  int32_t record_length_ = 2;
};

}  // namespace ostrinka
