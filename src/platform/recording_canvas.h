// A canvas that keeps what was drawn on it, with a text measure that needs no font: for the front end without a window, and for tests.
#pragma once

#include "platform/canvas.h"

namespace ostrinka {

class RecordingCanvas : public Canvas {
 public:
  struct Call {
    enum class Kind { kFill, kRect, kLine, kPolyline, kPolygon, kEllipse, kText, kPicture } kind;
    RectF area;  // of a line: its ends; of a text: left top of its anchor in left, top
    std::string text;
    Colour colour = 0;
    FontSpec font;
    Pen pen;
    Anchor anchor = Anchor::kLeft;
    std::vector<PointF> points;
  };

  RecordingCanvas(double width, double height) : width_(width), height_(height) {}
  const std::vector<Call>& calls() const { return calls_; }
  void Clear() { calls_.clear(); }

  double Width() const override { return width_; }
  double Height() const override { return height_; }
  void FillRect(const RectF& area, Colour colour) override;
  void DrawRect(const RectF& area, const Pen& pen) override;
  void DrawLine(PointF from, PointF to, const Pen& pen) override;
  void DrawPolyline(const std::vector<PointF>& points, const Pen& pen) override;
  void FillPolygon(const std::vector<PointF>& points, Colour colour) override;
  void DrawEllipse(const RectF& frame, const Pen& pen, const Colour* fill) override;
  void DrawText(PointF at, std::string_view text, const FontSpec& font, Colour colour, Anchor anchor, double advance) override;
  // Half the cell height a character.
  double TextWidth(std::string_view text, const FontSpec& font) override;
  double TextHeight(const FontSpec& font) override { return font.height; }
  void DrawPicture(const RectF& area, const Picture& picture) override;
  void PushClip(const RectF&) override {}
  void PopClip() override {}

 private:
  double width_, height_;
  std::vector<Call> calls_;
};

}  // namespace ostrinka
