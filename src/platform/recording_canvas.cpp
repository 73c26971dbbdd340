#include "platform/recording_canvas.h"

#include "base/text.h"

namespace ostrinka {

using Kind = RecordingCanvas::Call::Kind;

void RecordingCanvas::FillRect(const RectF& area, Colour colour) {
  Call call{Kind::kFill, area, {}, colour, {}, {}, Anchor::kLeft, {}};
  calls_.push_back(std::move(call));
}

void RecordingCanvas::DrawRect(const RectF& area, const Pen& pen) {
  calls_.push_back({Kind::kRect, area, {}, pen.colour, {}, pen, Anchor::kLeft, {}});
}

void RecordingCanvas::DrawLine(PointF from, PointF to, const Pen& pen) {
  calls_.push_back({Kind::kLine, {from.x, from.y, to.x, to.y}, {}, pen.colour, {}, pen, Anchor::kLeft, {}});
}

void RecordingCanvas::DrawPolyline(const std::vector<PointF>& points, const Pen& pen) {
  calls_.push_back({Kind::kPolyline, {}, {}, pen.colour, {}, pen, Anchor::kLeft, points});
}

void RecordingCanvas::FillPolygon(const std::vector<PointF>& points, Colour colour) {
  calls_.push_back({Kind::kPolygon, {}, {}, colour, {}, {}, Anchor::kLeft, points});
}

void RecordingCanvas::DrawEllipse(const RectF& frame, const Pen& pen, const Colour* fill) {
  calls_.push_back({Kind::kEllipse, frame, {}, fill ? *fill : pen.colour, {}, pen, Anchor::kLeft, {}});
}

void RecordingCanvas::DrawText(PointF at, std::string_view text, const FontSpec& font, Colour colour, Anchor anchor, double) {
  calls_.push_back({Kind::kText, {at.x, at.y, at.x, at.y}, std::string(text), colour, font, {}, anchor, {}});
}

double RecordingCanvas::TextWidth(std::string_view text, const FontSpec& font) {
  return 0.5 * font.height * static_cast<double>(CharacterCount(text));
}

void RecordingCanvas::DrawPicture(const RectF& area, const Picture&) {
  calls_.push_back({Kind::kPicture, area, {}, 0, {}, {}, Anchor::kLeft, {}});
}

}  // namespace ostrinka
