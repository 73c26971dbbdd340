#include "desktop/dialog_style.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <string>

#include "desktop/dialog_style_parts.h"

namespace ostrinka {
namespace {

constexpr int kTick = 16, kBarWidth = 12;
constexpr const char* kStyleName = "ostrinka-dialog";

DialogColours ColoursOf(const Look& look) {
  DialogColours c;
  c.text = look.Colour(SkinColour::kButtonText);
  c.faint = look.Colour(SkinColour::kToolbarText);
  c.disabled = look.Colour(SkinColour::kButtonTextDisabled);
  c.ground_top = look.Colour(SkinColour::kIconThree);
  c.ground_bottom = look.Colour(SkinColour::kTextBorder);
  c.field = Qt::white;
  c.field_off = Mix(c.ground_top, Qt::white, 0.25);
  c.border = Mix(look.Colour(SkinColour::kPopupBorder), Qt::white, 0.18);
  c.border_hot = look.Colour(SkinColour::kArrowOne);
  c.pane = Mix(c.ground_top, Qt::white, 0.45);
  c.card = Mix(c.ground_top, Qt::white, 0.8);
  c.card_line = Mix(c.border, Qt::white, 0.45);
  c.button_top = Qt::white;
  c.button_bottom = Mix(c.ground_top, c.ground_bottom, 0.06);
  c.primary = look.Colour(SkinColour::kToolbarText);
  c.primary_text = Qt::white;
  c.accent = look.Accent();
  c.ring = look.FocusRing();
  c.strip_top = look.Colour(SkinColour::kPopupMargin);
  c.strip_bottom = look.Colour(SkinColour::kPopupMenu);
  c.strip_text = look.Colour(SkinColour::kCaptionText);
  c.strip_text_off = look.Colour(SkinColour::kCaptionTextDisabled);
  c.chosen = Mix(Qt::white, c.ring, 0.16);
  c.chosen_text = c.text;
  c.error = QColor(0xC0, 0x28, 0x1E);
  c.round = look.RoundCorners();
  return c;
}

// The boxes as the skin draws them. A check box comes in nine parts, none of them stretched.
QHash<QString, QPixmap> MarksOf(const Look& look) {
  QHash<QString, QPixmap> marks;
  for (const char* state : {"std", "over", "check", "ckover", "ckhalf", "disable"}) {
    const QPixmap picture = look.Image(std::string("opt.") + state + ".01.bmp");
    if (!picture.isNull()) marks.insert(QString("opt.") + state, picture);
  }
  for (const char* state : {"std", "over", "press", "check", "chkover"}) {
    QPixmap parts[9];
    bool whole = true;
    for (int i = 0; i < 9; ++i) {
      parts[i] = look.Image("cb." + std::string(state) + ".0" + std::to_string(i + 1) + ".bmp");
      whole = whole && !parts[i].isNull();
    }
    if (!whole) continue;
    const double ratio = parts[0].devicePixelRatio();
    QPixmap picture(
        QSize(parts[0].width() + parts[1].width() + parts[2].width(), parts[0].height() + parts[3].height() + parts[6].height()));
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    int top = 0;
    for (int row = 0; row < 3; ++row) {
      int left = 0;
      for (int column = 0; column < 3; ++column) {
        const QPixmap& part = parts[row * 3 + column];
        painter.drawPixmap(QRect(left, top, part.width(), part.height()), part, part.rect());
        left += part.width();
      }
      top += parts[row * 3].height();
    }
    painter.end();
    picture.setDevicePixelRatio(ratio);
    marks.insert(QString("cb.") + state, picture);
  }
  return marks;
}

}  // namespace

DialogStyle& DialogStyle::Of(const Look& look) {
  auto* style = dynamic_cast<DialogStyle*>(qApp->style());
  return style ? *style : Install(look);
}

DialogStyle& DialogStyle::Install(const Look& look) {
  if (auto* style = dynamic_cast<DialogStyle*>(qApp->style())) {
    style->colours_ = ColoursOf(look);
    style->marks_ = MarksOf(look);
    return *style;
  }
  auto* style = new DialogStyle(look);
  qApp->setStyle(style);
  return *style;
}

DialogStyle::DialogStyle(const Look& look) : QProxyStyle("Fusion"), colours_(ColoursOf(look)), marks_(MarksOf(look)) {
  setObjectName(kStyleName);
}

QPalette DialogStyle::Palette() const {
  const DialogColours& c = colours_;
  QPalette palette;
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, c.text);
    palette.setColor(QPalette::Disabled, role, c.disabled);
  }
  palette.setColor(QPalette::Window, c.ground_top);
  palette.setColor(QPalette::Button, c.button_bottom);
  palette.setColor(QPalette::Base, c.field);
  palette.setColor(QPalette::Disabled, QPalette::Base, c.field_off);
  palette.setColor(QPalette::AlternateBase, c.card);
  palette.setColor(QPalette::Highlight, c.ring);
  palette.setColor(QPalette::Inactive, QPalette::Highlight, Mix(c.ring, Qt::white, 0.55));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Inactive, QPalette::HighlightedText, c.text);
  palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFC, 0xEB));
  palette.setColor(QPalette::PlaceholderText, c.disabled);
  return palette;
}

QPalette DialogStyle::ListPalette() const {
  QPalette palette = Palette();
  palette.setColor(QPalette::Highlight, colours_.chosen);
  palette.setColor(QPalette::HighlightedText, colours_.chosen_text);
  palette.setColor(QPalette::Inactive, QPalette::Highlight, colours_.chosen);
  return palette;
}

QRect DialogStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const {
  if (control == CC_ComboBox) {
    if (part == SC_ComboBoxEditField) return option->rect.adjusted(1, 1, -kArrowWidth, -1);
    if (part == SC_ComboBoxArrow) return option->rect.adjusted(option->rect.width() - kArrowWidth, 0, 0, 0);
    if (part == SC_ComboBoxListBoxPopup) return option->rect;
  }
  if (control == CC_ScrollBar) {  // no arrows at the ends
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const bool upright = bar && bar->orientation == Qt::Vertical;
    const int length = upright ? option->rect.height() : option->rect.width();
    if (bar && (part == SC_ScrollBarAddLine || part == SC_ScrollBarSubLine)) return {};
    if (bar && part == SC_ScrollBarGroove) return option->rect;
    if (bar && (part == SC_ScrollBarSlider || part == SC_ScrollBarAddPage || part == SC_ScrollBarSubPage)) {
      const qint64 range = qint64{bar->maximum} - bar->minimum;
      int thumb = length;
      if (range > 0)
        thumb = std::clamp(static_cast<int>(qint64{bar->pageStep} * length / (range + bar->pageStep)), std::min(24, length), length);
      const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - thumb, bar->upsideDown);
      int from = start, size = thumb;
      if (part == SC_ScrollBarSubPage) from = 0, size = start;
      if (part == SC_ScrollBarAddPage) from = start + thumb, size = length - from;
      return upright ? QRect(option->rect.left(), option->rect.top() + from, option->rect.width(), size)
                     : QRect(option->rect.left() + from, option->rect.top(), size, option->rect.height());
    }
  }
  return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize DialogStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const {
  const int line = option ? option->fontMetrics.height() : 14;
  const int field = line + 10;
  switch (type) {
    case CT_LineEdit:
      return {size.width() + 2 * kFieldPadding, field};
    case CT_ComboBox:
      return {size.width() + kArrowWidth + 2 * kFieldPadding, field};
    case CT_PushButton: {
      const bool bar = widget && widget->property(kBarButton).toBool();
      return {std::max(size.width() + 4 * kFieldPadding, bar ? 92 : 40), bar ? field + 4 : field};
    }
    case CT_ItemViewItem:
      return {QProxyStyle::sizeFromContents(type, option, size, widget).width(), line + 8};
    case CT_TabBarTab:
      return {size.width() + 18, line + 14};
    default:
      return QProxyStyle::sizeFromContents(type, option, size, widget);
  }
}

int DialogStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return kTick;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return 7;
    case PM_FocusFrameHMargin:
      return qobject_cast<const QAbstractItemView*>(widget) ? 5 : 2;
    case PM_ScrollBarExtent:
      return kBarWidth;
    case PM_ScrollBarSliderMin:
      return 24;
    case PM_DefaultFrameWidth:
      return qobject_cast<const QAbstractScrollArea*>(widget) ? 2 : 1;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarBaseOverlap:
      return 0;
    case PM_TabBarTabHSpace:
      return 18;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int DialogStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
  switch (hint) {
    case SH_UnderlineShortcut:
      return access_keys_;
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_Widget_Animation_Duration:
      return 0;
    case SH_ItemView_ShowDecorationSelected:
      return 1;
    case SH_LineEdit_PasswordCharacter: {
      const QVariant sign = widget ? widget->property(kPasswordSign) : QVariant();
      return sign.isValid() ? sign.toInt() : 0x2022;
    }
    default:
      return QProxyStyle::styleHint(hint, option, widget, data);
  }
}

}  // namespace ostrinka
