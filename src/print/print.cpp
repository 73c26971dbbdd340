#include "print/print.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "print/page_file.h"

namespace ostrinka {

namespace {

constexpr std::string_view kPageFileExtension = ".ovp";

// Rounded to nearest, ties to even; a coordinate far outside any sheet stays representable.
int32_t Units(double mm) {
  double units = mm * kPageScale;
  if (!(std::fabs(units) < 1e9)) return units > 0 ? 1000000000 : units < 0 ? -1000000000 : 0;
  return static_cast<int32_t>(std::lrint(units));
}

PagePoint At(double x, double y) {
  return {Units(x), Units(-y)};
}

int32_t PenWidth(int16_t width_style) {
  constexpr int32_t kWidths[] = {kPageScale * 5 / 10 + 1, kPageScale * 9 / 10 + 1, kPageScale * 13 / 10 + 1, kPageScale * 17 / 10 + 1};
  return width_style >= 2 && width_style <= 5 ? kWidths[width_style - 2] : 1;
}

std::vector<PagePoint> Points(const std::vector<float>& x, const std::vector<float>& y) {
  std::vector<PagePoint> points;
  points.reserve(x.size());
  for (size_t i = 0; i < x.size(); ++i) points.push_back(At(x[i], y[i]));
  return points;
}

}  // namespace

ClassPRINT::ClassPRINT(Program& program) : program_(program) {
  int32_t language = program.settings.Integer(kCommon, "prgSettings", "VDLanguage", 0);
  program.catalogue.LoadPrintCatalogue(language == 1 ? "printdocen.lang" : "printdoc.lang");
  CLEAR_();
}

ClassPRINT::~ClassPRINT() {
  recording_.reset();
  for (const PageRecord& record : pages_) program_.platform.files.Remove(record.FileName);
}

void ClassPRINT::BEGIN_PAGE(bool landscape) {
  CloseRecording();
  ++page_number_;
  PageRecord record;
  record.PageNumber = page_number_;
  SizeFromPrinter(record, landscape);
  record.FileName = NewPageFileName();
  pages_.push_back(record);
  OpenRecording(record.FileName, record);
  FONT_NAME("Arial CE");
  FONT_BOLD(false);
  FONT_SIZE(12);
}

void ClassPRINT::END_PAGE() {
  CloseRecording();
}

void ClassPRINT::SizeFromPrinter(PageRecord& record, bool landscape) {
  PaperSize paper;
  if (landscape) paper = {297, 210, 285, 200};
  if (std::optional<PaperSize> reported = program_.platform.printer.Paper()) {
    paper = *reported;
    if (landscape && !(paper.width > paper.height)) {
      std::swap(paper.width, paper.height);
      std::swap(paper.area_width, paper.area_height);
    }
  }
  record.Width = static_cast<float>(paper.width);
  record.Height = static_cast<float>(paper.height);
  record.AreaWidth = static_cast<float>(paper.area_width);
  record.AreaHeight = static_cast<float>(paper.area_height);
}

// A name that no file has, entered in the list of what the program deletes at its end.
std::string ClassPRINT::NewPageFileName() {
  std::string folder = Trim(program_.platform.files.TemporaryFolder());
  if (folder.empty() || (folder.back() != '/' && folder.back() != '\\')) folder += '/';
  std::string name;
  do {
    name = folder;
    for (int part = 0; part < 4; ++part) name += std::to_string(static_cast<int>(program_.platform.random.Fraction() * 65536));
    name += kPageFileExtension;
  } while (program_.platform.files.FileExists(name));
  program_.TempPageFiles.push_back(name);
  return name;
}

void ClassPRINT::OpenRecording(const std::string& path, const PageRecord& sheet) {
  recording_ = std::make_unique<PageFileWriter>(Units(sheet.Width), Units(sheet.Height));
  recording_file_ = path;
}

void ClassPRINT::CloseRecording() {
  if (!recording_) return;
  std::string bytes = recording_->Finish();
  recording_.reset();
  std::unique_ptr<File> file = program_.platform.files.Open(recording_file_, OpenMode::kCreate);
  if (!file || !file->WriteAt(0, bytes.data(), bytes.size())) failed_ = true;
}

const PageRecord* ClassPRINT::RecordOf(int32_t page) const {
  if (page < 1) page = Page();
  return page >= 1 && page <= Page() ? &pages_[static_cast<size_t>(page - 1)] : nullptr;
}

float ClassPRINT::Page_Width(int32_t page) const {
  return RecordOf(page) ? RecordOf(page)->Width : 0;
}
float ClassPRINT::Page_Height(int32_t page) const {
  return RecordOf(page) ? RecordOf(page)->Height : 0;
}
float ClassPRINT::PrintArea_Width(int32_t page) const {
  return RecordOf(page) ? RecordOf(page)->AreaWidth : 0;
}
float ClassPRINT::PrintArea_Height(int32_t page) const {
  return RecordOf(page) ? RecordOf(page)->AreaHeight : 0;
}

// Null before the first page.
PageElement* ClassPRINT::NewElement(ElementKind kind) {
  if (pages_.empty()) return nullptr;
  PageElement& element = elements_.emplace_back();
  element.Kind = kind;
  element.Page = Page();
  return &element;
}

void ClassPRINT::LINE_ADD(float x1, float y1, float x2, float y2, Colour colour, int16_t width_style, int16_t pen_style) {
  PageElement* element = NewElement(ElementKind::kLine);
  if (!element) return;
  element->X = {x1, x2};
  element->Y = {y1, y2};
  SetStyle(*element, colour, width_style, pen_style);
  if (recording_) recording_->Line(At(x1, y1), At(x2, y2));
}

// The element's attributes, and the pen of the recording.
void ClassPRINT::SetStyle(PageElement& element, Colour colour, int16_t width_style, int16_t pen_style) {
  element.Colour = colour;
  element.WidthStyle = width_style;
  element.PenStyle = pen_style;
  if (recording_ && element.Kind != ElementKind::kPolygon) {
    recording_->UsePen(pen_style >= 0 && pen_style <= 4 ? static_cast<uint32_t>(pen_style) : 0, PenWidth(width_style), colour);
  }
}

void ClassPRINT::RECT_ADD(float x1, float y1, float x2, float y2, Colour colour) {
  PageElement* element = NewElement(ElementKind::kRectangle);
  if (!element) return;
  element->X = {x1, x2};
  element->Y = {y1, y2};
  element->Colour = colour;
  constexpr double kMargin = 0.1;
  if (recording_) recording_->Rectangle(At(x1 - kMargin, y1 - kMargin), At(x2 + kMargin, y2 + kMargin), colour);
}

void ClassPRINT::CIRCLE_ADD(float x, float y, float r, Colour colour, int16_t width_style, int16_t pen_style) {
  PageElement* element = NewElement(ElementKind::kCircle);
  if (!element) return;
  element->X[0] = x;
  element->Y[0] = y;
  element->R0 = r;
  SetStyle(*element, colour, width_style, pen_style);
  if (recording_) recording_->Ellipse(At(double{x} - r, double{y} - r), At(double{x} + r, double{y} + r));
}

void ClassPRINT::VERTEX_CLEAR_() {
  vertex_x_.clear();
  vertex_y_.clear();
}

void ClassPRINT::VERTEX_ADD(float x, float y) {
  if (pages_.empty()) return;
  vertex_x_.push_back(x);
  vertex_y_.push_back(y);
}

void ClassPRINT::POLYLINE_ADD(Colour colour, int16_t width_style, int16_t pen_style) {
  PageElement* element = NewElement(ElementKind::kPolyline);
  if (!element) return;
  element->VertexX = vertex_x_;
  element->VertexY = vertex_y_;
  SetStyle(*element, colour, width_style, pen_style);
  if (recording_ && vertex_x_.size() >= 2) recording_->Polyline(Points(vertex_x_, vertex_y_));
}

void ClassPRINT::POLYGON_ADD(Colour colour, int16_t width_style, int16_t pen_style) {
  PageElement* element = NewElement(ElementKind::kPolygon);
  if (!element) return;
  element->VertexX = vertex_x_;
  element->VertexY = vertex_y_;
  SetStyle(*element, colour, width_style, pen_style);
  if (recording_ && vertex_x_.size() >= 2) recording_->Polygon(Points(vertex_x_, vertex_y_), colour);
}

void ClassPRINT::IMAGE_ADD(float x1, float y1, float x2, float y2, std::string_view path) {
  PageElement* element = NewElement(ElementKind::kImage);
  if (!element) return;
  element->X = {x1, x2};
  element->Y = {y1, y2};
  element->Text = Trim(path);
  if (!recording_) return;
  double width = double{x2} - x1, height = double{y2} - y1;
  const Picture* picture = LoadPicture(element->Text, width, height);
  if (picture) recording_->Stretch(At(x1, y1), Units(width), Units(height), *picture);
}

void ClassPRINT::FIELD_ADD(std::string_view text, float x, float y, float w, float h, Colour colour) {
  constexpr float kTextX = 1, kTextY = 0.75f;
  if (field_style_ == 0) {
    RECT_ADD(x, y, x + w, y + h, MixColour(colour, Rgb(255, 255, 255), 0.9));
    LINE_ADD(x, y, x + w, y, 0, 1);
    TEXT_ADD(x + kTextX, y + kTextY, text, 1);
  } else if (field_style_ == 1) {
    LINE_ADD(x, y, x + w, y, 0, 1);
    LINE_ADD(x, y + h, x + w, y + h, 0, 2);
    FONT_BOLD(true);
    TEXT_ADD(x + kTextX, y + kTextY, text, 1);
    FONT_BOLD(false);
  }
}

Colour ClassPRINT::MixColour(Colour a, Colour b, double t) {
  t = t > 0 ? std::min(t, 1.0) : 0;
  auto channel = [=](int shift) {
    double from = a >> shift & 255, to = b >> shift & 255;
    return static_cast<int>(from + (to - from) * t + 1e-6);  // a product just below a whole is that whole
  };
  return Rgb(channel(0), channel(8), channel(16));
}

// The new recording takes the last page's size, whichever page is stamped, kept: all pages of a document are alike.
void ClassPRINT::MAX_PAGE(int32_t page, float x, float y, int32_t total) {
  if (page < 1 || page > Page() || total == 0) return;
  PageRecord& record = pages_[static_cast<size_t>(page - 1)];
  if (record.StampedTotal != 0) return;
  record.StampedTotal = total;
  if (recording_) return;
  std::string old_file, path = NewPageFileName();
  program_.platform.files.ReadAll(record.FileName, old_file);
  OpenRecording(path, pages_.back());
  recording_->CopyRecords(old_file);
  TEXT_ADD(x, y, std::to_string(total), 1);
  CloseRecording();
  record.FileName = path;
}

bool ClassPRINT::Play(const PageRecord& record, Canvas& target, const RectF& frame) {
  std::string bytes;
  return program_.platform.files.ReadAll(record.FileName, bytes) && PlayPageFile(bytes, target, frame);
}

// The printable area is taken to lie in the middle of the sheet, so that the page starts at the sheet's corner.
void ClassPRINT::PRINT_PAGE_(int32_t page, Canvas* target, double pixels_per_mm) {
  if (!target || elements_.empty() || page < 1 || page > Page()) return;
  const PageRecord& record = *RecordOf(page);
  Play(record, *target, {0, 0, record.Width * pixels_per_mm, record.Height * pixels_per_mm});
}

void ClassPRINT::DISPLAY_PAGE_(int32_t page, Canvas& target, float scale, float& x, float& y, bool& sheet, Colour shadow, int32_t) {
  const PageRecord* record = RecordOf(page);
  if (!record) return;
  double mx = (record->Width - record->AreaWidth) / 2, my = (record->Height - record->AreaHeight) / 2;
  auto box = [&](double left, double top, double width, double height) {
    return RectF{left * scale, top * scale, (left + width) * scale, (top + height) * scale};
  };
  RectF outer = box(x - mx + 2, y - my + 2, record->Width, record->Height);
  if (outer.right < 0 || outer.bottom < 0 || outer.left > target.Width() || outer.top > target.Height()) return;
  if (sheet) {
    RectF paper = box(x - mx, y - my, record->Width, record->Height);
    target.FillRect(outer, shadow);
    target.FillRect(paper, Rgb(255, 255, 255));
    target.DrawRect(paper, Pen{});
    target.DrawRect(box(x, y, record->AreaWidth, record->AreaHeight), Pen{Rgb(150, 200, 255), 1, PenStyle::kDot});
  }
  // Both offsets are the horizontal margin, kept.
  Play(*record, target, box(x - mx, y - mx, record->Width, record->Height));
}

}  // namespace ostrinka
