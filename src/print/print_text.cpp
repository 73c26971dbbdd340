// Texts of a page: measuring, wrapping, recording.
#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "print/page_file.h"
#include "print/print.h"

namespace ostrinka {

namespace {

constexpr int32_t kMostLines = 20;
constexpr float kTextShift = 0.0333f;  // of a text's y in the element list, for a unit of font size
constexpr float kPdfSize = 0.8f;
constexpr int32_t kReadsUpwards = -900;

std::string Without(std::string_view text, char dropped) {
  std::string kept(text);
  std::erase(kept, dropped);
  return kept;
}

Anchor AnchorOf(int16_t align) {
  return align == -1 ? Anchor::kRight : align == 1 ? Anchor::kLeft : Anchor::kCentre;
}

}  // namespace

int32_t ClassPRINT::FontHeight() const {
  double units = kPageScale * double{font_size_} * 0.3333;
  return std::isfinite(units) ? static_cast<int32_t>(std::lrint(std::clamp(units, 0.0, 1e6))) : 0;
}

int64_t ClassPRINT::WidthOf(std::string_view cp1250) const {
  return std::llrint(static_cast<double>(WidthAt125OfCp1250(cp1250, FaceOf(font_name_, font_bold_)) * FontHeight()) / kWidthCellHeight);
}

double ClassPRINT::TextWidthMm(std::string_view text) const {
  return static_cast<double>(WidthOf(DrawnText(text))) / kPageScale;
}

double ClassPRINT::LineHeightMm() const {
  return static_cast<double>(FontHeight()) / kPageScale;
}

// The text as it stands on the page, in Windows-1250.
std::string ClassPRINT::DrawnText(std::string_view text) const {
  std::string bytes = Trim(Without(Without(ToCp1250(text), '\x1D'), '\0'));
  if (!Contains(bytes, "%")) return bytes;
  std::string number = std::to_string(page_number_);
  for (std::string_view mark : {"%p", "%P"}) bytes = ReplaceAll(bytes, mark, number);
  for (std::string_view mark : {"%m", "%M"}) bytes = ReplaceAll(bytes, mark, "");
  return bytes;
}

int32_t ClassPRINT::LinesOf(std::string_view text, float wrap_width) const {
  if (!(wrap_width > 0)) return 1;
  TextBox box{0, 0, static_cast<int64_t>(std::lrint(double{wrap_width} * kPageScale)), Anchor::kLeft};
  return std::clamp(WrapParagraphs(DrawnText(text), box, false), 1, kMostLines);
}

int32_t ClassPRINT::TEXT_ADD(float x, float y, std::string_view text, int16_t align, Colour colour, float wrap_width, float,
                             bool vertical) {
  PageElement* element = NewElement(ElementKind::kText);
  if (!element) return 0;
  element->Text = Without(text, '\x1D');
  element->X[0] = x;
  element->Y[0] = vertical ? y : y + font_size_ * kTextShift;
  element->S0 = font_size_ * kPdfSize;
  element->Align = align;
  element->Font = Trim(font_name_);
  element->Bold = font_bold_;
  element->Vertical = vertical;
  element->WrapWidth = wrap_width;
  element->Colour = colour;
  if (!recording_) return 1;
  bool wrapped = wrap_width > 0;
  recording_->UseFont({font_name_, FontHeight(), vertical && !wrapped ? kReadsUpwards : 0, font_bold_}, colour);
  std::string bytes = DrawnText(text);
  auto units = [](float mm) { return std::llrint(std::clamp(double{mm} * kPageScale, -1e9, 1e9)); };
  TextBox box{units(x), units(-y), wrapped ? units(wrap_width) : 0, AnchorOf(align)};
  if (!wrapped) {
    RecordText(bytes, box.left, box.top, box.anchor);
    return 1;
  }
  if (WidthOf(bytes) > box.width) box.anchor = Anchor::kLeft;
  return std::clamp(WrapParagraphs(bytes, box, true), 1, kMostLines);
}

// The number of lines; the next paragraph starts below the lines of the one before.
int32_t ClassPRINT::WrapParagraphs(std::string_view cp1250, TextBox box, bool draw) const {
  int32_t lines = 0;
  for (const std::string& paragraph : Paragraphs(cp1250)) {
    int32_t used = WrapWords(Trim(paragraph) + ' ', box, draw);
    lines += used;
    box.top -= int64_t{FontHeight()} * used;
  }
  return lines;
}

// A word ends at a blank, so two blanks hold an empty word. A word too wide for the box stands on a new line of its own, also at the
// start of the paragraph, kept.
int32_t ClassPRINT::WrapWords(std::string_view cp1250, TextBox box, bool draw) const {
  int32_t lines = 1;
  int64_t cursor = box.left, right = box.left + box.width;
  for (size_t start = 0, end; (end = cp1250.find(' ', start)) != std::string_view::npos; start = end + 1) {
    std::string_view word = cp1250.substr(start, end + 1 - start);
    int64_t width = WidthOf(word);
    if (cursor + width >= right) {
      ++lines;
      box.top -= FontHeight();
      cursor = box.left;
    }
    if (draw) RecordText(word, cursor, box.top, box.anchor);
    cursor += width;
  }
  return lines;
}

void ClassPRINT::RecordText(std::string_view cp1250, int64_t x, int64_t y, Anchor anchor) const {
  if (cp1250.empty()) return;
  const std::array<uint8_t, 256>& widths = WidthTable(FaceOf(font_name_, font_bold_));
  int64_t height = FontHeight();
  std::u16string text;
  std::vector<int32_t> advances;
  int64_t sum = 0, before = 0;
  for (char c : cp1250) {
    uint8_t byte = static_cast<uint8_t>(c);
    text += static_cast<char16_t>(CodePointOfCp1250(byte));
    sum += widths[byte];
    int64_t end = std::llrint(static_cast<double>(sum * height) / kWidthCellHeight);
    advances.push_back(static_cast<int32_t>(end - before));
    before = end;
  }
  recording_->Text({static_cast<int32_t>(x), static_cast<int32_t>(y)}, text, advances, anchor);
}

}  // namespace ostrinka
