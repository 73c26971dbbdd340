// The sign in the status bar that subscriptions are running out: how many, and a click opens their list.
#pragma once

#include <QAbstractButton>

#include "desktop/look.h"
#include "shell/main_window.h"

namespace ostrinka {

class TaskMark : public QAbstractButton {
 public:
  TaskMark(MainWindow& window, const Look& look, QWidget* parent);

  // Takes over the entry of the main menu: its caption, and whether it is shown at all.
  void Refresh();
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent*) override { update(); }
  void leaveEvent(QEvent*) override { update(); }

 private:
  MainWindow& window_;
  const Look& look_;
};

}  // namespace ostrinka
