// Where the cells of a dictionary lie, and the field over the one that is open.
#include <algorithm>

#include "desktop/list_canvas.h"
#include "desktop/list_view.h"
#include "shell/tabs.h"

namespace ostrinka {

void ListView::PlaceEditor() {
  if (editor_) editor_->Refresh(ListCanvas::Font(std::clamp(TextZoom(window_.list.zoom()), 0.1, 10.0)));
}

// Rows of records that another workstation deleted meanwhile are not drawn.
QRect ListView::CellArea(int32_t record, int column) const {
  ClassQDBASE* table = Shown();
  if (!table) return {};
  const auto& rows = table->selection();
  int top = RowHeight() + kGapUnderHeader;
  bool found = false;
  for (size_t i = static_cast<size_t>(std::max(window_.list.first_row - 1, 0)); i < rows.size() && top < Surface().bottom(); ++i) {
    found = rows[i] == record;
    if (found) break;
    if (table->RECORD_EXIST(rows[i])) top += RowHeight();
  }
  if (!found) return {};
  for (const Span& span : Spans()) {
    if (span.column == column) return QRect(span.left, top, span.width - 1, RowHeight() - 1) & Surface();
  }
  return {};
}

void ListView::Reveal(int32_t record, int column) {
  ClassQDBASE* table = Shown();
  if (!table) return;
  const auto& rows = table->selection();
  const auto here = std::find(rows.begin(), rows.end(), record);
  if (here != rows.end()) current_row_ = static_cast<int>(here - rows.begin()) + 1;
  KeepInView();
  if (column < first_column_) columns_->setValue(column - 1);
  for (int tries = 0; tries < table->MAX_COLUMNS() && first_column_ < column; ++tries) {
    const std::vector<Span> spans = Spans();
    const auto span = std::find_if(spans.begin(), spans.end(), [&](const Span& s) { return s.column == column; });
    if (span == spans.end() || span->left + span->width <= Surface().width() || columns_->value() == columns_->maximum()) break;
    columns_->setValue(columns_->value() + 1);
  }
}

bool ListView::EditAt(const QPoint& at) {
  ClassQDBASE* table = Shown();
  if (window_.list.CurrentTable != kDictionariesTab || !table) return false;
  const auto& rows = table->selection();
  const auto here = std::find(rows.begin(), rows.end(), table->RECORD_POSITION());
  if (here == rows.end()) return false;
  for (const Span& span : Spans()) {
    if (at.x() >= span.left && at.x() < span.left + span.width) {
      return window_.UserCell(static_cast<int>(here - rows.begin()) + 1, span.column);
    }
  }
  return false;
}

}  // namespace ostrinka
