// The line at the bottom of the main window: status text, place in the list, zoom.
#pragma once

#include <QSlider>
#include <QWidget>

#include "desktop/ribbon_button.h"
#include "desktop/task_mark.h"
#include "shell/main_window.h"

namespace ostrinka {

class StatusBar : public QWidget {
 public:
  StatusBar(MainWindow& window, const Look& look, QWidget* parent);

  // Takes over status text and zoom; `row` and `count` tell the place in the list, `count` below 0 that there is none.
  void Refresh(int row, int count);
  // The status line alone, for what a long work reports.
  void SetText(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  MainWindow& window_;
  const Look& look_;
  QSlider* zoom_;
  RibbonButton *less_, *more_;
  TaskMark* tasks_;
  QString text_, place_, percent_;
};

}  // namespace ostrinka
