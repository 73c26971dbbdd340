#include "desktop/status_bar.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>

namespace ostrinka {
namespace {

constexpr int kHeight = 28, kLeast = 50, kMost = 200, kStep = 10, kSliderWidth = 120, kPercentWidth = 48, kLeft = 14;

// A slider that paints itself: a groove with a mark at 100 %, and a knob.
class ZoomSlider : public QSlider {
 public:
  ZoomSlider(const Look& look, QWidget* parent) : QSlider(Qt::Horizontal, parent), look_(look) {
    setRange(kLeast, kMost);
    setSingleStep(kStep);
    setPageStep(kStep * 2);
    setFixedSize(kSliderWidth, kHeight - 4);
    setFocusPolicy(Qt::TabFocus);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    RibbonPainter paint(painter, look_);
    const QColor line = look_.Colour(SkinColour::kCaptionTextDisabled);
    const double middle = std::floor(height() / 2.0);
    paint.Hairline({6, middle}, {width() - 6.0, middle}, line);
    paint.Hairline({std::floor(At(100)), middle - 4}, {std::floor(At(100)), middle + 5}, line);
    painter.setPen(QPen(paint.colours().title, 1));
    painter.setBrush(underMouse() || isSliderDown() ? MixOf(look_.Accent(), Qt::white, 0.25) : look_.Accent());
    painter.drawRoundedRect(QRectF(At(value()) - 4, middle - 7, 8, 14), 3, 3);
    if (hasFocus()) paint.FocusRing(QRectF(rect()).adjusted(0, 2, 0, -2));
  }
  void mousePressEvent(QMouseEvent* event) override { Drag(event->position().x()); }
  void mouseMoveEvent(QMouseEvent* event) override {
    if (event->buttons() & Qt::LeftButton) Drag(event->position().x());
  }
  void mouseDoubleClickEvent(QMouseEvent*) override { setValue(100); }

 private:
  double At(int value) const { return 6 + (width() - 12.0) * (value - kLeast) / (kMost - kLeast); }
  void Drag(double x) {
    const double value = kLeast + (x - 6) / (width() - 12.0) * (kMost - kLeast);
    setValue(static_cast<int>(std::lround(value / kStep)) * kStep);
  }
  const Look& look_;
};

}  // namespace

StatusBar::StatusBar(MainWindow& window, const Look& look, QWidget* parent) : QWidget(parent), window_(window), look_(look) {
  setFixedHeight(kHeight);
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, kPercentWidth + 8, 0);
  line->setSpacing(0);
  tasks_ = new TaskMark(window_, look_, this);
  line->addSpacing(kLeft);
  line->addWidget(tasks_, 0, Qt::AlignVCenter);
  line->addStretch(1);
  const auto button = [&](Glyph glyph, const char* name, int step) {
    auto* made = new RibbonButton(look_, RibbonButton::Shape::kWindow, this);
    made->SetGlyph(glyph);
    made->setFixedSize(24, kHeight);
    made->setAccessibleName(look_.Text(name));
    made->setToolTip(look_.Text(name));
    QObject::connect(made, &QAbstractButton::clicked, this,
                     [this, step] { window_.Zoom((std::round(window_.list.zoom() * 100 / kStep) * kStep + step) / 100); });
    return made;
  };
  less_ = button(Glyph::kMinus, "mdi.zoom.less", -kStep);
  more_ = button(Glyph::kPlus, "mdi.zoom.more", kStep);
  zoom_ = new ZoomSlider(look_, this);
  zoom_->setAccessibleName(look_.Text("mdi.zoom"));
  zoom_->setToolTip(look_.Text("mdi.zoom"));
  line->addWidget(less_);
  line->addWidget(zoom_);
  line->addWidget(more_);
  QObject::connect(zoom_, &QSlider::valueChanged, this, [this](int value) { window_.Zoom(value / 100.0); });
}

void StatusBar::Refresh(int row, int count) {
  const int percent = static_cast<int>(std::lround(window_.list.zoom() * 100));
  {
    const QSignalBlocker quiet(zoom_);
    zoom_->setValue(std::clamp(percent, kLeast, kMost));
  }
  percent_ = QString::number(percent) + " %";
  place_.clear();
  if (count >= 0) place_ = look_.Text("mdi.status.rows").replace("{0}", QLocale(QLocale::Polish).toString(count));
  if (count > 0 && row > 0) {
    place_ = look_.Text("mdi.status.place")
                 .replace("{0}", QLocale(QLocale::Polish).toString(row))
                 .replace("{1}", QLocale(QLocale::Polish).toString(count));
  }
  tasks_->Refresh();
  update();
}

void StatusBar::SetText(const QString& text) {
  text_ = text.trimmed();
  setAccessibleName(text_);
  update();
}

void StatusBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  painter.fillRect(rect(), paint.colours().strip);
  paint.Part(rect(), isActiveWindow() ? "statusbar.std.02.bmp" : "statusbar.dis.02.bmp");
  paint.Hairline({0, 0}, {static_cast<double>(width()), 0}, paint.colours().title_edge);
  painter.setFont(look_.WindowFont());
  const QFontMetrics metrics(look_.WindowFont());
  painter.setPen(look_.Colour(SkinColour::kTabText));
  painter.drawText(QRect(width() - kPercentWidth - 4, 0, kPercentWidth - 8, height()), Qt::AlignVCenter | Qt::AlignRight, percent_);
  const int right = less_->x() - 20, place_width = metrics.horizontalAdvance(place_);
  painter.drawText(QRect(right - place_width, 0, place_width + 2, height()), Qt::AlignVCenter | Qt::AlignRight, place_);
  const int left = tasks_->isHidden() ? kLeft : kLeft + tasks_->width() + 12;
  const int room = right - place_width - 26 - left;
  painter.setPen(look_.Colour(SkinColour::kMenuText));
  painter.drawText(QRect(left, 0, room, height()), Qt::AlignVCenter | Qt::AlignLeft, metrics.elidedText(text_, Qt::ElideRight, room));
}

}  // namespace ostrinka
