#include "print/document_head.h"

#include <algorithm>

namespace ostrinka {
namespace {

constexpr double kCell = 5;         // height of a head cell
constexpr double kCellText = 0.75;  // from the top of a cell to its text
constexpr double kInset = 1;
constexpr double kTextSize = 10;
constexpr double kGap = 5;  // under the head
constexpr double kLogoWidth = 70, kLogoHeight = 25;
constexpr double kPairsWidth = 90;

using Pairs = std::vector<std::pair<const char*, std::string>>;

// Place and dates as a small table at the right; its lower end.
double PrintPairs(PageFlow& flow, const Pairs& pairs, double top) {
  flow.Font(kTextSize, true);
  double head = 0;
  for (const auto& [key, value] : pairs) head = std::max(head, flow.TextWidth(flow.program().Text(key)) + 2 * kInset + 1);
  head = std::min(head, kPairsWidth * 0.6);
  const double left = flow.Right() - kPairsWidth, middle = left + head;
  double at = top;
  for (const auto& [key, value] : pairs) {
    flow.Font(kTextSize);
    const std::vector<std::string> lines = flow.Break(value, flow.Right() - middle - kInset);
    const double height = std::max(kCell, flow.Pitch() * static_cast<double>(lines.size()) + 2 * kCellText);
    flow.Head(flow.program().Text(key), left, at, head, kCell);
    flow.Lines(middle + kInset, at + kCellText, lines, flow.Right() - middle - kInset);
    flow.Rule(middle, at, flow.Right(), at);
    at += height;
  }
  flow.Rule(left, at, flow.Right(), at);
  return at;
}

// The company's picture in its box at the left margin, in its own proportions; false when none is drawn.
bool PrintLogo(PageFlow& flow, double top) {
  Program& program = flow.program();
  const std::string path = program.DatabaseFolder() + "_logo.img";
  if (!program.platform.files.FileExists(path)) return false;
  const std::optional<PictureSize> size = flow.print().SizeOfPicture(path);
  if (!size) {
    flow.job().unreadable_logo = path;
    return false;
  }
  const double scale = std::min(kLogoWidth / size->width, kLogoHeight / size->height);
  flow.print().IMAGE_ADD(static_cast<float>(flow.Left()), static_cast<float>(top), static_cast<float>(flow.Left() + size->width * scale),
                         static_cast<float>(top + size->height * scale), path);
  return true;
}

struct TitleLine {
  const std::string& text;
  double size;
  bool bold;
};

// Visits the lines of the title; the lower end of the last one.
template <typename Draw>
double WalkTitle(PageFlow& flow, const DocumentHead& head, const TitlePlace& place, const Draw& draw) {
  double at = place.top;
  for (const TitleLine& line : {TitleLine{head.title, 16, true}, {head.copy_label, 12, false}, {head.label_date, 10, false}}) {
    if (line.text.empty()) continue;
    flow.Font(line.size, line.bold);
    const std::vector<std::string> lines = flow.Break(line.text, place.width);
    draw(at, lines);
    at += flow.Pitch() * static_cast<double>(lines.size()) + 0.8;
  }
  return at;
}

}  // namespace

TitlePlace PrintDocumentHead(PageFlow& flow, const DocumentHead& head) {
  const double top = flow.y;
  double lowest = PrintPairs(flow, head.pairs, top);
  // Beside the dates, or across the page under the logo.
  TitlePlace place{top - 1, flow.Right() - flow.Left() - kPairsWidth - 4};
  if (head.with_logo && PrintLogo(flow, top)) {
    lowest = std::max(lowest, top + kLogoHeight);
    place = {lowest + 4, flow.Right() - flow.Left()};
  }
  flow.y = std::max(lowest, WalkTitle(flow, head, place, [](double, const std::vector<std::string>&) {})) + kGap;
  return place;
}

void PrintTitle(PageFlow& flow, const DocumentHead& head, const TitlePlace& place) {
  WalkTitle(flow, head, place, [&](double at, const std::vector<std::string>& lines) { flow.Lines(flow.Left(), at, lines, place.width); });
  flow.Font(10);
}

}  // namespace ostrinka
