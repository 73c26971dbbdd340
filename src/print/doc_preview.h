// The print preview as a model: the sheets of a job one below the other, the zoom, the commands, the place of the window.
//
// A front end shows the commands, hands in what the person does, and lets ref_ draw the part of the stack that is in sight. Lengths in
// pixels are those of a window at its plain size, whatever the screen's density.
#pragma once

#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "controls/controls.h"
#include "platform/canvas.h"
#include "platform/user_interface.h"

namespace ostrinka {

class ClassPRINT;
class frm_DocPreview;

struct PreviewCommand {
  std::string_view key;
  const char* caption_key;  // of the catalogue, like the tip's
  const char* tip_key;
  const char* icon;  // a file of the folder of icons
  void (frm_DocPreview::*run)();
};

class frm_DocPreview : public Modal {
 public:
  // Shows the current print job, which stays alive as long as the preview. The place that the window had last is read here.
  explicit frm_DocPreview(Program& program);

  // The toolbar, in its order: PRINT, MAKEPDF, ZOOM.100, ZOOM.-, ZOOM.+, CLOSE.
  static std::span<const PreviewCommand> Commands();
  // False: no such command, it has nothing to do now, or another one still runs.
  bool UserCommand(std::string_view key);
  bool Enabled(std::string_view key) const;

  // 0.25 to 2 in steps of 0.25; 1 at the start.
  double zoom() const { return zoom_; }
  std::string PercentText() const;  // "100%"
  double Scale() const;             // pixels a mm

  // The stack: pages from 1, each in the middle of the widest one, kGapMm between two. Pixels from the stack's top left corner.
  static constexpr double kGapMm = 5;
  int Pages() const;  // 0 for an empty job
  double Width() const;
  double Height() const;
  RectF Sheet(int page) const;
  int PageAt(double y) const;             // a gap belongs to the page above it; the first or the last one beyond the ends; 0 without pages
  std::string PlaceText(int page) const;  // "Strona 2 z 3"
  std::string WordsOf(int page) const;    // what is written on a page, line by line, for those who do not see it

  // Draws the sheets on a surface whose corner is that of the stack. Those that do not reach into the strip from `top` to `bottom` are left
  // out, so that a job of hundreds of pages costs no more than what is in sight.
  void ref_(Canvas& target, Colour shadow, double top = 0, double bottom = std::numeric_limits<double>::infinity()) const;

  // Pixels of the screen. State 2 is maximised.
  struct Placement {
    float left = 0, top = 0, width = 0, height = 0;
    int32_t state = 0;
  };
  // Nothing for a window never placed. The front end keeps it up to date; CLOSE writes it to the settings.
  std::optional<Placement> placement;

  std::string subject;  // what is shown, beside the window's title; may be empty

  bool IsOpen() const { return open_; }
  Event Repaint;  // the zoom is another
  Event Closed;

 private:
  void Print();
  void MakePdf();
  void ZoomStandard() { Zoom(1); }
  void ZoomOut();
  void ZoomIn();
  void Close();
  void Zoom(double zoom);
  void ReadPlace();
  void SavePlace();

  Program& program_;
  std::shared_ptr<ClassPRINT> job_;
  std::vector<double> tops_;       // of the sheets, mm
  double width_ = 0, height_ = 0;  // of the stack, mm
  double zoom_ = 1;
  bool open_ = true, running_ = false;
};

}  // namespace ostrinka
