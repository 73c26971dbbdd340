// The system's default printer.
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
  virtual std::optional<PaperSize> Paper() = 0;  // nothing when no printer answers
  virtual bool StartDocument(const std::string& name) = 0;
  // The surface of the next sheet, whole sheet, `pixels_per_mm` given back; null when the printer fails.
  virtual Canvas* StartPage(bool landscape, double& pixels_per_mm) = 0;
  virtual bool EndPage() = 0;
  virtual bool EndDocument() = 0;
};

}  // namespace ostrinka
