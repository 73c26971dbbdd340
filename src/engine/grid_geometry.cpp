#include "engine/grid_geometry.h"

#include <algorithm>
#include <cmath>

namespace ostrinka {
namespace {

constexpr int kGapAboveRows = 5, kRoomInRow = 3, kLine = 2;
constexpr int kWidest = 100000;

double Zoom(const TableLook& look) {
  return std::clamp(look.zoom, 0.1, 10.0);
}

}  // namespace

FontSpec GridFont(const TableLook& look) {
  const double twips = look.twips_per_pixel > 0 ? look.twips_per_pixel : 15;
  const double points = (1 + (15 - twips) * 0.05) * 8 * Zoom(look);
  FontSpec font;
  font.face = "Tahoma";
  font.height = std::max(points * 20 / twips * kGridCellOfType, 1.0);
  return font;
}

int GridRowHeight(double text_height) {
  return static_cast<int>(std::ceil(text_height)) + kRoomInRow;
}

int GridColumnWidth(const TableLook& look, int column, int kept) {
  const size_t place = static_cast<size_t>(std::max(column, 1) - 1);
  const int width = std::clamp(place < look.widths.size() ? look.widths[place] : kept, 0, kWidest);
  return static_cast<int>(Zoom(look) * static_cast<int>(width * look.widen));
}

GridGeometry::GridGeometry(const GridSurface& surface)
    : row_height_(surface.row_height), heads_(surface.heads ? surface.row_height : 0), left_(surface.left), height_(surface.height) {}

void GridGeometry::Add(int column, int field, int width) {
  columns_.push_back({column, field, right(), width});
}

int GridGeometry::right() const {
  return columns_.empty() ? left_ : columns_.back().left + columns_.back().width;
}

const ColumnSpan* GridGeometry::ColumnAt(double x) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const ColumnSpan& span) { return span.Holds(x); });
  return found == columns_.end() ? nullptr : &*found;
}

const ColumnSpan* GridGeometry::Numbered(int column) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const ColumnSpan& span) { return span.column == column; });
  return found == columns_.end() ? nullptr : &*found;
}

const ColumnSpan* GridGeometry::BorderAt(double x, int grip) const {
  const auto found = std::find_if(columns_.rbegin(), columns_.rend(),
                                  [&](const ColumnSpan& span) { return std::abs(x - (span.left + span.width - 1)) <= grip; });
  return found == columns_.rend() ? nullptr : &*found;
}

int GridGeometry::RowTop(int place) const {
  return heads_ + kGapAboveRows + place * row_height_;
}

int GridGeometry::RowsWithin(double height) const {
  return row_height_ > 0 ? static_cast<int>(height - RowTop(0)) / row_height_ : 0;
}

TableCell GridGeometry::Cell(const ColumnSpan& span, int top) const {
  return {span.column, span.left, top, span.left + span.width - kLine, top + row_height_ - kLine, span.field, 0, 0};
}

}  // namespace ostrinka
