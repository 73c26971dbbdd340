// The surroundings of the program in its window: real files, the system's clock, the default printer through Qt.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>
#include <optional>
#include <string>

#include "desktop/pdf_file.h"
#include "desktop/qcanvas.h"
#include "platform/platform.h"
#include "platform/posix/picture_decoder.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_system.h"

namespace ostrinka {

// Waits while the window stays alive; what the person does meanwhile is kept for later.
class EventWaiter : public Waiter {
 public:
  void Wait(int milliseconds) override;
};

class QtPrinter : public Printer {
 public:
  State Query() override;
  std::string Name() override;
  std::optional<PaperSize> Paper() override;
  bool StartDocument(const std::string& name) override;
  Canvas* StartPage(bool landscape, double& pixels_per_mm) override;
  bool EndPage() override;
  bool EndDocument() override;

 private:
  // The painter and the canvas go before the printer that they draw on.
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  std::unique_ptr<QCanvas> canvas_;
};

struct QtPlatform {
  // `application_folder` with a closing slash; the settings of the person lie where the system keeps such files.
  QtPlatform(UserInterface& ui, std::string application_folder);

  PosixFileSystem files;
  SystemClock clock;
  SystemRandom random;
  EventWaiter waiter;
  QtPrinter printer;
  QtPdfFile embedded_pdf;
  FilePictureDecoder pictures;
  HttpDownload download;
  PosixSerialPort serial;
  Platform platform;
};

}  // namespace ostrinka
