// The pages of one document: frame, cursor and page breaks; and text set so that the page file and the PDF agree.
//
// Lengths are mm from the top left corner of the sheet. The two destinations wrap by different rules, so text is broken here, a little
// tighter than either needs, and each destination finds lines that fit.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "print/print_job.h"

namespace ostrinka {

inline constexpr double kPageMargin = 10;
inline constexpr double kFooterHeight = 15;  // of the band under the footer's line
inline constexpr Colour kHeadColour = Rgb(20, 60, 120);

// What all pages of a flow have in common.
struct PageSetup {
  bool landscape = false;
  std::string continuation = "";  // at the head of every page but the first: the title with its number
  std::string copy = "";          // at the right end of that line, "" for nothing: tells the sheets of a document's copies apart
};

class PageFlow {
 public:
  PageFlow(PrintJob& job, PageSetup setup);
  ~PageFlow() { print_.END_PAGE(); }
  PageFlow(const PageFlow&) = delete;
  PageFlow& operator=(const PageFlow&) = delete;

  void FirstPage();
  void NextPage();  // with the continuation line; the cursor stands under it
  double Left() const { return kPageMargin; }
  double Right() const { return width_ - kPageMargin; }
  double Bottom() const { return height_ - kFooterHeight; }  // the footer's line
  // Whether a thing of this height stands above the footer at the cursor.
  bool Fits(double height) const { return y + height <= Bottom() - kAir; }
  // The tallest thing that a further page holds.
  double Room() const { return Bottom() - kAir - kSecondTop; }
  // Whether the cursor stands under the continuation line, where a further page offers all the room that it has.
  bool AtTopOfFurtherPage() const { return y <= kSecondTop; }

  double y = 0;  // the cursor

  void Font(double size, bool bold = false);
  double TextWidth(std::string_view text) const;
  double Pitch() const;  // distance of two lines in the present font
  // Lines of the text no wider than `width`; line ends break, and so does a word too wide for a line.
  std::vector<std::string> Break(std::string_view text, double width) const;

  // One line, never taken for page marks: "5%pln" stays. `align` 1: x is its left end, -1: its right end, 0: its middle.
  void Line(double x, double at, std::string_view text, int align = 1, Colour colour = 0);
  // Lines as Break gave them, in a box `width` wide; the lower end.
  double Lines(double x, double at, const std::vector<std::string>& lines, double width, Colour colour = 0);
  // One cell of a head, its text in the present font.
  void Head(std::string_view text, double x, double at, double width, double height, bool bold = true);
  void Rule(double x1, double y1, double x2, double y2, Colour colour = 0);

  Program& program() const { return job_.program; }
  ClassPRINT& print() const { return print_; }
  const PrintOptions& options() const { return job_.options; }
  PrintJob& job() const { return job_; }

 private:
  void Frame();
  void ContinuationLine();

  static constexpr double kAir = 3;         // kept free above the footer's line
  static constexpr double kSecondTop = 20;  // where a further page goes on

  PrintJob& job_;
  ClassPRINT& print_;
  PageSetup setup_;
  bool bold_ = false;
  double size_ = 10;
  double width_ = 210, height_ = 297;
};

}  // namespace ostrinka
