#include "desktop/look.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QImageReader>
#include <QPainter>
#include <QWidget>

#include "app/program.h"
#include "desktop/qcanvas.h"
#include "shell/skin.h"

namespace ostrinka {
namespace {

constexpr double kWindowPoints = 9;
constexpr QRgb kFocusRing = 0xFF1F6FD0;
constexpr int kTranslucent = 220;   // alpha of a translucent window, of 255
constexpr int kWidestImage = 2048;  // pixels of a skin's picture; a larger one is damaged
constexpr QRgb kAmber = 0xFFE9A21B, kTeal = 0xFF17877F, kSky = 0xFF2F86D6;

// Null for what is no picture, or too large to be one of a skin.
QPixmap PictureOf(const std::string& bytes) {
  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  QImageReader reader(&buffer, "BMP");
  const QSize size = reader.size();
  if (size.isEmpty() || size.width() > kWidestImage || size.height() > kWidestImage) return {};
  return QPixmap::fromImage(reader.read());
}

}  // namespace

struct Look::Parts {
  Skin skin;
  QColor accent;
  mutable QHash<QString, QPixmap> images;
  mutable QHash<QString, QIcon> icons;
};

Look::Look(Program& program) : program_(program), parts_(new Parts) {
  Reload();
}

Look::~Look() {
  delete parts_;
}

void Look::Reload() {
  const bool loaded = parts_->skin.SkinLoad(program_.platform.files, SkinChoose(program_));
  if (!loaded && parts_->accent.isValid()) return;
  parts_->images.clear();
  parts_->icons.clear();
  const int skin = ChosenSkin(program_);
  const QPixmap progress = Image("progress.fill.02.bmp");  // painted in the skin's accent
  parts_->accent = QColor(skin == kBlackSkin ? kAmber : skin == kSilverSkin ? kTeal : kSky);
  if (!progress.isNull()) parts_->accent = progress.toImage().pixelColor(progress.width() / 2, progress.height() / 2);
}

void Look::WindowTransparency(QWidget& window) const {
  window.setWindowOpacity(program_.settings.Integer(kCommon, "GUI", "TrWindows", 0) == 1 ? kTranslucent / 255.0 : 1.0);
}

QColor Look::Colour(SkinColour colour) const {
  const ostrinka::Colour rgb = parts_->skin.SkinColor(static_cast<int>(colour));
  return QColor(static_cast<int>(rgb & 255), static_cast<int>(rgb >> 8 & 255), static_cast<int>(rgb >> 16 & 255));
}

QColor Look::Accent() const {
  return parts_->accent;
}

QColor Look::FocusRing() const {
  return QColor(kFocusRing);
}

bool Look::RoundCorners() const {
  return parts_->skin.round_corners;
}

QPixmap Look::Image(std::string_view name) const {
  const QString key = ToQt(name);
  const auto known = parts_->images.constFind(key);
  if (known != parts_->images.constEnd()) return *known;
  QPixmap image;
  if (const std::string* bytes = parts_->skin.SkinImage(name)) {
    image = PictureOf(*bytes);
    image.setDevicePixelRatio(parts_->skin.scale);
  }
  parts_->images.insert(key, image);
  return image;
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
  if (icon.availableSizes().isEmpty()) icon = QIcon();  // a file that is no picture
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
