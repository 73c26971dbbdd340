// The twenty-eight tables of a company as data: number, file, fields in creation order.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "company/tables.h"

namespace ostrinka {

struct FieldDefinition {
  const char* name;
  FieldType type;
  int32_t length = 0;          // of a text; 0 for any other type
  const char* link_file = "";  // of a link
  const char* link_field = "";
};

struct TableDefinition {
  int number;  // in Program::tables
  const char* file;
  int progress;  // percent shown before the table is created
  std::span<const FieldDefinition> fields;
};

inline constexpr size_t kTableCount = 28;
// Behind a table's file name: the attachments of a lost table, put aside when the table is made anew; a number follows from the second on.
inline constexpr char kAsideSuffix[] = ".memo.old";
// Behind the name of a table that is being created. What a killed run left under it is nobody's.
inline constexpr char kBuildingSuffix[] = ".build";

// In the order in which they are created.
const std::array<TableDefinition, kTableCount>& TableDefinitions();
// In the order in which a company is opened and tested.
const std::array<int, kTableCount>& OpeningOrder();

// Null for a number without a table.
const TableDefinition* FindTable(int number);
// File name of that table, "" for a number without one.
std::string TableFile(int number);
// The field's type in a company that was opened: the upgrade turns the quantity and the amounts of sales lines into currency values.
FieldType TypeWhenOpened(const TableDefinition& table, const FieldDefinition& field);
// Null when the table has no such field.
const FieldDefinition* FindField(const TableDefinition& table, std::string_view name);

}  // namespace ostrinka
