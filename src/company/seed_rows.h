// The rows that a table is created with, so that a new company can issue an invoice at once.
//
// Other rows and defaults refer to these by record number: their order matters.
#pragma once

#include <span>

namespace ostrinka {

// A text, a number (also the record number of a link) or a flag.
struct SeedCell {
  enum class Kind { kText, kNumber, kFlag } kind;
  const char* text = "";
  double number = 0;
  constexpr SeedCell(const char* value) : kind(Kind::kText), text(value) {}
  constexpr SeedCell(int value) : kind(Kind::kNumber), number(value) {}
  constexpr SeedCell(double value) : kind(Kind::kNumber), number(value) {}
  constexpr SeedCell(bool value) : kind(Kind::kFlag), number(value ? 1 : 0) {}
};

// Values of the first fields, in field order; the fields after them stay empty.
struct SeedRow {
  std::span<const SeedCell> cells;
};

// The rows of a table file, none for a table that starts empty.
std::span<const SeedRow> SeedRows(int table);

}  // namespace ostrinka
