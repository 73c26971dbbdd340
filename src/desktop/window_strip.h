// The strip at the top of a window of its own frame: title, what the window shows, the window buttons. It moves the window.
#pragma once

#include <QWidget>

#include "desktop/ribbon_button.h"

namespace ostrinka {

class WindowStrip : public QWidget {
 public:
  // A window that stands before another has no button that minimises it.
  WindowStrip(const Look& look, QWidget* window, bool minimises = true);

  // The company, or what else the window shows, is named beside the window's title.
  void SetCompany(const QString& company);
  // Takes over whether the window is maximised or active.
  void Refresh();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void ToggleMaximised();
  const Look& look_;
  RibbonButton *minimise_, *maximise_, *close_;
  QString company_;
  QPoint grip_;  // where the strip was taken, when the window system does not move windows
  bool moving_ = false;
};

}  // namespace ostrinka
