#include "desktop/sheet_canvas.h"

#include <algorithm>
#include <cmath>

#include "desktop/device_grid.h"

namespace ostrinka {

namespace {

double PixelOf(const QPainter& painter) {
  return 1 / std::max(painter.deviceTransform().m11(), 0.01);
}
double WholePixels(double width, double pixel) {
  return std::max(1.0, std::floor(width / pixel + 0.01)) * pixel;
}

}  // namespace

SheetCanvas::SheetCanvas(QPainter& painter, double width, double height, double hairline)
    : QCanvas(painter, width, height, WholePixels(hairline, PixelOf(painter))),
      sheet_(painter),
      pixel_(PixelOf(painter)),
      hairline_(WholePixels(hairline, pixel_)) {}

Pen SheetCanvas::OnDevice(Pen pen) const {
  // A pen of one unit stands for the thinnest that there is.
  pen.width = pen.width <= 1 ? hairline_ : std::max(hairline_, std::round(pen.width / pixel_) * pixel_);
  return pen;
}

PointF SheetCanvas::OnDevice(PointF at, double width) const {
  const QRectF grid = OnGrid(sheet_, QRectF(at.x - width / 2, at.y - width / 2, 0, 0));
  return {grid.x() + width / 2, grid.y() + width / 2};
}

// What has a height or a width keeps at least a pixel of it.
void SheetCanvas::FillRect(const RectF& area, Colour colour) {
  QRectF grid = OnGrid(sheet_, QRectF(area.left, area.top, area.width(), area.height()));
  if (area.width() > 0) grid.setWidth(std::max(grid.width(), pixel_));
  if (area.height() > 0) grid.setHeight(std::max(grid.height(), pixel_));
  // On the grid there is nothing to smooth, and the last bits of its coordinates are no shade of the colour.
  sheet_.setRenderHint(QPainter::Antialiasing, false);
  QCanvas::FillRect({grid.left(), grid.top(), grid.right(), grid.bottom()}, colour);
  sheet_.setRenderHint(QPainter::Antialiasing);
}

void SheetCanvas::DrawRect(const RectF& area, const Pen& pen) {
  const Pen drawn = OnDevice(pen);
  const PointF first = OnDevice({area.left, area.top}, drawn.width), last = OnDevice({area.right, area.bottom}, drawn.width);
  if (drawn.style != PenStyle::kSolid) return QCanvas::DrawRect({first.x, first.y, last.x, last.y}, drawn);
  for (const double y : {first.y, last.y}) Bar({first.x, y}, {last.x, y}, drawn);
  for (const double x : {first.x, last.x}) Bar({x, first.y}, {x, last.y}, drawn);
}

// A whole level or upright line on the grid, with its ends.
void SheetCanvas::Bar(PointF from, PointF to, const Pen& pen) {
  const double half = pen.width / 2;
  FillRect({std::min(from.x, to.x) - half, std::min(from.y, to.y) - half, std::max(from.x, to.x) + half, std::max(from.y, to.y) + half},
           pen.colour);
}

void SheetCanvas::DrawLine(PointF from, PointF to, const Pen& pen) {
  if (from.x != to.x && from.y != to.y) return QCanvas::DrawLine(from, to, pen);
  const Pen drawn = OnDevice(pen);
  const PointF first = OnDevice(from, drawn.width), last = OnDevice(to, drawn.width);
  drawn.style == PenStyle::kSolid ? Bar(first, last, drawn) : QCanvas::DrawLine(first, last, drawn);
}

}  // namespace ostrinka
