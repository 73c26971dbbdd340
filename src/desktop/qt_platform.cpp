#include "desktop/qt_platform.h"

#include <QEventLoop>
#include <QImageReader>
#include <QPageLayout>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTimer>

#include "desktop/look.h"

namespace ostrinka {
namespace {

constexpr qint64 kMostPixels = 64'000'000, kWidestPixel = 8;  // bytes of a pixel of two bytes a colour
constexpr double kHairlineMm = 0.1, kMmPerInch = 25.4;

std::string UserSettingsFolder() {
  return FromQt(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)) + "/";
}

}  // namespace

void EventWaiter::Wait(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, [&loop] { loop.quit(); });
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

std::optional<Picture> QtPictureDecoder::Decode(const std::string& path) {
  QImageReader reader(ToQt(path));
  reader.setDecideFormatFromContent(true);
  const QByteArray format = reader.format();
  if (format != "png" && format != "jpeg" && format != "gif" && format != "bmp") return std::nullopt;
  const QSize size = reader.size();
  if (size.isEmpty() || qint64{size.width()} * size.height() > kMostPixels) return std::nullopt;
  // The limit holds for the whole program: room for the largest picture that may come, and no more.
  QImageReader::setAllocationLimit(static_cast<int>(kMostPixels * kWidestPixel / (1 << 20)) + 1);
  const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32);
  if (image.isNull()) return std::nullopt;
  Picture picture{image.width(), image.height(), {}};
  picture.pixels.reserve(static_cast<size_t>(image.width()) * static_cast<size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const uint32_t*>(image.constScanLine(y));
    picture.pixels.insert(picture.pixels.end(), line, line + image.width());
  }
  return picture;
}

Printer::State QtPrinter::Query() {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) return State::kMissing;
  return info.state() == QPrinter::Error ? State::kBroken : State::kReady;
}

std::string QtPrinter::Name() {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  return FromQt(info.description().isEmpty() ? info.printerName() : info.description());
}

std::optional<PaperSize> QtPrinter::Paper() {
  if (QPrinterInfo::defaultPrinter().isNull()) return std::nullopt;
  const QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
  const QPageLayout layout = printer.pageLayout();
  const QRectF sheet = layout.fullRect(QPageLayout::Millimeter), area = layout.paintRect(QPageLayout::Millimeter);
  return PaperSize{sheet.width(), sheet.height(), area.width(), area.height()};
}

bool QtPrinter::StartDocument(const std::string& name) {
  EndDocument();
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) return false;
  printer_ = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
  printer_->setDocName(ToQt(name));
  printer_->setFullPage(true);
  return true;
}

Canvas* QtPrinter::StartPage(bool landscape, double& pixels_per_mm) {
  if (!printer_) return nullptr;
  // The direction of a sheet is told before the sheet begins.
  printer_->setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  if (!painter_) {
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(printer_.get())) {
      painter_.reset();
      return nullptr;
    }
  } else if (!printer_->newPage()) {
    return nullptr;
  }
  pixels_per_mm = printer_->resolution() / kMmPerInch;
  const QRect sheet = printer_->pageLayout().fullRectPixels(printer_->resolution());
  canvas_ = std::make_unique<QCanvas>(*painter_, sheet.width(), sheet.height(), kHairlineMm * pixels_per_mm);
  return canvas_.get();
}

bool QtPrinter::EndPage() {
  const bool drawn = canvas_ != nullptr;
  canvas_.reset();
  return drawn && printer_->printerState() != QPrinter::Error;
}

bool QtPrinter::EndDocument() {
  canvas_.reset();
  const bool printed = painter_ && painter_->end() && printer_->printerState() != QPrinter::Error;
  painter_.reset();
  printer_.reset();
  return printed;
}

QtPlatform::QtPlatform(UserInterface& ui, std::string application_folder)
    : download(files),
      platform{
          files,        ui, clock, random, waiter, printer, pictures, download, serial, std::move(application_folder), UserSettingsFolder(),
          &embedded_pdf} {
  files.MakeFolders(platform.user_settings);
}

}  // namespace ostrinka
