// The list of the main window: the table view drawn by the engine on the visible area, its scroll bars, its mouse and keyboard.
#pragma once

#include <QScrollBar>
#include <QWidget>
#include <functional>

#include "desktop/look.h"
#include "shell/main_window.h"

namespace ostrinka {

class ListView : public QWidget {
 public:
  ListView(Program& program, MainWindow& window, const Look& look, QWidget* parent);

  // Takes over what the model shows now; keeps the current row in view when it is another one.
  void Refresh();
  // Row of the current record from 1 in the selection, 0 for none.
  int CurrentRow() const { return current_row_; }
  // Opens the menu of the tab at a point of the list.
  std::function<void(const QPoint& global)> show_menu;

  static constexpr int kInset = 6;      // the table begins so many pixels right of the list's edge
  static double TextZoom(double zoom);  // what TABLE_DRAW is given for a zoom of the window

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Span {
    int column, field, left, width;
  };
  ClassQDBASE* Shown() const;  // null when the area says what to do instead
  QRect Surface() const;       // the area without scroll bars
  std::vector<Span> Spans() const;
  int RowHeight() const;
  int PageRows() const;
  void Arrange();  // scroll bars by the size of list and area
  void KeepInView();
  int BorderAt(const QPoint& at) const;  // index into Spans() of the border under the mouse, -1 for none
  bool InHeader(const QPoint& at) const;
  bool SelectAt(const QPoint& at);
  void PaintTable(QPainter& painter, ClassQDBASE& table);
  void PaintHint(QPainter& painter, const QString& text, const QRect& area);
  QString Hint() const;
  void Fit();  // how far columns are widened to fill the area
  void TellAccessibility();

  Program& program_;
  MainWindow& window_;
  const Look& look_;
  QScrollBar *rows_, *columns_;
  const ClassQDBASE* table_ = nullptr;
  int32_t record_ = 0;
  int current_row_ = 0, row_count_ = -1, first_column_ = 1;
  double fit_ = 1;
  int fitted_width_ = -1;
  int drag_field_ = 0, drag_from_ = 0, drag_width_ = 0, press_column_ = 0, hover_column_ = -1;
  int wheel_rest_ = 0;
};

}  // namespace ostrinka
