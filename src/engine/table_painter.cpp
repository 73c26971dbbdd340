#include "engine/table_painter.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr double kTintRatio = 0.025, kChosenRatio = 0.25, kHeadRatio = 0.35;
constexpr double kTahomaCell = 1.207;  // cell height by the size of the type

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
    : surface_(surface), look_(look), zoom_(std::clamp(look.zoom, 0.1, 10.0)) {
  const double twips = look.twips_per_pixel > 0 ? look.twips_per_pixel : 15;
  const double points = (1 + (15 - twips) * 0.05) * 8 * zoom_;
  font_.face = "Tahoma";
  font_.height = std::max(points * 20 / twips * kTahomaCell, 1.0);
  row_height_ = static_cast<int>(std::ceil(surface_.TextHeight(font_))) + 3;
}

std::vector<ColumnSpan> TablePainter::Columns(const std::vector<int>& fields, const std::vector<ColumnFormat>& formats, int first_column) {
  std::vector<ColumnSpan> spans;
  int left = 0;
  for (int column = std::max(first_column, 0); column <= static_cast<int>(fields.size()) && left < surface_.Width(); ++column) {
    const int field = column == 0 ? 0 : fields[static_cast<size_t>(column - 1)];
    const int width = column == 0 ? static_cast<int>(surface_.TextWidth("00", font_)) + 4
                                  : static_cast<int>(zoom_ * std::clamp(formats[static_cast<size_t>(field)].width, 0, 100000));
    spans.push_back({column, field, left, width});
    left += width;
  }
  return spans;
}

void TablePainter::Background() {
  surface_.FillRect({0, 0, surface_.Width(), surface_.Height()}, look_.background);
}

void TablePainter::Header(const std::vector<ColumnSpan>& spans, const std::vector<ColumnFormat>& formats) {
  const double height = row_height_;
  surface_.FillRect({0, 0, surface_.Width(), height}, Mix(look_.background, look_.line, kHeadRatio));
  for (const ColumnSpan& span : spans) {
    if (span.field == 0) continue;
    const ColumnFormat& format = formats[static_cast<size_t>(span.field)];
    const TableCell head{span.column, span.left, 0, span.left + span.width - 2, row_height_ - 2, span.field, 0, 0};
    Cell(head, format.title, format.alignment);
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

void TablePainter::Grid(const std::vector<ColumnSpan>& spans, int bottom) {
  for (const ColumnSpan& span : spans) {
    const double x = span.left + span.width - 1;
    surface_.DrawLine({x, 0}, {x, static_cast<double>(bottom)}, {look_.line});
  }
}

}  // namespace ostrinka
