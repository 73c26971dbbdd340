// Sizes a window without a system frame by its edges: the window hands its mouse events in.
#pragma once

#include <QWidget>

class QMouseEvent;

namespace ostrinka {

class FrameEdges {
 public:
  // `frame` is the width, in pixels, of the edges that the window leaves free.
  FrameEdges(QWidget& window, int frame) : window_(window), frame_(frame) {}

  void Press(const QMouseEvent& event);
  void Move(const QMouseEvent& event);  // sizes, or shows by the pointer what a press would do
  void Release() { sizing_ = {}; }

 private:
  Qt::Edges EdgesAt(const QPoint& at) const;

  QWidget& window_;
  int frame_;
  Qt::Edges sizing_;  // when the window system does not size windows itself
  QPoint grip_;
  QRect grip_area_;
};

}  // namespace ostrinka
