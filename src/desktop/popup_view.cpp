#include "desktop/popup_view.h"

#include <QAction>
#include <QActionGroup>
#include <QKeyEvent>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <cmath>

namespace ostrinka {
namespace {

constexpr int kRow = 28, kSeparator = 9, kMargin = 34, kIcon = 16, kLetterRoom = 40;
constexpr const char* kLetter = "letter";

// Draws menus in the colours of the skin; everything else as the platform's plain style does.
class PopupStyle : public QProxyStyle {
 public:
  explicit PopupStyle(const Look& look) : QProxyStyle(QStyleFactory::create("Fusion")), look_(look) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    switch (metric) {
      case PM_MenuPanelWidth:
        return 1;
      case PM_MenuVMargin:
        return 3;
      case PM_MenuHMargin:
        return 0;
      case PM_SmallIconSize:
        return kIcon;
      default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const override {
    if (hint == SH_Menu_MouseTracking || hint == SH_Menu_FlashTriggeredItem) return hint == SH_Menu_MouseTracking;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const override {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || !item) return QProxyStyle::sizeFromContents(type, option, size, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator) return {kMargin, kSeparator};
    const double text = QFontMetricsF(item->font).horizontalAdvance(item->text);
    return {kMargin + 10 + static_cast<int>(std::ceil(text)) + kLetterRoom, kRow};
  }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override {
    if (element == PE_PanelMenu) {
      painter->fillRect(option->rect, look_.Colour(SkinColour::kPopupMenu));
      painter->fillRect(QRect(option->rect.left(), option->rect.top(), kMargin, option->rect.height()),
                        look_.Colour(SkinColour::kPopupMargin));
    } else if (element == PE_FrameMenu) {
      painter->setPen(look_.Colour(SkinColour::kPopupBorder));
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    } else {
      QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item) {
      painter->save();
      DrawItem(*item, *painter);
      painter->restore();
    } else if (element != CE_MenuEmptyArea) {
      QProxyStyle::drawControl(element, option, painter, widget);
    }
  }

 private:
  void DrawItem(const QStyleOptionMenuItem& item, QPainter& painter) const {
    RibbonPainter paint(painter, look_);
    const QRectF area = item.rect;
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
      const double y = std::floor(area.center().y());
      paint.Hairline({area.left() + kMargin, y}, {area.right(), y},
                     MixOf(look_.Colour(SkinColour::kPopupMenu), look_.Colour(SkinColour::kPopupBorder), 0.5));
      return;
    }
    const bool enabled = item.state & State_Enabled, selected = item.state & State_Selected;
    const QColor text = look_.Colour(enabled ? SkinColour::kMenuText : SkinColour::kMenuTextDisabled);
    if (selected) {
      const double radius = look_.RoundCorners() ? 4 : 0;
      painter.setPen(QPen(MixOf(paint.colours().popup, look_.Accent(), enabled ? 0.6 : 0.25), 1));
      painter.setBrush(enabled ? paint.colours().popup_hover : QColor(Qt::transparent));
      painter.drawRoundedRect(area.adjusted(3.5, 0.5, -3.5, -0.5), radius, radius);
    }
    DrawMark(item, paint, painter, enabled);
    painter.setPen(text);
    painter.setFont(item.font);
    const QStringList parts = item.text.split('\t');
    painter.drawText(area.adjusted(kMargin + 8, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, parts[0]);
    if (parts.size() < 2) return;
    painter.setPen(look_.Colour(SkinColour::kMenuTextDisabled));
    painter.drawText(area.adjusted(0, 0, -12, 0), Qt::AlignRight | Qt::AlignVCenter, parts[1]);
  }

  void DrawMark(const QStyleOptionMenuItem& item, RibbonPainter& paint, QPainter& painter, bool enabled) const {
    const QRectF area = item.rect;
    const QRectF box(area.left() + (kMargin - kIcon) / 2.0, area.top() + (area.height() - kIcon) / 2, kIcon, kIcon);
    if (item.checked) {
      painter.setPen(QPen(look_.Accent(), 1));
      painter.setBrush(paint.colours().popup_hover);
      painter.drawRoundedRect(box.adjusted(-3.5, -3.5, 3.5, 3.5), 3, 3);
      paint.Mark(item.checkType == QStyleOptionMenuItem::Exclusive ? Glyph::kDot : Glyph::kTick, box.adjusted(3, 3, -3, -3),
                 look_.Accent());
    } else if (!item.icon.isNull()) {
      const QIcon::Mode mode = !enabled ? QIcon::Disabled : item.state & State_Selected ? QIcon::Active : QIcon::Normal;
      item.icon.paint(&painter, box.toRect(), Qt::AlignCenter, mode);
    }
  }

  const Look& look_;
};

}  // namespace

PopupView::PopupView(const Look& look, const QString& name, QWidget* parent)
    : QMenu(parent), look_(look), style_(std::make_unique<PopupStyle>(look)) {
  setStyle(style_.get());
  setFont(look.WindowFont());
  setAccessibleName(name);
  setToolTipsVisible(true);
  QObject::connect(this, &QMenu::triggered, this, [this](QAction* action) {
    if (chosen) chosen(action->data().toString().toStdString());
  });
}

PopupView::~PopupView() {
  setStyle(nullptr);
}

void PopupView::Fill(const std::vector<PopupEntry>& entries) {
  clear();
  auto* group = new QActionGroup(this);
  group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
  bool separator = false;
  for (const PopupEntry& entry : entries) {
    if (entry.kind == PopupEntry::Kind::kSeparator) {
      separator = !isEmpty();
      continue;
    }
    if (separator) addSeparator();
    separator = false;
    QString caption = entry.caption;
    if (!entry.letter.isEmpty()) caption += "\t" + entry.letter;
    QAction* action = addAction(caption);
    action->setData(ToQt(entry.key));
    action->setProperty(kLetter, entry.letter);
    action->setEnabled(entry.enabled);
    action->setToolTip(entry.tip.isEmpty() ? entry.caption : entry.tip);
    if (!entry.icon.isEmpty()) action->setIcon(look_.Icon(FromQt(entry.icon)));
    if (entry.kind == PopupEntry::Kind::kItem) continue;
    action->setCheckable(true);
    if (entry.kind == PopupEntry::Kind::kRadio) action->setActionGroup(group);
    action->setChecked(entry.checked);
  }
}

void PopupView::keyPressEvent(QKeyEvent* event) {
  const QString letter = event->text().toUpper();
  for (QAction* action : actions()) {
    if (letter.isEmpty() || action->property(kLetter).toString() != letter || !action->isEnabled()) continue;
    close();
    action->trigger();
    return;
  }
  QMenu::keyPressEvent(event);
}

}  // namespace ostrinka
