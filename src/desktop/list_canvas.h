// The surface of a table view on the screen: hinted text in whole pixels and hairlines on the pixels of the device, so that a list is sharp
// at every scale of the display.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>

#include "desktop/qcanvas.h"

namespace ostrinka {

class ListCanvas : public QCanvas {
 public:
  // The surface begins `inset` pixels right of the painter's edge; grounds and lines that begin at its edge reach out to that of the
  // painter.
  ListCanvas(QPainter& painter, double width, double height, double inset = 0);

  // Of a table view drawn on such a canvas at `zoom`.
  static int RowHeight(double zoom);
  static QFont Font(double zoom);

  void FillRect(const RectF& area, Colour colour) override;
  void DrawRect(const RectF& area, const Pen& pen) override;
  void DrawLine(PointF from, PointF to, const Pen& pen) override;
  void DrawText(PointF at, std::string_view text, const FontSpec& font, Colour colour, Anchor anchor, double advance) override;
  // With the room that keeps texts off the lines beside them.
  double TextWidth(std::string_view text, const FontSpec& font) override;
  // Of a line with the room above and below it that makes a list easy to read.
  double TextHeight(const FontSpec& font) override;

 private:
  struct Fitted {
    QFont font;
    QFontMetricsF metrics;
  };
  const Fitted& FontOf(const FontSpec& wanted);

  double inset_, ratio_;
  QHash<QString, Fitted> fonts_;
};

}  // namespace ostrinka
