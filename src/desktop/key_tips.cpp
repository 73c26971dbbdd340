#include "desktop/key_tips.h"

namespace ostrinka {
namespace {

constexpr int kLarge = 50;  // tools above this height have their caption under their icon

}  // namespace

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
    // Beside the caption, never over it: under a large tool, above anything else.
    const bool large = area.height() > kLarge;
    paint.Badge(QPointF(area.center().x() + 0.5, large ? area.bottom() + 5 : area.top()), tip.letters, tip.widget->isEnabled());
  }
}

}  // namespace ostrinka
