#include "engine/table_painter.h"

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr double kTintRatio = 0.025, kChosenRatio = 0.25, kHeadRatio = 0.35;

Colour Mix(Colour first, Colour second, double ratio) {
  Colour result = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    const double a = first >> shift & 0xFF, b = second >> shift & 0xFF;
    result |= static_cast<Colour>((1 - ratio) * a + ratio * b) << shift;
  }
  return result;
}

}  // namespace

TablePainter::TablePainter(Canvas& surface, const TableLook& look)
    : surface_(surface), look_(look), font_(GridFont(look)), row_height_(GridRowHeight(surface.TextHeight(font_))) {}

int TablePainter::number_width() const {
  return static_cast<int>(surface_.TextWidth("00", font_)) + 4;
}

void TablePainter::Background() {
  surface_.FillRect({0, 0, surface_.Width(), surface_.Height()}, look_.background);
}

void TablePainter::Header(const GridGeometry& grid, const std::vector<ColumnFormat>& formats) {
  const double height = grid.heads();
  surface_.FillRect({0, 0, surface_.Width(), height}, Mix(look_.background, look_.line, kHeadRatio));
  for (const ColumnSpan& span : grid.columns()) {
    if (span.field == 0) continue;
    const ColumnFormat& format = formats[static_cast<size_t>(span.field)];
    Cell(grid.Cell(span, 0), format.title, format.alignment);
  }
  surface_.DrawLine({0, height - 1}, {surface_.Width(), height - 1}, {look_.line});
}

void TablePainter::RowGround(int top, bool even, bool chosen) {
  const RectF row{0, static_cast<double>(top), surface_.Width(), static_cast<double>(top + row_height_ - 1)};
  if (chosen) {
    surface_.FillRect(row, Mix(look_.background, look_.highlight, kChosenRatio));
  } else if (even) {
    surface_.FillRect(row, Mix(look_.background, look_.foreground, kTintRatio));
  }
  surface_.DrawLine({0, row.bottom}, {surface_.Width(), row.bottom}, {chosen ? look_.highlight : look_.line});
}

std::string TablePainter::Fitted(const std::string& text, double width) {
  if (surface_.TextWidth(text, font_) <= width) return text;
  // The longest start that leaves room for the mark.
  size_t low = 0, high = CharacterCount(text);
  while (low < high) {
    const size_t middle = (low + high + 1) / 2;
    if (surface_.TextWidth(LeftCharacters(text, middle) + "…", font_) <= width) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  return LeftCharacters(text, low) + "…";
}

void TablePainter::Cell(const TableCell& cell, const std::string& text, int alignment) {
  const double width = cell.right - cell.left;
  if (text.empty() || width <= 4) return;
  const std::string shown = Fitted(text, width - 4);
  const double text_width = surface_.TextWidth(shown, font_);
  const double x = alignment == 0  ? cell.left + width * 0.5 - text_width * 0.5
                   : alignment > 0 ? cell.left + 2
                                   : cell.right - text_width - 2;
  surface_.PushClip({static_cast<double>(cell.left), static_cast<double>(cell.top), cell.right + 1.0, cell.bottom + 1.0});
  surface_.DrawText({x, static_cast<double>(cell.top)}, shown, font_, look_.foreground, Anchor::kLeft);
  surface_.PopClip();
}

void TablePainter::Lines(const GridGeometry& grid, int bottom) {
  for (const ColumnSpan& span : grid.columns()) {
    const double x = span.left + span.width - 1;
    surface_.DrawLine({x, 0}, {x, static_cast<double>(bottom)}, {look_.line});
  }
}

}  // namespace ostrinka
