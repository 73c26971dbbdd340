// The buttons of the main window's frame. Each is a button to assistive technology and to the keyboard, and paints itself from the skin.
#pragma once

#include <QAbstractButton>
#include <functional>

#include "desktop/ribbon_painter.h"

namespace ostrinka {

class RibbonButton : public QAbstractButton {
 public:
  enum class Shape {
    kLarge,  // icon above a caption of two lines
    kSmall,  // caption alone, or icon beside it
    kMark,   // a mark of lines
    kTab,
    kMenu,    // the main-menu button
    kWindow,  // minimise, maximise, close
  };

  RibbonButton(const Look& look, Shape shape, QWidget* parent);

  // Captions that the button may show: it is as wide as the widest.
  void SetCaptions(const QStringList& captions);
  void SetSplit(bool split) { split_ = split; }
  void SetSkinPicture(bool picture) { picture_ = picture; }  // a window button of the skin, not only a mark
  void SetGlyph(Glyph glyph) {
    glyph_ = glyph;
    update();
  }
  void SetIconName(const QString& name);
  void ReadIcon();  // anew, after another skin was loaded
  // What the button shows now. False: nothing changed.
  bool Show(const QString& caption, bool enabled, bool checked, bool visible);
  const QString& caption() const { return caption_; }
  // Narrows the room about captions by so many pixels a side, for windows of the least width.
  void SetTight(bool tight);
  bool split() const { return split_; }

  // Opens the list of a split button or a combo.
  std::function<void()> drop;
  bool list_open = false;  // the list hangs below: the button stays pressed

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void nextCheckState() override {}  // the ribbon's model ticks, not the click

 private:
  QRectF DropArea() const;
  RibbonPainter::ToolState State() const;
  void PaintLarge(RibbonPainter& paint, QPainter& painter);
  void PaintSmall(RibbonPainter& paint, QPainter& painter);
  void PaintTab(RibbonPainter& paint, QPainter& painter);
  void PaintMenu(RibbonPainter& paint, QPainter& painter);
  void PaintWindow(RibbonPainter& paint, QPainter& painter);
  std::string WindowPicture() const;
  void PaintIcon(QPainter& painter, const QRectF& area);

  const Look& look_;
  Shape shape_;
  Glyph glyph_ = Glyph::kDrop;
  QString caption_, icon_name_;
  QStringList captions_;
  bool split_ = false, picture_ = false, tight_ = false, over_drop_ = false;
};

}  // namespace ostrinka
