// The strip at the top of a dialog: its title, a button that closes it, and a place to move it by. And the frame around its pages.
#pragma once

#include <QWidget>
#include <functional>

#include "desktop/look.h"

namespace ostrinka {

class TitleStrip : public QWidget {
 public:
  TitleStrip(const Look& look, QWidget* window, std::function<void()> close);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QRectF CloseArea() const;
  const Look& look_;
  std::function<void()> close_;
  bool hot_ = false, pressed_ = false, dragging_ = false;
  QPoint grip_;
};

class PaneFrame : public QWidget {
 public:
  PaneFrame(const Look& look, QWidget* parent) : QWidget(parent), look_(look) {}
  void SetPane(QWidget* pane) { pane_ = pane; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Look& look_;
  QWidget* pane_ = nullptr;
};

}  // namespace ostrinka
