// Which column of a separated file goes into which field of a table.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/qdbase.h"

namespace ostrinka {

// A heading that people write, and the field it means. Compared without case, Polish letters, blanks and signs.
struct ColumnAlias {
  const char* heading;
  const char* field;
};

std::span<const ColumnAlias> CustomerAliases();
std::span<const ColumnAlias> ArticleAliases();

// Whether a heading names the field, by its name or by an alias.
bool HeadingNames(std::string_view heading, std::string_view field, std::span<const ColumnAlias> aliases);

struct ImportColumn {
  size_t cell = 0;      // of the row, from 0
  int field = 0;        // of the table, from 1
  std::string heading;  // as the file writes it, at most 40 characters
};

// The columns that name a field of `table` by its name or an alias, in the order of the file. A heading that names none, or a field that
// an earlier one has named, goes to `ignored`.
std::vector<ImportColumn> MatchColumns(ClassQDBASE& table, std::span<const ColumnAlias> aliases, const std::vector<std::string>& headings,
                                       std::vector<std::string>& ignored);

}  // namespace ostrinka
