// The window of the print preview: toolbar, sheets, a line with the page in sight and the zoom.
#pragma once

#include <QDialog>
#include <vector>

#include "controls/event.h"
#include "desktop/frame_edges.h"
#include "desktop/ribbon_button.h"
#include "desktop/sheet_view.h"

class QLabel;

namespace ostrinka {

class WindowStrip;

class PreviewWindow : public QDialog {
 public:
  PreviewWindow(const Look& look, frm_DocPreview& preview, QWidget* parent);

  // Shows the preview where it stood last, and returns when it closes.
  void Run();
  // What a command that runs reports.
  void ShowStatus(const QString& text);

  RibbonButton* Button(std::string_view command) const;
  SheetView& sheets() { return *sheets_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void reject() override { Command("CLOSE"); }
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override { edges_.Press(*event); }
  void mouseMoveEvent(QMouseEvent* event) override { edges_.Move(*event); }
  void mouseReleaseEvent(QMouseEvent*) override { edges_.Release(); }

 private:
  QWidget* MakeToolbar();
  QWidget* MakeFoot();
  void Command(std::string_view key);
  void Refresh();
  void Place();
  void KeepPlace();

  const Look& look_;
  frm_DocPreview& preview_;
  FrameEdges edges_;
  WindowStrip* strip_;
  SheetView* sheets_;
  std::vector<std::pair<std::string_view, RibbonButton*>> buttons_;
  QLabel *place_ = nullptr, *status_ = nullptr, *percent_ = nullptr;
  Connection repaint_, closed_;
};

}  // namespace ostrinka
