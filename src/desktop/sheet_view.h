// The sheets of the print preview on their ground: scrolled by bars, wheel, keys and a dragged pointer.
#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>
#include <functional>

#include "desktop/look.h"
#include "print/doc_preview.h"

namespace ostrinka {

class SheetView : public QAbstractScrollArea {
 public:
  SheetView(frm_DocPreview& preview, const Look& look, QWidget* parent);

  // Takes over the zoom; what stood in the middle of the view stays there.
  void ZoomChanged();
  // The page in sight: the first one at the top of the range, the last one at its end. 0 for an empty job.
  int CurrentPage() const;
  // To the top of the next page, or of the one before; back within a page leads to its own top first.
  void StepPage(int step);
  // By lines or by what is in sight, to the ends. False: the key means nothing here.
  bool ScrollByKey(int key);

  std::function<void()> moved;          // the page in sight may be another one
  std::function<void(int)> zoom_asked;  // Ctrl and the wheel: steps, above 0 to enlarge

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QPointF Origin(double scale) const;  // of the stack at that scale, in the viewport
  void SetRanges();
  void TellPlace();
  void ShowPointer();
  void DrawSheet(QPainter& painter, int page) const;
  const QPixmap* Picture(int page);

  frm_DocPreview& preview_;
  const Look& look_;
  double scale_;  // that the bars stand for
  int told_page_ = -1, wheel_rest_ = 0;
  QCache<int, QPixmap> pictures_;  // pages at the present zoom; the cost is in kilobytes
  double pictures_ratio_ = 0;
  QPoint grip_;
  bool dragging_ = false;
};

}  // namespace ostrinka
