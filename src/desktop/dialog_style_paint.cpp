// How the elements of a dialog are painted.
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "desktop/device_grid.h"
#include "desktop/dialog_style.h"
#include "desktop/dialog_style_parts.h"

namespace ostrinka {
namespace {

void Chevron(QPainter& painter, const QPointF& centre, const QColor& colour, double size = 3.5) {
  painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF(
      {{centre.x() - size, centre.y() - size / 2}, {centre.x(), centre.y() + size / 2}, {centre.x() + size, centre.y() - size / 2}}));
}

// A painter with its state kept, on smooth lines.
class Kept {
 public:
  explicit Kept(QPainter& painter) : painter_(painter) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
  }
  ~Kept() { painter_.restore(); }
  Kept(const Kept&) = delete;

 private:
  QPainter& painter_;
};

}  // namespace

void DialogStyle::PaintGround(QPainter& painter, const QRectF& area, bool deep) const {
  constexpr double kStep = 5, kGrowth = 0.01;
  const double reach = deep ? 350 : 500, limit = deep ? 0.75 : 0.5;
  const double begin = area.bottom() - reach;
  painter.fillRect(area, colours_.ground_top);
  double weight = 0;
  for (double y = begin; y < area.bottom(); y += kStep, weight += kGrowth) {
    const QRectF line = QRectF(area.left(), y, area.width(), kStep).intersected(area);
    if (!line.isEmpty()) painter.fillRect(line, Mix(colours_.ground_top, colours_.ground_bottom, std::min(weight, limit)));
  }
}

void DialogStyle::PaintCard(QPainter& painter, const QRectF& area, const QColor& fill) const {
  const Kept kept(painter);
  painter.setPen(QPen(colours_.card_line, HairlineWidth(painter)));
  painter.setBrush(fill);
  painter.drawRoundedRect(HairlineFrame(painter, area), Radius(), Radius());
}

void DialogStyle::Ring(QPainter& painter, const QRectF& area) const {
  painter.setPen(QPen(colours_.ring, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), Radius() * 0.75, Radius() * 0.75);
}

void DialogStyle::Frame(QPainter& painter, const QRectF& area, const QColor& fill, QStyle::State state, const QWidget*) const {
  const Kept kept(painter);
  const bool on = Is(state, State_Enabled);
  painter.setPen(QPen(!on                          ? colours_.card_line
                      : Is(state, State_MouseOver) ? colours_.border_hot
                                                   : colours_.border,
                      HairlineWidth(painter)));
  painter.setBrush(fill);
  painter.drawRoundedRect(HairlineFrame(painter, area), Radius() * 0.75, Radius() * 0.75);
  if (on && Is(state, State_HasFocus)) Ring(painter, area);
}

void DialogStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_PanelLineEdit:
      if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option); frame && frame->lineWidth > 0) {
        Frame(*painter, option->rect, option->palette.color(QPalette::Base), option->state, widget);
        return;
      }
      break;
    case PE_FrameLineEdit:
      return;
    case PE_Frame:
      if (qobject_cast<const QAbstractScrollArea*>(widget)) {
        QStyle::State state = option->state;
        state.setFlag(State_HasFocus, widget->hasFocus());
        Frame(*painter, option->rect, widget->palette().color(QPalette::Base), state, widget);
        return;
      }
      break;
    case PE_FrameFocusRect: {
      if (qobject_cast<const QAbstractItemView*>(widget)) return;
      const Kept kept(*painter);
      QRectF area = QRectF(option->rect).adjusted(-4, 0, 4, 0);
      const double height = std::min<double>(option->fontMetrics.height() + 6, widget ? widget->height() : 1000);
      area = QRectF(area.left(), area.center().y() - height / 2, area.width(), height);
      if (widget) area = area.intersected(widget->rect());
      Ring(*painter, area);
      return;
    }
    case PE_PanelItemViewItem: {
      const bool chosen = Is(option->state, State_Selected), hot = Is(option->state, State_MouseOver);
      if (!chosen && !hot) return;
      const Kept kept(*painter);
      painter->setPen(chosen ? QPen(colours_.ring, 1) : QPen(Qt::NoPen));
      painter->setBrush(chosen ? colours_.chosen : colours_.pane);
      painter->drawRoundedRect(QRectF(option->rect).adjusted(1.5, 0.5, -1.5, -0.5), Radius() * 0.75, Radius() * 0.75);
      return;
    }
    case PE_IndicatorCheckBox:
      Tick(*option, *painter);
      return;
    case PE_IndicatorRadioButton:
      Dot(*option, *painter);
      return;
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void DialogStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case CE_PushButtonBevel:
      ButtonBevel(*option, *painter, widget);
      return;
    case CE_PushButtonLabel:
      ButtonLabel(*option, *painter, widget);
      return;
    case CE_PushButton:
      ButtonBevel(*option, *painter, widget);
      ButtonLabel(*option, *painter, widget);
      return;
    case CE_TabBarTabShape:
      Tab(*option, *painter);
      return;
    case CE_TabBarTabLabel:
      TabLabel(*option, *painter, widget);
      return;
    case CE_ComboBoxLabel:
      ComboLabel(*option, *painter, widget);
      return;
    default:
      QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void DialogStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                     const QWidget* widget) const {
  if (control == CC_ComboBox) return Combo(*option, *painter, widget);
  if (control == CC_ScrollBar) return ScrollBar(*option, *painter, widget);
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void DialogStyle::ButtonBevel(const QStyleOption& option, QPainter& painter, const QWidget* widget) const {
  const Kept kept(painter);
  const DialogColours& c = colours_;
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  const bool on = Is(option.state, State_Enabled), hot = on && Is(option.state, State_MouseOver),
             down = on && Is(option.state, State_Sunken);
  const bool primary = on && ((widget && widget->property(kPrimaryButton).toBool()) ||
                              (button && button->features.testFlag(QStyleOptionButton::DefaultButton)));
  QColor top = c.button_top, bottom = c.button_bottom, line = hot ? c.border_hot : c.border;
  if (primary) {
    top = Mix(c.primary, Qt::white, hot ? 0.14 : 0.06);
    bottom = line = Mix(c.primary, Qt::black, hot ? 0.0 : 0.12);
  }
  if (down) {
    top = Mix(bottom, Qt::black, 0.08);
    bottom = Mix(bottom, Qt::black, 0.04);
  } else if (hot && !primary) {
    bottom = Mix(bottom, Qt::white, 0.6);
  }
  if (!on) {
    top = bottom = c.field_off;
    line = c.card_line;
  }
  const QRectF area = HairlineFrame(painter, option.rect);
  QLinearGradient fill(area.topLeft(), area.bottomLeft());
  fill.setColorAt(0, top);
  fill.setColorAt(1, bottom);
  painter.setPen(QPen(line, HairlineWidth(painter)));
  painter.setBrush(fill);
  painter.drawRoundedRect(area, Radius(), Radius());
  if (!on || !Is(option.state, State_HasFocus)) return;
  Ring(painter, option.rect);
  if (primary) {  // a light seam, so that the ring stands off the dark ground
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRoundedRect(area.adjusted(2, 2, -2, -2), Radius() * 0.5, Radius() * 0.5);
  }
}

void DialogStyle::ButtonLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) const {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  if (!button) return;
  const bool on = Is(option.state, State_Enabled);
  const bool primary =
      on && ((widget && widget->property(kPrimaryButton).toBool()) || button->features.testFlag(QStyleOptionButton::DefaultButton));
  painter.setPen(!on ? colours_.disabled : primary ? colours_.primary_text : colours_.text);
  const int flags = Qt::AlignCenter | (access_keys_ ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
  QRect area = option.rect.adjusted(kFieldPadding, 0, -kFieldPadding, 0);
  if (!button->icon.isNull()) {
    const int gap = button->text.isEmpty() ? 0 : kFieldPadding, size = button->iconSize.width();
    const int text = button->fontMetrics.size(Qt::TextShowMnemonic, button->text).width();
    const int left = area.left() + std::max(0, (area.width() - size - gap - text) / 2);
    const QRect place(left, area.center().y() - size / 2 + 1, size, size);
    button->icon.paint(&painter, place, Qt::AlignCenter, on ? QIcon::Normal : QIcon::Disabled);
    area.setLeft(left + size + gap);
    if (!button->text.isEmpty()) painter.drawText(area, (flags & ~Qt::AlignHCenter) | Qt::AlignLeft, button->text);
    return;
  }
  painter.drawText(area, flags, button->text);
}

// The box as the skin draws it; false when it has none.
bool DialogStyle::Mark(const QStyleOption& option, QPainter& painter, bool box) const {
  const bool on = Is(option.state, State_Enabled), set = Is(option.state, State_On), hot = on && Is(option.state, State_MouseOver);
  QString name = set ? (hot ? "ckover" : "check") : hot ? "over" : "std";
  if (box && set && hot) name = "chkover";
  if (box && on && Is(option.state, State_Sunken)) name = set ? "chkover" : "press";
  if (!box && !on) name = set ? "ckhalf" : "disable";
  const auto found = marks_.constFind((box ? "cb." : "opt.") + name);
  if (found == marks_.constEnd()) return false;
  const Kept kept(painter);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (box && !on) painter.setOpacity(0.5);
  const QSizeF size = found->deviceIndependentSize();
  const QPointF middle = QRectF(option.rect).center();
  painter.drawPixmap(
      QRectF(std::round(middle.x() - size.width() / 2), std::round(middle.y() - size.height() / 2), size.width(), size.height()), *found,
      found->rect());
  return true;
}

void DialogStyle::Tick(const QStyleOption& option, QPainter& painter) const {
  if (Mark(option, painter, true)) return;
  const Kept kept(painter);
  const bool on = Is(option.state, State_Enabled);
  const QRectF box = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
  painter.setPen(QPen(!on                                 ? colours_.card_line
                      : Is(option.state, State_MouseOver) ? colours_.border_hot
                                                          : colours_.border,
                      HairlineWidth(painter)));
  painter.setBrush(on ? colours_.field : colours_.field_off);
  painter.drawRoundedRect(box, Radius() * 0.6, Radius() * 0.6);
  if (!Is(option.state, State_On)) return;
  painter.setPen(QPen(on ? colours_.primary : colours_.disabled, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF o = box.topLeft();
  const double w = box.width();
  painter.drawPolyline(
      QPolygonF({{o.x() + w * 0.22, o.y() + w * 0.52}, {o.x() + w * 0.43, o.y() + w * 0.73}, {o.x() + w * 0.8, o.y() + w * 0.28}}));
}

void DialogStyle::Dot(const QStyleOption& option, QPainter& painter) const {
  if (Mark(option, painter, false)) return;
  const Kept kept(painter);
  const bool on = Is(option.state, State_Enabled);
  const QRectF circle = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
  painter.setPen(QPen(!on                                 ? colours_.card_line
                      : Is(option.state, State_MouseOver) ? colours_.border_hot
                                                          : colours_.border,
                      HairlineWidth(painter)));
  painter.setBrush(on ? colours_.field : colours_.field_off);
  painter.drawEllipse(circle);
  if (!Is(option.state, State_On)) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(on ? colours_.primary : colours_.disabled);
  painter.drawEllipse(circle.adjusted(3.5, 3.5, -3.5, -3.5));
}

void DialogStyle::Tab(const QStyleOption& option, QPainter& painter) const {
  const Kept kept(painter);
  const bool chosen = Is(option.state, State_Selected);
  const QRectF area = HairlineFrame(painter, QRectF(option.rect).adjusted(0, chosen ? 0 : 2, -2, 1));
  QPainterPath shape;
  shape.moveTo(area.left(), area.bottom() + 1);
  shape.lineTo(area.left(), area.top() + Radius());
  shape.quadTo(area.topLeft(), area.topLeft() + QPointF(Radius(), 0));
  shape.lineTo(area.right() - Radius(), area.top());
  shape.quadTo(area.topRight(), area.topRight() + QPointF(0, Radius()));
  shape.lineTo(area.right(), area.bottom() + 1);
  painter.setPen(QPen(colours_.card_line, HairlineWidth(painter)));
  painter.setBrush(chosen                              ? colours_.pane
                   : Is(option.state, State_MouseOver) ? Mix(colours_.ground_top, Qt::white, 0.3)
                                                       : Mix(colours_.ground_top, colours_.ground_bottom, 0.12));
  painter.drawPath(shape);
  if (chosen)
    painter.fillRect(OnGrid(painter, QRectF(area.left() + Radius(), area.top() - 0.5, area.width() - 2 * Radius(), 2)), colours_.accent);
}

void DialogStyle::TabLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) const {
  const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(&option);
  if (!tab) return;
  const Kept kept(painter);
  const bool chosen = Is(option.state, State_Selected);
  painter.setPen(!Is(option.state, State_Enabled) ? colours_.disabled : chosen ? colours_.text : colours_.faint);
  const int flags = Qt::AlignCenter | (access_keys_ ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
  const QRect area = option.rect.adjusted(0, 2, -2, 0);
  painter.drawText(area, flags, tab->text);
  if (chosen && widget && widget->hasFocus()) {
    const QRect text = painter.fontMetrics().boundingRect(area, flags, tab->text);
    Ring(painter, QRectF(text).adjusted(-6, -3, 6, 3));
  }
}

void DialogStyle::Combo(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
  const bool on = Is(option.state, State_Enabled);
  Frame(painter, option.rect, on ? option.palette.color(QPalette::Base) : colours_.field_off, option.state, widget);
  const Kept kept(painter);
  const QRectF area = option.rect;
  Chevron(painter, {area.right() - kArrowWidth / 2.0, area.center().y()}, on ? colours_.faint : colours_.border);
}

void DialogStyle::ComboLabel(const QStyleOption& option, QPainter& painter, const QWidget*) const {
  const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(&option);
  if (!combo) return;
  const Kept kept(painter);
  painter.setPen(Is(option.state, State_Enabled) ? colours_.text : colours_.disabled);
  const QRect area = option.rect.adjusted(kFieldPadding + 1, 0, -kArrowWidth, 0);
  painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   combo->fontMetrics.elidedText(combo->currentText, Qt::ElideRight, area.width()));
}

void DialogStyle::ScrollBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(&option);
  if (!bar) return;
  const Kept kept(painter);
  painter.fillRect(option.rect, Mix(colours_.ground_top, Qt::white, 0.3));
  if (bar->minimum == bar->maximum) return;
  QRectF thumb = proxy()->subControlRect(CC_ScrollBar, &option, SC_ScrollBarSlider, widget);
  thumb = bar->orientation == Qt::Vertical ? thumb.adjusted(3, 1, -3, -1) : thumb.adjusted(1, 3, -1, -3);
  const bool held = Is(option.state, State_Sunken) && option.activeSubControls.testFlag(SC_ScrollBarSlider);
  const bool hot = Is(option.state, State_MouseOver);
  painter.setPen(Qt::NoPen);
  painter.setBrush(held ? colours_.faint : hot ? colours_.border_hot.lighter(140) : colours_.border);
  const double round = std::min(thumb.width(), thumb.height()) / 2;
  painter.drawRoundedRect(thumb, round, round);
}

}  // namespace ostrinka
