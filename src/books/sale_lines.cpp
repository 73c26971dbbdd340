#include "books/sale_lines.h"

#include "books/books.h"

namespace ostrinka {
namespace {

template <typename Wanted>
LinesByDocument Gather(Program& program, Wanted wanted) {
  LinesByDocument lines;
  // The identity is looked at first: of a line that is not wanted nothing else is decoded.
  std::vector<FieldId> fields = FieldsOf<SalesLine>();
  fields.emplace_back(line_columns::kDocument.name);
  const size_t identity_cell = fields.size() - 1;
  Table(program, SalesLine::kTable).WALK(fields, [&](int32_t record, const RecordCells& cells) {
    const int32_t identity = FromStored(line_columns::kDocument, cells[identity_cell]);
    if (identity >= 1 && wanted(identity)) lines[identity].push_back({record, RowFrom<SalesLine>(cells)});
    return true;
  });
  return lines;
}

}  // namespace

LinesByDocument LinesOfDocuments(Program& program, const std::set<int32_t>& identities) {
  return Gather(program, [&](int32_t identity) { return identities.contains(identity); });
}

LinesByDocument AllLines(Program& program) {
  return Gather(program, [](int32_t) { return true; });
}

std::vector<StoredLine> LinesOfDocument(Program& program, int32_t identity) {
  if (identity < 1) return {};
  LinesByDocument lines = Gather(program, [&](int32_t other) { return other == identity; });
  return std::move(lines[identity]);
}

}  // namespace ostrinka
