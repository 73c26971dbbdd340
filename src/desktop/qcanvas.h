// A Canvas on a QPainter: window, preview, printer, picture or embedded-font PDF.
#pragma once

#include <QFont>
#include <QHash>
#include <QPainter>

#include "platform/canvas.h"

namespace ostrinka {

class QCanvas : public Canvas {
 public:
  // The painter must be active for as long as the canvas draws. `hairline` is the width of the thinnest pen, in pixels.
  QCanvas(QPainter& painter, double width, double height, double hairline = 1);

  double Width() const override { return width_; }
  double Height() const override { return height_; }
  void FillRect(const RectF& area, Colour colour) override;
  void DrawRect(const RectF& area, const Pen& pen) override;
  void DrawLine(PointF from, PointF to, const Pen& pen) override;
  void DrawPolyline(const std::vector<PointF>& points, const Pen& pen) override;
  void FillPolygon(const std::vector<PointF>& points, Colour colour) override;
  void DrawEllipse(const RectF& frame, const Pen& pen, const Colour* fill) override;
  void DrawText(PointF at, std::string_view text, const FontSpec& font, Colour colour, Anchor anchor, double advance) override;
  double TextWidth(std::string_view text, const FontSpec& font) override;
  double TextHeight(const FontSpec& font) override { return font.height; }
  void DrawPicture(const RectF& area, const Picture& picture) override;
  void PushClip(const RectF& area) override;
  void PopClip() override;

 protected:
  static QColor ColourOf(Colour colour) { return QColor(colour & 255, colour >> 8 & 255, colour >> 16 & 255); }
  static QRectF RectOf(const RectF& area) { return {area.left, area.top, area.width(), area.height()}; }

  QPainter& painter_;

 private:
  // A font of a fixed design size, and what brings it to the cell height asked for.
  struct Fitted {
    QFont font;
    double ascent = 0, cell = 1;  // at the design size
  };
  const Fitted& FontOf(const FontSpec& wanted);
  QPen PenOf(const Pen& pen) const;

  double width_, height_, hairline_;
  QHash<QString, Fitted> fonts_;
};

// The face to use for a name: itself where it is installed, else the free one that comes nearest.
QString InstalledFace(std::string_view name);

}  // namespace ostrinka
