#include "desktop/splash.h"

#include <QGuiApplication>
#include <QScreen>

#include "app/program.h"
#include "desktop/ribbon_painter.h"

namespace ostrinka {
namespace {

constexpr int kWidth = 424, kHeight = 222;

// A sheet with lines and a sum, drawn as the mark of the program.
void DrawSheet(QPainter& painter, const QRectF& area, const QColor& accent, const QColor& ink) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(area, 4, 4);
  painter.setBrush(accent);
  painter.drawRoundedRect(QRectF(area.left() + 10, area.top() + 11, area.width() * 0.42, 8), 2, 2);
  painter.setBrush(MixOf(ink, Qt::white, 0.72));
  for (int i = 0; i < 4; ++i) {
    const double y = area.top() + 32 + i * 11;
    painter.drawRect(QRectF(area.left() + 10, y, area.width() - 42 - (i % 2) * 8, 3));
    painter.drawRect(QRectF(area.right() - 24, y, 14, 3));
  }
  painter.setBrush(ink);
  painter.drawRoundedRect(QRectF(area.right() - 38, area.bottom() - 19, 28, 8), 2, 2);
}

}  // namespace

Splash::Splash(const Look& look) : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), look_(look) {
  setFixedSize(kWidth, kHeight);
  setWindowTitle(look_.Text("common.title"));
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    const QRect area = screen->availableGeometry();
    move(area.center() - QPoint(kWidth / 2, kHeight / 2));
  }
}

void Splash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  const FrameColours& colours = paint.colours();
  QLinearGradient ground(0, 0, 0, height());
  ground.setColorAt(0, colours.strip);
  ground.setColorAt(1, colours.title);
  painter.fillRect(rect(), ground);
  painter.fillRect(QRect(0, height() - 4, width(), 4), look_.Accent());
  painter.setPen(colours.title_edge);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  DrawSheet(painter, QRectF(36, 48, 88, 112), look_.Accent(), colours.strip);
  QFont title = look_.BoldFont();
  title.setPixelSize(29);
  painter.setFont(title);
  painter.setPen(look_.Colour(SkinColour::kCaptionText));
  painter.drawText(QRect(152, 60, width() - 164, 40), Qt::AlignLeft | Qt::AlignVCenter, look_.Text("common.title"));
  painter.setFont(look_.WindowFont());
  painter.setPen(look_.Colour(SkinColour::kCaptionTextDisabled));
  const QString version = QString("%1.%2.%3").arg(kProgramVersion.major).arg(kProgramVersion.minor).arg(kProgramVersion.revision);
  painter.drawText(QRect(152, 102, width() - 164, 40), Qt::AlignLeft | Qt::AlignTop,
                   look_.Text("mdi.about.purpose") + "\n" + look_.Text("mdi.about.version").replace("{0}", version));
  painter.drawText(QRect(152, height() - 40, width() - 164, 24), Qt::AlignLeft | Qt::AlignVCenter, look_.Text("mdi.pleasewait"));
}

}  // namespace ostrinka
