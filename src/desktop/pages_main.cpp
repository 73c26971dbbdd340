// ostrinka-pages: turns page files into pictures, or into one PDF with embedded fonts.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "desktop/pdf_file.h"
#include "desktop/qcanvas.h"
#include "platform/posix/command_line.h"
#include "platform/posix/posix_files.h"
#include "print/page_file.h"

namespace ostrinka {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kHairlineMm = 0.1;
constexpr int kMostDpi = 1200;

struct Options {
  int dpi = 150;
  std::string pdf;
  std::string folder;
  std::vector<std::string> pages;
};

struct LoadedPage {
  std::string bytes;
  PageFileSize size;
};

bool Fail(const std::string& what, const std::string& file) {
  std::fprintf(stderr, "ostrinka-pages: %s: %s\n", what.c_str(), file.c_str());
  return false;
}

std::optional<LoadedPage> Load(FileSystem& files, const std::string& path) {
  LoadedPage page;
  if (!files.ReadAll(path, page.bytes)) return Fail("cannot read", path), std::nullopt;
  std::optional<PageFileSize> size = SizeOfPageFile(page.bytes);
  if (!size) return Fail("no page file", path), std::nullopt;
  page.size = *size;
  return page;
}

bool WritePicture(const LoadedPage& page, int dpi, const std::string& path) {
  double pixels_per_mm = dpi / kMmPerInch;
  QImage image(static_cast<int>(std::lround(page.size.width * pixels_per_mm)),
               static_cast<int>(std::lround(page.size.height * pixels_per_mm)), QImage::Format_RGB32);
  if (image.isNull()) return Fail("too large a sheet", path);
  image.setDotsPerMeterX(static_cast<int>(std::lround(pixels_per_mm * 1000)));
  image.setDotsPerMeterY(static_cast<int>(std::lround(pixels_per_mm * 1000)));
  image.fill(Qt::white);
  bool whole;
  {
    QPainter painter(&image);
    const double width = page.size.width * pixels_per_mm, height = page.size.height * pixels_per_mm;
    QCanvas canvas(painter, width, height, std::max(1.0, kHairlineMm * pixels_per_mm));
    whole = PlayPageFile(page.bytes, canvas, {0, 0, width, height});
  }
  if (!image.save(QString::fromStdString(path))) return Fail("cannot write", path);
  return whole || Fail("damaged page file, drawn in part", path);
}

bool WritePdf(const std::vector<LoadedPage>& pages, const std::string& path) {
  QtPdfFile pdf;
  if (!pdf.Start(path)) return Fail("cannot write", path);
  bool whole = true;
  for (const LoadedPage& page : pages) {
    double pixels_per_mm = 0;
    Canvas* sheet = pdf.StartPage(page.size.width, page.size.height, pixels_per_mm);
    if (!sheet) return Fail("cannot write", path);
    whole = PlayPageFile(page.bytes, *sheet, {0, 0, page.size.width * pixels_per_mm, page.size.height * pixels_per_mm}) && whole;
  }
  if (!pdf.Finish()) return Fail("cannot write", path);
  return whole || Fail("damaged page file, drawn in part", path);
}

int Run(const Options& options) {
  PosixFileSystem files;
  std::vector<LoadedPage> pages;
  bool good = files.MakeFolders(options.folder) || Fail("cannot make", options.folder);
  int number = 0;
  for (const std::string& path : options.pages) {
    std::optional<LoadedPage> page = Load(files, path);
    good = page && good;
    if (page && !options.pdf.empty()) {
      pages.push_back(std::move(*page));
    } else if (page) {
      char name[32];
      std::snprintf(name, sizeof name, "page-%03d.png", ++number);
      good = WritePicture(*page, options.dpi, options.folder + name) && good;
    }
  }
  // A bare name goes to the folder as well.
  std::string pdf = options.pdf.find('/') == std::string::npos ? options.folder + options.pdf : options.pdf;
  if (!pages.empty()) good = WritePdf(pages, pdf) && good;
  return good ? 0 : 1;
}

}  // namespace
}  // namespace ostrinka

// Complaints about the surroundings of a window, which there is none of, stay unsaid.
void OnlySevere(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
}

int main(int argc, char** argv) {
  ostrinka::Options options;
  ostrinka::CommandLine line("ostrinka-pages", "Turns page files into pictures, or into one PDF with embedded fonts.");
  line.Whole("--dpi", options.dpi, 10, ostrinka::kMostDpi, "Dots per inch of the pictures, 10 to 1200; 150 when not given")->type_name("N");
  line.Word("--pdf", options.pdf, "Writes this file instead of pictures; a bare name goes to OUTDIR")->type_name("FILE");
  line.Word("OUTDIR", options.folder, "Folder of the pictures, made when it is missing")->required()->type_name("");
  line.options().add_option("PAGE", options.pages, "Page files (.ovp)")->required()->type_name("");
  if (const auto status = line.Read(argc, argv)) return *status;
  if (options.folder.back() != '/') options.folder += '/';
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  qInstallMessageHandler(OnlySevere);
  QGuiApplication application(argc, argv);
  return ostrinka::Run(options);
}
