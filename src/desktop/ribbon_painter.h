// Paints the parts of the main window's frame: strips, tools, tabs, lists that drop down. Colours come from the skin, shapes are drawn anew
// for every scale.
#pragma once

#include <QPainter>
#include <QStringList>

#include "desktop/look.h"

namespace ostrinka {

// The colours of the frame, worked out from those of the skin.
struct FrameColours {
  explicit FrameColours(const Look& look);
  QColor title, title_edge, strip, panel, panel_edge, hover, press, check, edge, list_line, list_tint, popup, popup_hover;
};

// A mix of two colours: `share` of the second, from 0 to 1.
QColor MixOf(const QColor& first, const QColor& second, double share);
// Black or white, whichever reads better on `ground`.
QColor ReadableOn(const QColor& ground);

enum class Glyph { kFirst, kPrevious, kNext, kLast, kDrop, kMenu, kMinimise, kMaximise, kRestore, kClose, kTick, kDot, kMinus, kPlus };

class RibbonPainter {
 public:
  RibbonPainter(QPainter& painter, const Look& look);

  // A picture of the skin stretched to `area`; three of them side by side; three rows of three of which the first and the last keep their
  // height. False when the skin lacks them: nothing is drawn.
  bool Part(const QRectF& area, std::string_view image);
  bool Three(const QRectF& area, std::string_view element);
  bool Nine(const QRectF& area, const std::string& element, double top, double bottom);

  struct ToolState {
    bool enabled = true, hover = false, pressed = false, checked = false, focused = false;
  };
  // Ground of a tool in its state; nothing for a tool at rest. `large` is one with its icon above its caption.
  void ToolGround(const QRectF& area, const ToolState& state, bool large = false);
  // The lower part of a large split button, `area`, under the pointer, and the line above it.
  void SplitGround(const QRectF& area, const ToolState& state, bool over);
  // The colour of a tool's text in its state.
  QColor ToolText(const ToolState& state) const;
  void FocusRing(const QRectF& area);
  // A mark of lines, drawn within `area`.
  void Mark(Glyph glyph, const QRectF& area, const QColor& colour);
  // A level or upright hairline of one device pixel.
  void Hairline(QPointF from, QPointF to, const QColor& colour);
  // A badge with the letters of a key tip, centred on `at`.
  void Badge(QPointF at, const QString& letters, bool enabled);

  const FrameColours& colours() const { return colours_; }
  const Look& look() const { return look_; }

 private:
  double Radius() const { return look_.RoundCorners() ? 4 : 0; }
  QPainter& painter_;
  const Look& look_;
  FrameColours colours_;
};

// A caption in at most two lines, broken at the blank that leaves the narrower pair.
QStringList TwoLines(const QString& caption, const QFontMetricsF& metrics);

}  // namespace ostrinka
