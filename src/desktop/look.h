// How the window looks: the colours and pictures of the skin, the fonts, the icons, for everything that the desktop paints.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <string>
#include <string_view>

namespace ostrinka {

class Program;

// Colours of the skin by the order of their keys in skin.ini, round_corners being 1.
enum class SkinColour {
  kMainMenu = 2,
  kPopupMenu = 3,
  kPopupMargin = 4,
  kPopupBorder = 5,
  kBackground = 6,
  kCaptionText = 7,
  kCaptionTextDisabled = 8,
  kCaptionTextDocument = 9,
  kTabText = 10,
  kTabTextActive = 11,
  kToolbarText = 12,
  kButtonText = 13,
  kButtonTextActive = 14,
  kButtonTextChecked = 15,
  kButtonTextDisabled = 16,
  kMenuText = 17,
  kMenuTextDisabled = 18,
  kArrowOne = 19,
  kArrowTwo = 20,
  kIconOne = 21,
  kIconTwo = 22,
  kIconThree = 23,
  kTextBorder = 24,
};

class Look {
 public:
  // Loads the skin that the settings choose; what a skin lacks has a quiet default, so that a missing package leaves the program usable.
  explicit Look(Program& program);
  ~Look();
  // Loads the skin that the settings choose now; a package that cannot be read leaves what is loaded as it is.
  void Reload();
  // Makes a window translucent, or not, as the settings say.
  void WindowTransparency(class QWidget& window) const;

  QColor Colour(SkinColour colour) const;
  QColor Accent() const;     // of the skin: ticks, current row, active tab
  QColor FocusRing() const;  // one ring everywhere
  bool RoundCorners() const;
  // The picture of a skin element, in device pixels of its scale; null when the skin lacks it.
  QPixmap Image(std::string_view name) const;
  // Three parts side by side stretched to `area`: caps unscaled, the middle stretched. False when the skin lacks them.
  bool DrawThree(class QPainter& painter, const class QRectF& area, std::string_view element_state) const;
  // An icon of the folder of icons: "qdb-01" is qdb.01.0.ico with qdb.01.1.ico as its hot state; a name with ".ico" is that file.
  QIcon Icon(std::string_view name) const;
  QFont WindowFont() const;  // "Tahoma" or what stands in for it, 9 points
  QFont BoldFont() const;
  QString Text(std::string_view catalogue_key) const;  // "|" as line ends; "&" marks an access key

 private:
  struct Parts;
  Program& program_;
  Parts* parts_;
};

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

}  // namespace ostrinka
