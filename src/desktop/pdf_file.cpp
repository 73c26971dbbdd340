#include "desktop/pdf_file.h"

#include <QFontDatabase>
#include <QPageSize>

namespace ostrinka {
namespace {

constexpr int kDpi = 1200;
constexpr double kPixelsPerMm = kDpi / 25.4, kHairlineMm = 0.1;

}  // namespace

QtPdfFile::~QtPdfFile() {
  Forget();
}

bool QtPdfFile::HasArial() {
  return QFontDatabase::families().contains("Arial", Qt::CaseInsensitive);
}

bool QtPdfFile::Start(const std::string& path) {
  Forget();
  file_ = std::make_unique<QSaveFile>(QString::fromStdString(path));
  if (!file_->open(QIODevice::WriteOnly)) {
    Forget();
    return false;
  }
  writer_ = std::make_unique<QPdfWriter>(file_.get());
  writer_->setResolution(kDpi);
  writer_->setCreator("Ostrinka 2008");
  return true;
}

Canvas* QtPdfFile::StartPage(double width, double height, double& pixels_per_mm) {
  if (!writer_ || width <= 0 || height <= 0) return nullptr;
  canvas_.reset();
  // The size of a sheet is told before the sheet begins.
  writer_->setPageSize(QPageSize(QSizeF(width, height), QPageSize::Millimeter, {}, QPageSize::ExactMatch));
  writer_->setPageMargins(QMarginsF());
  if (!painter_) {
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(writer_.get())) {
      painter_.reset();
      return nullptr;
    }
  } else if (!writer_->newPage()) {
    return nullptr;
  }
  pixels_per_mm = kPixelsPerMm;
  canvas_ = std::make_unique<QCanvas>(*painter_, width * kPixelsPerMm, height * kPixelsPerMm, kHairlineMm * kPixelsPerMm);
  return canvas_.get();
}

bool QtPdfFile::Finish() {
  canvas_.reset();
  const bool drawn = painter_ && painter_->end();
  const bool written = drawn && file_->error() == QFileDevice::NoError && file_->commit();
  Forget();
  return written;
}

void QtPdfFile::Forget() {
  canvas_.reset();
  painter_.reset();
  writer_.reset();
  file_.reset();
}

}  // namespace ostrinka
