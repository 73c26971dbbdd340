#include "desktop/form_steps.h"

#include <QAbstractButton>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/form.h"
#include "desktop/dialog_style.h"

namespace ostrinka {
namespace {

constexpr int kCircle = 24, kGap = 10, kMargin = 14, kRowHeight = 44, kNarrowest = 168;

QPen Stroke(const QColor& colour, double width) {
  return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

}  // namespace

// One step: a circle with its number or a tick, and its caption.
class StepMark : public QAbstractButton {
 public:
  enum class State { kAhead, kDone, kCurrent };

  StepMark(const Look& look, int number, QWidget* parent) : QAbstractButton(parent), look_(look), number_(number) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
  }
  void Show(State state, bool leads) {
    state_ = state;
    setEnabled(leads || state == State::kCurrent);
    setCursor(leads ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
  }
  QSize sizeHint() const override {
    return {2 * kMargin + kCircle + kGap + QFontMetrics(look_.BoldFont()).horizontalAdvance(text()), kRowHeight};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const DialogColours& c = DialogStyle::Of(look_).colours();
    const bool current = state_ == State::kCurrent, done = state_ == State::kDone;
    if (current) {
      painter.fillRect(QRectF(0, 4, width(), height() - 8), QColor(255, 255, 255, 26));
      painter.fillRect(QRectF(0, 4, 3, height() - 8), c.accent);
    }
    const QRectF circle(kMargin, (height() - kCircle) / 2.0, kCircle, kCircle);
    painter.setPen(Stroke(current ? c.accent : done ? c.strip_text : c.strip_text_off, 1.5));
    painter.setBrush(current ? QBrush(c.accent) : QBrush(Qt::NoBrush));
    painter.drawEllipse(circle.adjusted(0.75, 0.75, -0.75, -0.75));
    painter.setFont(look_.BoldFont());
    if (done) {
      painter.setPen(Stroke(c.strip_text, 2));
      const QPointF middle = circle.center();
      painter.drawPolyline(QPolygonF({middle + QPointF(-5, 0.5), middle + QPointF(-1.5, 4), middle + QPointF(5, -4)}));
    } else {
      painter.setPen(current ? c.strip_bottom.darker(170) : c.strip_text_off);
      painter.drawText(circle, Qt::AlignCenter, QString::number(number_));
    }
    if (!current) painter.setFont(look_.WindowFont());
    painter.setPen(current || done || (underMouse() && isEnabled()) ? c.strip_text : c.strip_text_off);
    painter.drawText(QRectF(circle.right() + kGap, 0, width() - circle.right() - kGap, height()), Qt::AlignVCenter, text());
  }

 private:
  const Look& look_;
  int number_;
  State state_ = State::kAhead;
};

StepList::StepList(const Look& look, const Form& form, QWidget* parent, const std::function<void(const std::string&)>& go)
    : QWidget(parent), look_(look), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, kMargin - 4, 1, kMargin);
  column->setSpacing(0);
  for (const PageLayout& page : form.pages()) {
    auto* mark = new StepMark(look, static_cast<int>(marks_.size()) + 1, this);
    mark->setText(look.Text(page.caption_key));
    connect(mark, &QAbstractButton::clicked, this, [go, key = page.key] { go(key); });
    column->addWidget(mark);
    marks_.push_back(mark);
  }
  column->addStretch(1);
  setMinimumWidth(kNarrowest);
  setAccessibleName(look.Text(form.title_key()));
}

void StepList::Refresh() {
  bool before = true;
  for (size_t i = 0; i < marks_.size(); ++i) {
    const PageLayout& page = form_.pages()[i];
    const bool current = page.key == form_.page();
    before = before && !current;
    marks_[i]->Show(current ? StepMark::State::kCurrent : page.done ? StepMark::State::kDone : StepMark::State::kAhead, before);
    const QString caption = look_.Text(page.caption_key);
    marks_[i]->setAccessibleName(page.done ? caption + ", " + look_.Text("common.step.done") : caption);
  }
}

void StepList::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const DialogStyle& style = DialogStyle::Of(look_);
  QLinearGradient ground(0, 0, 0, height());
  ground.setColorAt(0, style.colours().strip_top);
  ground.setColorAt(1, style.colours().strip_bottom);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(rect()), style.Radius(), style.Radius());
}

}  // namespace ostrinka
