// How the platform's own fields, buttons, tabs and bars look inside the dialogs: painted from the colours of the skin.
#pragma once

#include <QHash>
#include <QPixmap>
#include <QProxyStyle>

#include "desktop/look.h"

namespace ostrinka {

// The colours of a dialog, worked out from the skin.
struct DialogColours {
  QColor text, faint, disabled, field, field_off, border, border_hot, card, pane, card_line, button_top, button_bottom, primary,
      primary_text, accent, ring, ground_top, ground_bottom, strip_top, strip_bottom, strip_text, strip_text_off, chosen, chosen_text,
      error;
  bool round = true;
};

class DialogStyle : public QProxyStyle {
 public:
  // Makes this style the application's, or gives the one that stands the colours of `look`.
  static DialogStyle& Install(const Look& look);

  // The style that stands; installed when there is none yet.
  static DialogStyle& Of(const Look& look);

  explicit DialogStyle(const Look& look);
  const DialogColours& colours() const { return colours_; }
  QPalette Palette() const;
  // Of lists: dark text on a light choice.
  QPalette ListPalette() const;
  // Lines under access keys show only while this is set.
  void ShowAccessKeys(bool shown) { access_keys_ = shown; }
  double Radius() const { return colours_.round ? 4 : 0; }

  // The ground of a dialog: a vertical gradient from skin colour 23 towards 24. `deep` takes the stronger of its two stages.
  void PaintGround(QPainter& painter, const QRectF& area, bool deep) const;
  void PaintCard(QPainter& painter, const QRectF& area, const QColor& fill) const;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const override;

 private:
  void Frame(QPainter& painter, const QRectF& area, const QColor& fill, QStyle::State state, const QWidget* widget = nullptr) const;
  void Ring(QPainter& painter, const QRectF& area) const;
  void ButtonBevel(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;
  void ButtonLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;
  bool Mark(const QStyleOption& option, QPainter& painter, bool box) const;
  void Tick(const QStyleOption& option, QPainter& painter) const;
  void Dot(const QStyleOption& option, QPainter& painter) const;
  void Tab(const QStyleOption& option, QPainter& painter) const;
  void TabLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;
  void Combo(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
  void ComboLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;
  void ScrollBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;

  DialogColours colours_;
  QHash<QString, QPixmap> marks_;  // check and option boxes of the skin, by element and state
  bool access_keys_ = false;
};

// Buttons that a window marks: the one that does what the dialog is for; one of the row at the bottom.
inline constexpr const char* kPrimaryButton = "ostrinka_primary";
inline constexpr const char* kBarButton = "ostrinka_bar";
// The character that a password field shows for each one.
inline constexpr const char* kPasswordSign = "ostrinka_password";

}  // namespace ostrinka
