#include "print/page_flow.h"

#include <algorithm>

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr double kFrameSize = 10;
constexpr double kBetween = 4;      // the title of a further page and the name of the copy
constexpr double kTotalWidth = 5;   // room for the stamped number of pages, right of the page number
constexpr double kTight = 0.4;      // what a line keeps free of its box, so that neither destination wraps it again
constexpr double kPdfPitch = 1.02;  // distance of lines in the PDF to that in the page file

float F(double length) {
  return static_cast<float>(length);
}

// Line ends stay; other control characters would be lost or drawn as boxes.
std::string WithoutControls(std::string_view text) {
  std::string clean;
  for (const char letter : text) {
    if (letter == '\t')
      clean += ' ';
    else if (static_cast<unsigned char>(letter) >= ' ' || letter == '\r' || letter == '\n')
      clean += letter;
  }
  return clean;
}

// Places where "%p" and "%m" come apart; the page mark would be replaced by a number, or dropped.
std::vector<std::string> ApartAtMarks(std::string_view text) {
  std::vector<std::string> parts(1);
  for (size_t i = 0; i < text.size(); ++i) {
    parts.back() += text[i];
    if (text[i] == '%' && i + 1 < text.size() && std::string_view("pPmM").find(text[i + 1]) != std::string_view::npos) parts.emplace_back();
  }
  return parts;
}

// Cuts what follows the last sign in the second half of a piece of a long word, so that an address parts at a dot rather than within a
// name.
std::string TakeAfterBreak(std::string& piece) {
  const size_t sign = piece.find_last_of("@./-_,;");
  if (sign == std::string::npos || sign + 1 == piece.size() || sign < piece.size() / 2) return "";
  std::string rest = piece.substr(sign + 1);
  piece.resize(sign + 1);
  return rest;
}

bool HasMark(std::string_view text) {
  return ApartAtMarks(text).size() > 1;
}

}  // namespace

PageFlow::PageFlow(PrintJob& job, PageSetup setup) : job_(job), print_(*job.print), setup_(std::move(setup)) {}

void PageFlow::Frame() {
  const double size = size_;
  const bool bold = bold_;
  print_.BEGIN_PAGE(setup_.landscape);
  width_ = print_.Page_Width(0);
  height_ = print_.Page_Height(0);
  Font(kFrameSize);
  Rule(Left(), Bottom(), Right(), Bottom());
  // Not through Line: the key's text holds the page mark.
  print_.TEXT_ADD(F(Right() - kTotalWidth), F(Bottom() + 1), program().Text("sdoc.pagef"), -1);
  if (options().footer_credit) print_.TEXT_ADD(F(Left()), F(Bottom() + 1), "Ostrinka 2008", 1);
  Font(size, bold);
}

void PageFlow::FirstPage() {
  Frame();
  y = kPageMargin;
}

void PageFlow::NextPage() {
  Frame();
  const double size = size_;
  const bool bold = bold_;
  ContinuationLine();
  Font(size, bold);
  y = kSecondTop;
}

// The title as large as fits beside the copy's name, broken where no size does.
void PageFlow::ContinuationLine() {
  Font(kFrameSize);
  const double bottom = kSecondTop - 2, copy = setup_.copy.empty() ? 0 : TextWidth(setup_.copy) + kBetween;
  Line(Right(), bottom - Pitch(), setup_.copy, -1);
  const double width = Right() - Left() - copy;
  double line_size = kFrameSize;
  Font(line_size, true);
  while (TextWidth(setup_.continuation) > width && line_size > 5) Font(--line_size, true);
  const std::vector<std::string> lines = Break(setup_.continuation, width);
  Lines(Left(), bottom - Pitch() * static_cast<double>(std::max<size_t>(lines.size(), 1)), lines, width);
}

void PageFlow::Font(double size, bool bold) {
  size_ = size;
  bold_ = bold;
  print_.FONT_SIZE(F(size));
  print_.FONT_BOLD(bold);
}

// Measured here, since the text as it is drawn loses blanks at its ends and has page marks replaced.
double PageFlow::TextWidth(std::string_view text) const {
  return static_cast<double>(WidthAt125(text, bold_ ? Face::kArialBold : Face::kArial)) / kWidthCellHeight * print_.LineHeightMm();
}

double PageFlow::Pitch() const {
  return print_.LineHeightMm() * kPdfPitch;
}

std::vector<std::string> PageFlow::Break(std::string_view text, double width) const {
  const auto fits = [&](const std::string& line) { return TextWidth(line + ' ') < width - kTight; };
  std::vector<std::string> lines;
  for (const std::string& paragraph : Paragraphs(WithoutControls(text))) {
    std::string line;
    const auto flush = [&] {
      lines.push_back(std::move(line));
      line.clear();
    };
    for (const std::string& word : Split(Trim(paragraph), ' ')) {
      if (!line.empty() && fits(line + ' ' + word)) {
        line += ' ' + word;
        continue;
      }
      if (!line.empty()) flush();
      for (const char32_t letter : CodePoints(word)) {
        const std::string next = FromCodePoints({&letter, 1});
        if (!line.empty() && !fits(line + next)) {
          std::string rest = TakeAfterBreak(line);
          flush();
          line = std::move(rest);
        }
        line += next;
      }
    }
    flush();
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

void PageFlow::Line(double x, double at, std::string_view text, int align, Colour colour) {
  const std::string clean = WithoutControls(text);
  if (clean.empty()) return;
  if (!HasMark(clean)) {
    print_.TEXT_ADD(F(x), F(at), clean, static_cast<int16_t>(align), colour);
    return;
  }
  if (align <= 0) x -= TextWidth(clean) * (align < 0 ? 1 : 0.5);
  for (const std::string& part : ApartAtMarks(clean)) {
    print_.TEXT_ADD(F(x), F(at), part, 1, colour);
    x += TextWidth(part);
  }
}

double PageFlow::Lines(double x, double at, const std::vector<std::string>& lines, double width, Colour colour) {
  std::string joined;
  for (const std::string& line : lines) joined += (joined.empty() ? "" : "\r\n") + line;
  if (joined.empty()) return at;
  if (HasMark(joined)) {
    for (const std::string& line : lines) {
      Line(x, at, line, 1, colour);
      at += Pitch();
    }
    return at;
  }
  const int32_t used = print_.TEXT_ADD(F(x), F(at), joined, 1, colour, F(width));
  // The count that is given back ends at 20, the text does not.
  return at + Pitch() * std::max(static_cast<double>(used), static_cast<double>(lines.size()));
}

void PageFlow::Head(std::string_view text, double x, double at, double width, double height, bool bold) {
  print_.FONT_BOLD(bold);
  print_.FIELD_ADD(text, F(x), F(at), F(width), F(height), kHeadColour);
  print_.FONT_BOLD(bold_);
}

void PageFlow::Rule(double x1, double y1, double x2, double y2, Colour colour) {
  print_.LINE_ADD(F(x1), F(y1), F(x2), F(y2), colour, 1, 0);
}

}  // namespace ostrinka
