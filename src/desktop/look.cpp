#include "desktop/look.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QPainter>
#include <array>

#include "app/program.h"
#include "desktop/qcanvas.h"

namespace ostrinka {
namespace {

constexpr int kColours = 25;  // by their number; 0 and 1 are none
constexpr double kWindowPoints = 9;
constexpr QRgb kFocusRing = 0xFF1F6FD0;

using Palette = std::array<QRgb, kColours>;

// What a skin that is missing or lacks a colour falls back on.
constexpr Palette kBlack = {0,        0,        0x2B313B, 0x232830, 0x2E353F, 0x8791A0, 0xDDE2E8, 0xFFFFFF, 0xA3ACB9,
                            0xFFC857, 0xF4F6F9, 0x161B22, 0x414B59, 0x1B2129, 0x0A4C95, 0x6B3600, 0x6A7482, 0xFFD480,
                            0x8F99A7, 0x47515F, 0xFFFFFF, 0x7F8997, 0xB3BBC6, 0xECEFF3, 0x76808E};

constexpr int kBlackSkin = 2, kSilverSkin = 1;
constexpr QRgb kAmber = 0xFFE9A21B, kTeal = 0xFF17877F, kSky = 0xFF2F86D6;

}  // namespace

struct Look::Parts {
  Palette colours = kBlack;
  QRgb accent = kAmber;
  bool round_corners = true;
  mutable QHash<QString, QIcon> icons;
};

Look::Look(Program& program) : program_(program), parts_(new Parts) {
  Reload();
}

Look::~Look() {
  delete parts_;
}

void Look::Reload() {
  *parts_ = Parts();
  const int32_t skin = program_.settings.Integer(kCommon, "GUI", "Skin", kBlackSkin);
  parts_->accent = skin == kBlackSkin ? kAmber : skin == kSilverSkin ? kTeal : kSky;
}

QColor Look::Colour(SkinColour colour) const {
  return QColor(parts_->colours[static_cast<size_t>(colour)]);
}

QColor Look::Accent() const {
  return QColor(parts_->accent);
}

QColor Look::FocusRing() const {
  return QColor(kFocusRing);
}

bool Look::RoundCorners() const {
  return parts_->round_corners;
}

QPixmap Look::Image(std::string_view) const {
  return {};
}

bool Look::DrawThree(QPainter& painter, const QRectF& area, std::string_view element_state) const {
  const std::string element(element_state);
  const QPixmap left = Image(element + ".01.bmp"), middle = Image(element + ".02.bmp"), right = Image(element + ".03.bmp");
  if (left.isNull() || middle.isNull() || right.isNull()) return false;
  const QSizeF left_size = left.deviceIndependentSize(), right_size = right.deviceIndependentSize();
  const double inner = area.width() - left_size.width() - right_size.width();
  if (inner < 0) return false;
  painter.drawPixmap(QRectF(area.left(), area.top(), left_size.width(), area.height()), left, left.rect());
  painter.drawPixmap(QRectF(area.left() + left_size.width(), area.top(), inner, area.height()), middle, middle.rect());
  painter.drawPixmap(QRectF(area.right() - right_size.width(), area.top(), right_size.width(), area.height()), right, right.rect());
  return true;
}

QIcon Look::Icon(std::string_view name) const {
  if (name.empty()) return {};
  const QString key = ToQt(name);
  const auto known = parts_->icons.constFind(key);
  if (known != parts_->icons.constEnd()) return *known;
  const QString folder = ToQt(program_.IconsFolder());
  QIcon icon;
  if (key.endsWith(".ico", Qt::CaseInsensitive)) {
    if (QFile::exists(folder + key)) icon = QIcon(folder + key);
  } else {
    const QString family = folder + QString(key).replace('-', '.');
    if (QFile::exists(family + ".0.ico")) icon.addFile(family + ".0.ico", {}, QIcon::Normal);
    if (QFile::exists(family + ".1.ico")) icon.addFile(family + ".1.ico", {}, QIcon::Active);
  }
  parts_->icons.insert(key, icon);
  return icon;
}

QFont Look::WindowFont() const {
  QFont font(InstalledFace("Tahoma"));
  font.setPointSizeF(kWindowPoints);
  return font;
}

QFont Look::BoldFont() const {
  QFont font = WindowFont();
  font.setBold(true);
  return font;
}

QString Look::Text(std::string_view catalogue_key) const {
  return catalogue_key.empty() ? QString() : ToQt(program_.Text(catalogue_key)).replace("\r\n", "\n");
}

}  // namespace ostrinka
