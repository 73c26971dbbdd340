#include "desktop/key_tips.h"

namespace ostrinka {

KeyTipLayer::KeyTipLayer(const Look& look, QWidget* window) : QWidget(window), look_(look) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void KeyTipLayer::Show(std::vector<KeyTip> tips) {
  tips_ = std::move(tips);
  setGeometry(parentWidget()->rect());
  raise();
  show();
  update();
}

void KeyTipLayer::Hide() {
  tips_.clear();
  hide();
}

const KeyTip* KeyTipLayer::Find(const QString& letters, bool& begins) const {
  begins = false;
  for (const KeyTip& tip : tips_) {
    if (tip.letters == letters) return &tip;
    begins = begins || tip.letters.startsWith(letters);
  }
  return nullptr;
}

void KeyTipLayer::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  for (const KeyTip& tip : tips_) {
    if (!tip.widget->isVisible()) continue;
    const QRect area(tip.widget->mapTo(parentWidget(), QPoint(0, 0)), tip.widget->size());
    const bool tall = area.height() > 50;
    paint.Badge(QPointF(area.center().x() + 0.5, tall ? area.bottom() - 6 : area.bottom() - 3), tip.letters, tip.widget->isEnabled());
  }
}

}  // namespace ostrinka
