// What pages leave on: the system's default printer, and PDF files that carry their letters.
#pragma once

#include <optional>
#include <string>

#include "platform/canvas.h"

namespace ostrinka {

// Of the sheet as the printer is set now: all in mm.
struct PaperSize {
  double width = 210, height = 297, area_width = 200, area_height = 285;
};

class Printer {
 public:
  enum class State { kReady, kMissing, kBroken };
  virtual ~Printer() = default;
  virtual State Query() = 0;
  virtual std::string Name() = 0;                // as its owner calls it; "" without one
  virtual std::optional<PaperSize> Paper() = 0;  // nothing when no printer answers
  virtual bool StartDocument(const std::string& name) = 0;
  // The surface of the next sheet, whole sheet, `pixels_per_mm` given back; null when the printer fails.
  virtual Canvas* StartPage(bool landscape, double& pixels_per_mm) = 0;
  virtual bool EndPage() = 0;
  virtual bool EndDocument() = 0;
};

// Where there is none.
class NoPrinter : public Printer {
 public:
  State Query() override { return State::kMissing; }
  std::string Name() override { return ""; }
  std::optional<PaperSize> Paper() override { return std::nullopt; }
  bool StartDocument(const std::string&) override { return false; }
  Canvas* StartPage(bool, double&) override { return nullptr; }
  bool EndPage() override { return false; }
  bool EndDocument() override { return false; }
};

// A PDF with the shapes of its letters in it, which reads the same on every machine.
class EmbeddedPdf {
 public:
  virtual ~EmbeddedPdf() = default;
  // Whether this machine has the face "Arial", which a PDF that only names its fonts needs to read well.
  virtual bool HasArial() = 0;
  virtual bool Start(const std::string& path) = 0;
  // The surface of the next sheet, in mm; `pixels_per_mm` given back; null when the file cannot be written.
  virtual Canvas* StartPage(double width, double height, double& pixels_per_mm) = 0;
  virtual bool Finish() = 0;  // false when the file could not be written; what stood there before is then as it was
};

}  // namespace ostrinka
