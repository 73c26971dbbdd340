// The one drawing surface of printing: a job of pages laid out in millimetres from the top left corner of the sheet, y downwards.
//
// Every drawing call feeds two stores: the page file (an enhanced metafile that preview and printer replay) and the element list, from
// which MAKE_PDF writes the PDF. Calls before the first BEGIN_PAGE do nothing; calls after END_PAGE reach the element list alone. Nothing
// here reports a failure: a step that fails leaves its result at the default.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "platform/canvas.h"
#include "print/font_widths.h"

namespace ostrinka {

class PageFileWriter;
class ClassPDF;

struct PageRecord {
  std::string FileName;                                        // full path of the page file
  int32_t StampedTotal = 0;                                    // stamped by MAX_PAGE; 0 while none
  int32_t PageNumber = 0;                                      // printed for %p
  float Width = 0, Height = 0, AreaWidth = 0, AreaHeight = 0;  // mm
};

enum class ElementKind : uint8_t { kLine = 1, kRectangle = 2, kText = 3, kCircle = 4, kPolyline = 5, kPolygon = 6, kImage = 10 };

// One drawing call as it was given.
struct PageElement {
  int32_t Page = 0;
  ElementKind Kind = ElementKind::kLine;
  int16_t Align = 0;  // of a text: -1 right, 0 centre, 1 left
  bool Bold = false, Vertical = false;
  int16_t PenStyle = 0, WidthStyle = 0;
  std::array<float, 2> X{}, Y{};  // corners or anchor
  float S0 = 0;                   // of a text: font size * 0.8
  float R0 = 0;                   // radius of a circle
  float WrapWidth = 0;            // of a text: mm, 0 for none
  ostrinka::Colour Colour = 0;
  std::string Font;
  std::vector<float> VertexX, VertexY;
  std::string Text;  // with %p still in it; of an image the path
};

struct PictureSize {
  int width = 0, height = 0;  // pixels
};

class ClassPRINT {
 public:
  // Loads the print catalogue of the language that documents are printed in.
  explicit ClassPRINT(Program& program);
  ~ClassPRINT();  // deletes the page files of the page table
  ClassPRINT(const ClassPRINT&) = delete;
  ClassPRINT& operator=(const ClassPRINT&) = delete;

  // Pages. BEGIN_PAGE closes the page before and sets the font to "Arial CE", 12, not bold.
  void BEGIN_PAGE(bool landscape);
  void END_PAGE();
  int32_t Page() const { return static_cast<int32_t>(pages_.size()); }
  // In mm; a page below 1 is the last one; 0 when there is no such page.
  float Page_Width(int32_t page) const;
  float Page_Height(int32_t page) const;
  float PrintArea_Width(int32_t page) const;
  float PrintArea_Height(int32_t page) const;

  // Font of the texts that follow. The cell of a letter is size / 3 mm high.
  void FONT_NAME(std::string_view name) { font_name_ = name; }
  void FONT_SIZE(float size) { font_size_ = size; }
  void FONT_BOLD(bool bold) { font_bold_ = bold; }

  // Width styles: 1 a hairline, 2 to 5 about 0.5, 0.9, 1.3 and 1.7 mm. Pen styles: 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot.
  void LINE_ADD(float x1, float y1, float x2, float y2, Colour colour, int16_t width_style = 1, int16_t pen_style = 0);
  // Filled, without outline.
  void RECT_ADD(float x1, float y1, float x2, float y2, Colour colour);
  // `align` -1: x is the right end of the text, 0: its middle, 1: its left end; y is its top. With `wrap_width` above 0 the text runs in
  // a box from x that wide and line ends count. "%p" becomes the page number. `vertical` text reads upwards.
  // The number of lines used, 1 to 20; 1 after END_PAGE; 0 before the first page.
  int32_t TEXT_ADD(float x, float y, std::string_view text, int16_t align = 1, Colour colour = 0, float wrap_width = 0, float unused = 0,
                   bool vertical = false);
  void CIRCLE_ADD(float x, float y, float r, Colour colour, int16_t width_style = 1, int16_t pen_style = 0);
  void VERTEX_CLEAR_();
  void VERTEX_ADD(float x, float y);
  // Open path, and filled area without outline, through the vertices; they stay for the next call. A polyline does not reach the PDF.
  void POLYLINE_ADD(Colour colour, int16_t width_style = 1, int16_t pen_style = 0);
  void POLYGON_ADD(Colour colour, int16_t width_style = 1, int16_t pen_style = 0);
  // The picture stretched to the rectangle.
  void IMAGE_ADD(float x1, float y1, float x2, float y2, std::string_view path);
  // Nothing for a file that cannot be read as a picture.
  std::optional<PictureSize> SizeOfPicture(const std::string& path);

  // One cell of a table head: style 0 a light ground with a line above, style 1 lines above and below and a bold text, others nothing.
  void SetFldStyle(int32_t style) { field_style_ = style; }
  void FIELD_ADD(std::string_view text, float x, float y, float w, float h, Colour colour);
  // `a` with the share `t` (0 to 1) of `b`, channels cut to whole numbers.
  static Colour MixColour(Colour a, Colour b, double t);

  // Measures of the font as set now, for layouts that must know before they draw.
  double TextWidthMm(std::string_view text) const;
  double LineHeightMm() const;  // distance of two lines in a wrapped text
  // What TEXT_ADD would return for the text in a box `wrap_width` mm wide (0 or less: 1).
  int32_t LinesOf(std::string_view text, float wrap_width) const;

  // Page numbers.
  void CLEAR_PAGE_NUMBER_() { page_number_ = 0; }
  Value PAGE_NUMBER_() const { return page_number_; }
  // Writes `total` at (x, y) on a finished page, once a page. Its element belongs to the last page of the job, whichever page was stamped.
  void MAX_PAGE(int32_t page, float x, float y, int32_t total);

  // Clears the pending error; no page and no element is touched.
  void CLEAR_() { failed_ = false; }
  // Whether a page file could not be written since the last CLEAR_.
  bool failed() const { return failed_; }

  // Paints a page with its sheet at (x, y) mm of the surface, `scale` pixels a mm; `sheet` adds shadow, paper and the printable area.
  void DISPLAY_PAGE_(int32_t page, Canvas& target, float scale, float& x, float& y, bool& sheet, Colour shadow, int32_t unused = 0);
  // Plays a page on a printer's surface, which is the whole sheet at `pixels_per_mm`.
  void PRINT_PAGE_(int32_t page, Canvas* target, double pixels_per_mm);
  // Writes the job as a PDF from the element list; false when the file could not be written.
  bool MAKE_PDF(const std::string& path);

  const std::vector<PageRecord>& pages() const { return pages_; }        // page 1 first
  const std::deque<PageElement>& elements() const { return elements_; }  // in call order

 private:
  struct TextBox {
    int64_t left, top, width;  // recording units, y upwards
    Anchor anchor;
  };
  PageElement* NewElement(ElementKind kind);
  const PageRecord* RecordOf(int32_t page) const;
  void SizeFromPrinter(PageRecord& record, bool landscape);
  std::string NewPageFileName();
  void OpenRecording(const std::string& path, const PageRecord& sheet);
  void CloseRecording();
  void SetStyle(PageElement& element, Colour colour, int16_t width_style, int16_t pen_style);
  int32_t FontHeight() const;  // recording units
  std::string DrawnText(std::string_view text) const;
  int64_t WidthOf(std::string_view cp1250) const;  // recording units
  int32_t WrapParagraphs(std::string_view cp1250, TextBox box, bool draw) const;
  int32_t WrapWords(std::string_view cp1250, TextBox box, bool draw) const;
  void RecordText(std::string_view cp1250, int64_t x, int64_t y, Anchor anchor) const;
  bool Play(const PageRecord& record, Canvas& target, const RectF& frame);
  // `picture`: number of an image in the PDF.
  void AddToPdf(ClassPDF& pdf, const PageElement& element, const std::string& page_number, int picture) const;
  void AddTextToPdf(ClassPDF& pdf, const PageElement& element, const std::string& page_number) const;
  const Picture* Decoded(const std::string& path);
  const Picture* LoadPicture(const std::string& path, double width, double height);
  int AddPictureToPdf(ClassPDF& pdf, const PageElement& element);

  Program& program_;
  std::vector<PageRecord> pages_;
  std::deque<PageElement> elements_;  // which moves none when it grows
  int32_t page_number_ = 0;
  std::unique_ptr<PageFileWriter> recording_;  // null between pages
  std::string recording_file_;
  std::string font_name_ = "Arial CE";
  float font_size_ = 12;
  bool font_bold_ = false;
  int32_t field_style_ = 0;
  std::vector<float> vertex_x_, vertex_y_;
  bool failed_ = false;
  std::string picture_path_;  // of the picture decoded last: layouts put the same one on every page
  int64_t picture_size_ = -1;
  std::unique_ptr<Picture> picture_, reduced_;
  int reduction_ = 1;  // of reduced_; 1 while none is made
};

// The job that was built last; null before the first and after the program's end.
inline std::shared_ptr<ClassPRINT>& CurrentPrintJob(const Program& program) {
  return program.Part<std::shared_ptr<ClassPRINT>>();
}

}  // namespace ostrinka
