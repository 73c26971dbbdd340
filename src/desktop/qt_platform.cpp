#include "desktop/qt_platform.h"

#include <QEventLoop>
#include <QPageLayout>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTimer>

#include "desktop/look.h"

namespace ostrinka {
namespace {

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
    : pictures(files),
      download(files),
      platform{
          files,        ui, clock, random, waiter, printer, pictures, download, serial, std::move(application_folder), UserSettingsFolder(),
          &embedded_pdf} {
  files.MakeFolders(platform.user_settings);
  files.KeepForUser(platform.user_settings);
}

}  // namespace ostrinka
