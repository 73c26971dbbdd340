// PDF files with embedded fonts and searchable text, through the toolkit's own writer.
#pragma once

#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <memory>
#include <string>

#include "desktop/qcanvas.h"
#include "platform/printer.h"

namespace ostrinka {

class QtPdfFile : public EmbeddedPdf {
 public:
  ~QtPdfFile() override;
  bool HasArial() override;
  bool Start(const std::string& path) override;
  Canvas* StartPage(double width, double height, double& pixels_per_mm) override;
  bool Finish() override;

 private:
  void Forget();
  // What draws goes before what it draws on.
  std::unique_ptr<QSaveFile> file_;
  std::unique_ptr<QPdfWriter> writer_;
  std::unique_ptr<QPainter> painter_;
  std::unique_ptr<QCanvas> canvas_;
};

}  // namespace ostrinka
