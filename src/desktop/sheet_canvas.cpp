#include "desktop/sheet_canvas.h"

#include <algorithm>
#include <cmath>

#include "desktop/device_grid.h"

namespace ostrinka {

SheetCanvas::SheetCanvas(QPainter& painter, double width, double height)
    : QCanvas(painter, width, height, HairlineWidth(painter)),
      sheet_(painter),
      pixel_(1 / std::max(painter.deviceTransform().m11(), 0.01)) {}

Pen SheetCanvas::OnDevice(Pen pen) const {
  // A pen of one unit stands for the thinnest that there is.
  pen.width = pen.width <= 1 ? HairlineWidth(sheet_) : std::max(1.0, std::round(pen.width / pixel_)) * pixel_;
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
  QCanvas::FillRect({grid.left(), grid.top(), grid.right(), grid.bottom()}, colour);
}

void SheetCanvas::DrawRect(const RectF& area, const Pen& pen) {
  const Pen drawn = OnDevice(pen);
  const PointF first = OnDevice({area.left, area.top}, drawn.width), last = OnDevice({area.right, area.bottom}, drawn.width);
  QCanvas::DrawRect({first.x, first.y, last.x, last.y}, drawn);
}

void SheetCanvas::DrawLine(PointF from, PointF to, const Pen& pen) {
  if (from.x != to.x && from.y != to.y) return QCanvas::DrawLine(from, to, pen);
  const Pen drawn = OnDevice(pen);
  QCanvas::DrawLine(OnDevice(from, drawn.width), OnDevice(to, drawn.width), drawn);
}

}  // namespace ostrinka
