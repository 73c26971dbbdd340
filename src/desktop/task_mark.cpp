#include "desktop/task_mark.h"

#include "desktop/ribbon_painter.h"
#include "shell/commands.h"

namespace ostrinka {
namespace {

constexpr const char* kEntry = "STREM";
constexpr int kHeight = 22, kIcon = 16, kSide = 8, kGap = 6;

}  // namespace

TaskMark::TaskMark(MainWindow& window, const Look& look, QWidget* parent) : QAbstractButton(parent), window_(window), look_(look) {
  setFont(look_.WindowFont());
  setFocusPolicy(Qt::TabFocus);
  setFixedHeight(kHeight);
  setEnabled(IsBuilt(kEntry));
  setToolTip(look_.Text(isEnabled() ? "mdi.tasks.tip" : "common.notbuilt"));
  hide();
  connect(this, &QAbstractButton::clicked, this, [this] { window_.UserCommand(kEntry); });
}

void TaskMark::Refresh() {
  const QString caption = ToQt(window_.ribbon.ButtonText(kEntry));
  if (caption != text()) {
    setText(caption);
    setAccessibleName(caption);
    setFixedWidth(sizeHint().width());
  }
  setVisible(window_.ribbon.PopupMenuVisible(kEntry));
}

QSize TaskMark::sizeHint() const {
  return {2 * kSide + kIcon + kGap + fontMetrics().horizontalAdvance(text()), kHeight};
}

void TaskMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  const bool alive = isEnabled() && (underMouse() || isDown());
  painter.setPen(QPen(look_.Accent(), 1));
  painter.setBrush(MixOf(paint.colours().strip, look_.Accent(), alive ? 0.4 : 0.2));
  const double radius = look_.RoundCorners() ? 4 : 0;
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  look_.Icon("tsk-01").paint(&painter, QRect(kSide, (height() - kIcon) / 2, kIcon, kIcon), Qt::AlignCenter,
                             alive ? QIcon::Active : QIcon::Normal);
  painter.setPen(look_.Colour(SkinColour::kTabText));
  painter.drawText(rect().adjusted(kSide + kIcon + kGap, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, text());
  if (hasFocus()) paint.FocusRing(rect());
}

}  // namespace ostrinka
