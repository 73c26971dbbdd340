// What a table lacks against its definition, and why one could not be opened: the words that a person is told.
#pragma once

#include <string>

#include "app/program.h"
#include "company/table_definitions.h"

namespace ostrinka {

// Names of the fields that an open table lacks, or has in another type or too short, parted by ", "; "" when it is as it has to be. Their
// order does not matter, nor do further fields.
std::string Shortcomings(ClassQDBASE& table, const TableDefinition& definition);

// Whether a table that lacks nothing is one of another kind all the same: most of its fields are those of another definition.
bool IsAnotherKind(ClassQDBASE& table, const TableDefinition& definition);

// Why `table` could not be opened as the file `name` of `folder`, and what to do about it.
std::string WhyNotOpened(Program& program, const std::string& folder, const std::string& name, const ClassQDBASE& table);

}  // namespace ostrinka
