// A canvas for printed sheets on the screen: level and upright edges fall on whole pixels of the device, so that a page's thin lines are as
// sharp at one and a half times the screen's plain density as at once or twice.
#pragma once

#include "desktop/qcanvas.h"

namespace ostrinka {

class SheetCanvas : public QCanvas {
 public:
  // `hairline` is the width, in the painter's units, that the thinnest pen stands for; it becomes a whole number of pixels.
  SheetCanvas(QPainter& painter, double width, double height, double hairline);

  void FillRect(const RectF& area, Colour colour) override;
  void DrawRect(const RectF& area, const Pen& pen) override;
  void DrawLine(PointF from, PointF to, const Pen& pen) override;

 private:
  void Bar(PointF from, PointF to, const Pen& pen);
  Pen OnDevice(Pen pen) const;
  // Where a stroke of that width runs so that its edges fall on pixels.
  PointF OnDevice(PointF at, double width) const;

  QPainter& sheet_;
  double pixel_;  // a pixel of the device, in the painter's units
  double hairline_;
};

}  // namespace ostrinka
