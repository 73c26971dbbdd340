// The list of the main window: the table view drawn by the engine on the visible area, its scroll bars, its mouse and keyboard.
#pragma once

#include <QScrollBar>
#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/list_editor.h"
#include "desktop/look.h"
#include "engine/table_view.h"
#include "shell/main_window.h"

namespace ostrinka {

class ListView : public QWidget {
 public:
  ListView(Program& program, MainWindow& window, const Look& look, QWidget* parent);

  // Takes over what the model shows now; keeps the current row in view when it is another one.
  void Refresh();
  // Row of the current record from 1 in the selection, 0 for none.
  int CurrentRow() const { return current_row_; }
  // The colours of the skin may be others now.
  void LookChanged();
  // Opens the menu of the tab at a point of the list.
  std::function<void(const QPoint& global)> show_menu;

  ClassQDBASE* Shown() const;  // null when the area says what to do instead
  MainWindow& window() const { return window_; }
  int PageRows() const;
  QRect CellArea(int32_t record, int column) const;  // column from 1; empty for a cell that is not on show

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
  QRect Surface() const;                      // the area without scroll bars
  GridGeometry Grid(int first_column) const;  // where the columns lie on the list, those right of its edge too
  GridGeometry Grid() const { return Grid(first_column_); }
  int RowHeight() const;
  void Arrange();  // scroll bars by the size of list and area
  void KeepInView();
  std::optional<ColumnSpan> BorderAt(const QPoint& at) const;  // of the heads
  int HeadAt(const QPoint& at) const;                          // column whose head lies under the mouse, 0 for none
  bool InHeader(const QPoint& at) const;
  bool SelectAt(const QPoint& at);
  bool EditAt(const QPoint& at);  // a click on a cell of a dictionary
  void Reveal(int32_t record, int column);
  void PlaceEditor();
  void PaintTable(QPainter& painter, ClassQDBASE& table);
  void PaintOrder(QPainter& painter);
  void PaintHint(QPainter& painter, const QString& text, const QRect& area);
  QString Hint() const;
  void Fit();  // how far columns are widened to fill the area
  void TellAccessibility();

  Program& program_;
  MainWindow& window_;
  const Look& look_;
  QScrollBar *rows_, *columns_;
  ListEditor* editor_;
  const ClassQDBASE* table_ = nullptr;
  int32_t record_ = 0;
  int current_row_ = 0, row_count_ = -1, first_column_ = 1;
  double fit_ = 1;
  int fitted_width_ = -1;
  int drag_field_ = 0, drag_from_ = 0, drag_width_ = 0, press_column_ = 0, hover_column_ = 0;
  int wheel_rest_ = 0;
  bool edits_ = false;  // a cell of a dictionary was pressed, at `edit_at_`
  QPoint edit_at_;
};

}  // namespace ostrinka
