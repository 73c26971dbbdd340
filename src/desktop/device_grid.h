// Lines and edges on the pixels of the device, so that a window is as sharp at one and a half times its size as at once or twice.
#pragma once

#include <QPainter>
#include <QRectF>
#include <algorithm>
#include <cmath>

namespace ostrinka {

// The width of a hairline in the painter's units: as many whole pixels of the device as its scale holds.
inline double HairlineWidth(const QPainter& painter) {
  const double scale = std::max(painter.deviceTransform().m11(), 0.01);
  return std::max(1.0, std::floor(scale)) / scale;
}

// `area` with its edges moved to the nearest pixels of the device; areas that touch still do.
inline QRectF OnGrid(const QPainter& painter, const QRectF& area) {
  const QTransform& to_device = painter.deviceTransform();
  if (to_device.type() > QTransform::TxScale) return area;
  const QRectF there = to_device.mapRect(area);
  const QPointF first(std::round(there.left()), std::round(there.top())), last(std::round(there.right()), std::round(there.bottom()));
  return to_device.inverted().mapRect(QRectF(first, last));
}

// Where a frame of a hairline runs that fills `area` to its edges.
inline QRectF HairlineFrame(const QPainter& painter, const QRectF& area) {
  const double half = HairlineWidth(painter) / 2;
  return OnGrid(painter, area).adjusted(half, half, -half, -half);
}

}  // namespace ostrinka
