// The main window: title strip, ribbon, list and status bar in one frame of its own.
//
// It shows the model MainWindow and hands the person's events to it. Frameless: the strip moves it, its edges size it.
#pragma once

#include <QWidget>

#include "desktop/frame_edges.h"
#include "desktop/key_tips.h"
#include "desktop/list_view.h"
#include "desktop/ribbon_view.h"
#include "desktop/status_bar.h"
#include "desktop/window_strip.h"

namespace ostrinka {

class MainWindowView : public QWidget {
 public:
  MainWindowView(Program& program, MainWindow& window, const Look& look);
  ~MainWindowView() override;

  // Shows the window where it stood when the program ended last.
  void ShowInPlace();
  // Takes over everything that the model shows.
  void Refresh();
  // The skin or the transparency is another: everything in sight is painted anew.
  void LookChanged();
  void ShowStatus(const QString& text) { status_->SetText(text); }
  // Upkeep, ten times a second: the place of the window for the settings.
  void Tick();
  void EnterAltState(bool on);

  RibbonView& ribbon() { return *ribbon_; }
  ListView& list() { return *list_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override { edges_.Press(*event); }
  void mouseMoveEvent(QMouseEvent* event) override { edges_.Move(*event); }
  void mouseReleaseEvent(QMouseEvent*) override { edges_.Release(); }
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool InFront() const;  // no form, box or list stands before the window
  bool WindowKey(const QKeyEvent& event);
  void AltKey(const QKeyEvent& event);
  void KeepPlace();

  Program& program_;
  MainWindow& window_;
  const Look& look_;
  FrameEdges edges_;
  WindowStrip* title_;
  RibbonView* ribbon_;
  ListView* list_;
  StatusBar* status_;
  KeyTipLayer* tips_;
  bool alt_pressed_ = false;  // Alt went down and nothing came between
  QString alt_letters_;
};

}  // namespace ostrinka
