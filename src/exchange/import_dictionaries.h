// The dictionaries that an import meets: the entry a text means, and entries that are made for it.
//
// Entries that are mere names (groups, units, countries, regions) are made when a row needs them. Those that hold figures or rules (VAT
// rates, currencies, payment forms, fiscal tills) are not: an amount must not depend on a slip of the pen.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"

namespace ostrinka {

class ImportDictionaries {
 public:
  explicit ImportDictionaries(Program& program) : program_(program) {}

  // The record of table number `table` that `text` means, 0 when there is none: by the fields that name an entry as written, then without
  // case, Polish letters, blanks and points. A VAT rate is found by its percent too.
  int32_t Find(int table, const std::string& text);
  // Whether Add makes entries in that table.
  bool Grows(int table) const;
  // Length of the field that a new entry's name goes into.
  int32_t NameLength(int table);
  // Makes an entry; its record, 0 when it cannot be written.
  int32_t Add(int table, const std::string& text);
  // The first existing record, 0 when the table is empty.
  int32_t First(int table);
  // Percent of a VAT rate's record.
  double Rate(int32_t record);

 private:
  struct Entries {
    std::map<std::string, int32_t> exact, folded;
    std::vector<std::pair<double, int32_t>> percents;  // of VAT rates whose symbol is a percentage
    std::map<int32_t, double> rates;
    int32_t first = 0;
  };
  Entries& Of(int table);
  void Remember(Entries& entries, int32_t record, const std::string& text);

  Program& program_;
  std::map<int, Entries> tables_;
};

}  // namespace ostrinka
