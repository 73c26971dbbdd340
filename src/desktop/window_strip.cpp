#include "desktop/window_strip.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QWindow>

namespace ostrinka {
namespace {

constexpr int kHeight = 32, kMarginLeft = 14, kMarkRoom = 12, kGap = 14;

}  // namespace

WindowStrip::WindowStrip(const Look& look, QWidget* window, bool minimises) : QWidget(window), look_(look) {
  setFixedHeight(kHeight);
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(0);
  line->addStretch(1);
  const auto button = [&](Glyph glyph, const char* name) {
    auto* made = new RibbonButton(look_, RibbonButton::Shape::kWindow, this);
    made->SetGlyph(glyph);
    made->SetSkinPicture(true);
    made->setAccessibleName(look_.Text(name));
    made->setToolTip(look_.Text(name));
    line->addWidget(made);
    return made;
  };
  minimise_ = button(Glyph::kMinimise, "common.minimize");
  if (!minimises) minimise_->hide();
  maximise_ = button(Glyph::kMaximise, "common.maximize");
  close_ = button(Glyph::kClose, "common.close");
  QObject::connect(minimise_, &QAbstractButton::clicked, window, [window] { window->showMinimized(); });
  QObject::connect(maximise_, &QAbstractButton::clicked, this, [this] { ToggleMaximised(); });
  QObject::connect(close_, &QAbstractButton::clicked, window, [window] { window->close(); });
}

void WindowStrip::SetCompany(const QString& company) {
  if (company == company_) return;
  company_ = company;
  update();
}

void WindowStrip::Refresh() {
  maximise_->SetGlyph(window()->isMaximized() ? Glyph::kRestore : Glyph::kMaximise);
  update();
}

void WindowStrip::ToggleMaximised() {
  if (window()->isMaximized()) {
    window()->showNormal();
  } else {
    window()->showMaximized();
  }
}

void WindowStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  const bool active = window()->isActiveWindow();
  const QString title = window()->windowTitle();
  painter.fillRect(QRect(kMarginLeft, height() / 2 - 7, 4, 14), look_.Accent());
  int x = kMarginLeft + kMarkRoom;
  painter.setFont(look_.BoldFont());
  painter.setPen(look_.Colour(active ? SkinColour::kCaptionText : SkinColour::kCaptionTextDisabled));
  painter.drawText(QRect(x, 0, width() - x, height()), Qt::AlignVCenter | Qt::AlignLeft, title);
  if (company_.isEmpty()) return;
  x += QFontMetrics(look_.BoldFont()).horizontalAdvance(title) + kGap;
  const int room = (minimise_->isHidden() ? maximise_ : minimise_)->x() - x - kGap;
  painter.setFont(look_.WindowFont());
  painter.setPen(look_.Colour(active ? SkinColour::kCaptionTextDocument : SkinColour::kCaptionTextDisabled));
  const QString company = QFontMetrics(look_.WindowFont()).elidedText(company_, Qt::ElideRight, room);
  painter.drawText(QRect(x, 0, room, height()), Qt::AlignVCenter | Qt::AlignLeft, company);
}

void WindowStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  QWindow* handle = window()->windowHandle();
  if (handle && !window()->isMaximized() && handle->startSystemMove()) return;
  moving_ = !window()->isMaximized();
  grip_ = event->globalPosition().toPoint() - window()->pos();
}

void WindowStrip::mouseMoveEvent(QMouseEvent* event) {
  if (moving_) window()->move(event->globalPosition().toPoint() - grip_);
}

void WindowStrip::mouseReleaseEvent(QMouseEvent*) {
  moving_ = false;
}

void WindowStrip::mouseDoubleClickEvent(QMouseEvent* event) {
  moving_ = false;
  if (event->button() == Qt::LeftButton) ToggleMaximised();
}

}  // namespace ostrinka
