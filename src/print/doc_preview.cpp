#include "print/doc_preview.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/text.h"
#include "print/print.h"
#include "print/print_run.h"

namespace ostrinka {
namespace {

constexpr double kPixelsPerMm = 3.25, kZoomStep = 0.25, kLeastZoom = 0.25, kMostZoom = 2;
constexpr double kShadowMm = 2;  // how far a sheet's shadow reaches beyond it
constexpr std::string_view kPlace = "Windows\\DocPreview";
constexpr float kFarthest = 100000;  // pixels; a place beyond is a damaged setting

}  // namespace

std::span<const PreviewCommand> frm_DocPreview::Commands() {
  using P = frm_DocPreview;
  static constexpr PreviewCommand commands[] = {
      {"PRINT", "prntpv.print", "prntpv.print.tip", "btnprint.ico", &P::Print},
      {"MAKEPDF", "prntpv.savepdf", "prntpv.savepdf.tip", "btnpdf.ico", &P::MakePdf},
      {"ZOOM.100", "prntpv.zoom.std", "prntpv.zoom.std.tip", "btnzoom100.ico", &P::ZoomStandard},
      {"ZOOM.-", "prntpv.zoom.out", "prntpv.zoom.out.tip", "btnzoomout.ico", &P::ZoomOut},
      {"ZOOM.+", "prntpv.zoom.in", "prntpv.zoom.in.tip", "btnzoomin.ico", &P::ZoomIn},
      {"CLOSE", "prntpv.close", "prntpv.close.tip", "btnclose.ico", &P::Close},
  };
  return commands;
}

frm_DocPreview::frm_DocPreview(Program& program) : program_(program), job_(CurrentPrintJob(program)) {
  for (int page = 1; page <= Pages(); ++page) {
    tops_.push_back(height_);
    height_ += double{job_->Page_Height(page)} + kGapMm;
    width_ = std::max(width_, double{job_->Page_Width(page)});
  }
  if (!tops_.empty()) height_ -= kGapMm;
  ReadPlace();
}

// --- commands

bool frm_DocPreview::Enabled(std::string_view key) const {
  if (key == "PRINT" || key == "MAKEPDF") return Pages() > 0;
  if (key == "ZOOM.-") return zoom_ > kLeastZoom;
  if (key == "ZOOM.+") return zoom_ < kMostZoom;
  return true;
}

bool frm_DocPreview::UserCommand(std::string_view key) {
  const auto found = std::find_if(Commands().begin(), Commands().end(), [key](const PreviewCommand& row) { return row.key == key; });
  // Printing lets events turn: what is pressed meanwhile would run within it.
  if (found == Commands().end() || !open_ || running_ || !Enabled(key)) return false;
  running_ = true;
  (this->*found->run)();
  running_ = false;
  if (!open_) Closed.Raise();
  return true;
}

void frm_DocPreview::Print() {
  RunPrinter(program_);
}
void frm_DocPreview::MakePdf() {
  SaveJobAsPdf(program_);
}
void frm_DocPreview::ZoomOut() {
  Zoom(zoom_ - kZoomStep);
}
void frm_DocPreview::ZoomIn() {
  Zoom(zoom_ + kZoomStep);
}

void frm_DocPreview::Zoom(double zoom) {
  zoom_ = std::clamp(zoom, kLeastZoom, kMostZoom);
  Repaint.Raise();
}

void frm_DocPreview::Close() {
  SavePlace();
  open_ = false;
}

std::string frm_DocPreview::PercentText() const {
  return std::to_string(std::lround(zoom_ * 100)) + "%";
}

// --- the stack of sheets

int frm_DocPreview::Pages() const {
  return job_ ? job_->Page() : 0;
}
double frm_DocPreview::Scale() const {
  return kPixelsPerMm * zoom_;
}
double frm_DocPreview::Width() const {
  return width_ * Scale();
}
double frm_DocPreview::Height() const {
  return height_ * Scale();
}

RectF frm_DocPreview::Sheet(int page) const {
  if (page < 1 || page > Pages()) return {};
  const double width = job_->Page_Width(page), left = (width_ - width) / 2, top = tops_[static_cast<size_t>(page - 1)];
  return {left * Scale(), top * Scale(), (left + width) * Scale(), (top + job_->Page_Height(page)) * Scale()};
}

int frm_DocPreview::PageAt(double y) const {
  const auto below = std::upper_bound(tops_.begin(), tops_.end(), y / Scale());
  return std::clamp(static_cast<int>(below - tops_.begin()), std::min(1, Pages()), Pages());
}

std::string frm_DocPreview::PlaceText(int page) const {
  return program_.Text("prntpv.place", {std::to_string(page), std::to_string(Pages())});
}

std::string frm_DocPreview::WordsOf(int page) const {
  std::string words;
  if (page < 1 || page > Pages()) return words;
  const std::string number = std::to_string(job_->pages()[static_cast<size_t>(page - 1)].PageNumber);
  for (const PageElement& element : job_->elements()) {
    if (element.Page != page || element.Kind != ElementKind::kText) continue;
    words += (words.empty() ? "" : "\n") + ReplaceAll(ReplaceAll(element.Text, "%p", number), "%P", number);
  }
  return words;
}

void frm_DocPreview::ref_(Canvas& target, Colour shadow, double top, double bottom) const {
  for (int page = PageAt(top); page >= 1 && page <= Pages(); ++page) {
    const RectF sheet = Sheet(page);
    if (sheet.top >= bottom) return;
    if (sheet.bottom + kShadowMm * Scale() <= top) continue;
    // A page is placed by its printable area, which lies in the middle of the sheet.
    float x = static_cast<float>(sheet.left / Scale()) + (job_->Page_Width(page) - job_->PrintArea_Width(page)) / 2;
    float y = static_cast<float>(sheet.top / Scale()) + (job_->Page_Height(page) - job_->PrintArea_Height(page)) / 2;
    bool with_sheet = true;
    job_->DISPLAY_PAGE_(page, target, static_cast<float>(Scale()), x, y, with_sheet, shadow);
  }
}

// --- the place of the window

void frm_DocPreview::ReadPlace() {
  Placement place;
  const std::pair<std::string_view, float*> values[] = {
      {"Left", &place.left}, {"Top", &place.top}, {"Width", &place.width}, {"Height", &place.height}};
  for (const auto& [key, value] : values) {
    if (!program_.settings.Exists(kOstrinka, kPlace, key)) return;
    const std::optional<float> number = ToFloat(program_.settings.GetSettingValue(kOstrinka, kPlace, key, 0.0f));
    if (!number || !(std::fabs(*number) < kFarthest)) return;
    *value = *number;
  }
  if (place.width < 1 || place.height < 1) return;
  place.state = program_.settings.Integer(kOstrinka, kPlace, "WinState", 0);
  placement = place;
}

void frm_DocPreview::SavePlace() {
  if (!placement) return;
  const std::pair<std::string_view, Value> values[] = {{"Left", placement->left},
                                                       {"Top", placement->top},
                                                       {"Width", placement->width},
                                                       {"Height", placement->height},
                                                       {"WinState", placement->state}};
  for (const auto& [key, value] : values) program_.settings.SaveSettingValue(kOstrinka, kPlace, key, value);
}

}  // namespace ostrinka
