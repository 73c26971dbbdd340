// What the list of each table shows: columns, widths, headings, patterns.
#pragma once

#include <span>
#include <string>

#include "company/tables.h"

namespace ostrinka {

enum class ColumnKind {
  kAsStored,    // a flag then shows the view's own texts for true and false
  kPattern,     // `pattern` as it stands
  kPatternKey,  // the catalogue's text of `pattern`
  kMoney,       // the pattern of prices, without the sign of a currency
  kScreenDate,
};
enum ColumnSide : int { kRightSide = -1, kCentred = 0, kLeftSide = 1 };

struct ListColumn {
  const char* field;
  int width;            // in pixels at zoom 1, unless the settings hold another
  const char* heading;  // catalogue key, "" for none
  ColumnSide side = kLeftSide;
  ColumnKind kind = ColumnKind::kAsStored;
  const char* pattern = "";
  bool fiscal_only = false;  // shown only when a fiscal printer is set
};

inline constexpr int kMinColumnWidth = 20, kMaxColumnWidth = 400;

// Empty for a table that shows all its fields without headings.
std::span<const ListColumn> ListColumns(int table);

// Whether a fiscal printer is set.
bool FiscalPrinting(Program& program);

// Section of the settings that holds the column widths of a table.
std::string WidthSection(int table);

// Sets columns, headings, widths, patterns and sides of an open table, with no record selected.
void ShowListColumns(Program& program, int number, ClassQDBASE& table);

}  // namespace ostrinka
