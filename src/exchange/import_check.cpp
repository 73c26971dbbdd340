#include "exchange/import_check.h"

#include <algorithm>

#include "books/columns.h"
#include "exchange/import_columns.h"

namespace ostrinka {
namespace {

std::string FileFault(Program& program, const std::string& path, const Column<std::string>& name, std::span<const ColumnAlias> aliases) {
  SeparatedFile file;
  const SeparatedFile::OpenResult opened = file.Open(program.platform.files, path);
  if (opened != SeparatedFile::OpenResult::kOpened) return OpenFault(program, opened, path);
  SeparatedRow row;
  if (!file.Next(row) || row.fault != RowFault::kNone) return program.Text("imp.err.nottext");
  const bool named = std::any_of(row.fields.begin(), row.fields.end(),
                                 [&](const std::string& heading) { return HeadingNames(heading, name.name, aliases); });
  return named ? "" : program.Text("imp.err.noname");
}

}  // namespace

std::string CustomersFileFault(Program& program, const std::string& path) {
  return FileFault(program, path, customer_columns::kName, CustomerAliases());
}

std::string ArticlesFileFault(Program& program, const std::string& path) {
  return FileFault(program, path, article_columns::kName, ArticleAliases());
}

std::string OpenFault(Program& program, SeparatedFile::OpenResult opened, const std::string& path) {
  using Opened = SeparatedFile::OpenResult;
  switch (opened) {
    case Opened::kUnreadable:
      return program.Text("imp.err.unreadable", {path});
    case Opened::kTooLarge:
      return program.Text("imp.err.toolarge", {std::to_string(kSeparatedFileLimit >> 20)});
    case Opened::kNotText:
      return program.Text("imp.err.nottext");
    case Opened::kEmpty:
      return program.Text("imp.err.empty");
    case Opened::kOpened:
      break;
  }
  return "";
}

}  // namespace ostrinka
