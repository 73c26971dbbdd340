#include "desktop/frame_edges.h"

#include <QMouseEvent>
#include <QWindow>
#include <algorithm>

namespace ostrinka {
namespace {

constexpr int kCorner = 14;

Qt::CursorShape PointerOver(Qt::Edges edges) {
  const bool left = edges & Qt::LeftEdge, right = edges & Qt::RightEdge, top = edges & Qt::TopEdge, bottom = edges & Qt::BottomEdge;
  if ((left && top) || (right && bottom)) return Qt::SizeFDiagCursor;
  if ((right && top) || (left && bottom)) return Qt::SizeBDiagCursor;
  if (left || right) return Qt::SizeHorCursor;
  return top || bottom ? Qt::SizeVerCursor : Qt::ArrowCursor;
}

}  // namespace

Qt::Edges FrameEdges::EdgesAt(const QPoint& at) const {
  const QRect area = window_.rect();
  if (window_.isMaximized() || area.adjusted(frame_, frame_, -frame_, -frame_).contains(at)) return {};
  Qt::Edges edges;
  if (at.x() < kCorner) edges |= Qt::LeftEdge;
  if (at.x() >= area.width() - kCorner) edges |= Qt::RightEdge;
  if (at.y() < kCorner) edges |= Qt::TopEdge;
  if (at.y() >= area.height() - kCorner) edges |= Qt::BottomEdge;
  return edges;
}

void FrameEdges::Press(const QMouseEvent& event) {
  const Qt::Edges edges = EdgesAt(event.position().toPoint());
  if (event.button() != Qt::LeftButton || !edges) return;
  if (window_.windowHandle() && window_.windowHandle()->startSystemResize(edges)) return;
  sizing_ = edges;
  grip_ = event.globalPosition().toPoint();
  grip_area_ = window_.geometry();
}

void FrameEdges::Move(const QMouseEvent& event) {
  if (!sizing_) {
    window_.setCursor(PointerOver(EdgesAt(event.position().toPoint())));
    return;
  }
  const QPoint by = event.globalPosition().toPoint() - grip_;
  const QSize least = window_.minimumSize();
  QRect area = grip_area_;
  if (sizing_ & Qt::LeftEdge) area.setLeft(std::min(area.left() + by.x(), area.right() - least.width() + 1));
  if (sizing_ & Qt::RightEdge) area.setRight(std::max(area.right() + by.x(), area.left() + least.width() - 1));
  if (sizing_ & Qt::TopEdge) area.setTop(std::min(area.top() + by.y(), area.bottom() - least.height() + 1));
  if (sizing_ & Qt::BottomEdge) area.setBottom(std::max(area.bottom() + by.y(), area.top() + least.height() - 1));
  window_.setGeometry(area);
}

}  // namespace ostrinka
