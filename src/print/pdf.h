// Writes a PDF 1.3 file from drawing calls in millimetres from the top left of the sheet.
//
// No font is embedded: text addresses the glyphs of Arial, Courier New and Tahoma by number, so the reader must have these fonts. Objects
// are numbered as they are asked for, page content is text in memory or drawn while Save writes, in one pass. Order of calls: Clear, every
// FontAdd, then for each page PageAdd and its drawing, then Save.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/format.h"
#include "platform/canvas.h"
#include "platform/files.h"
#include "print/font_widths.h"

namespace ostrinka {

inline constexpr double kPdfUnitsPerMm = double{2.8333333f};  // not 72 / 25.4, kept

class ClassPDF {
 public:
  // `locale` is the one whose decimal sign numbers get before it is made a point.
  ClassPDF(FileSystem& files, const Locale& locale);

  bool Clear();  // true
  // Size in mm. True; ignored when 9,999 pages stand.
  bool PageAdd(float width, float height);
  // The same for a page that `draw` draws when Save reaches it, so that a job of any length takes the memory of one page. Its pictures must
  // be known before, by ImageAdd.
  bool PageAdd(float width, float height, std::function<void(ClassPDF&)> draw);
  int FontAdd(std::string_view name);  // the font's number, from 1; 0 when 256 fonts stand
  // Always false, kept: callers ask written() instead.
  bool Save(const std::string& path);
  bool written() const { return written_; }  // whether the last Save wrote the whole file

  // `align` 1: x is the left end, 0: the middle, -1: the right end. `angle` in degrees, 90 reads upwards. `size` in hundredths of what
  // WidthAt125 counts, see GetTextWidth.
  void DrawText(std::string_view text, int font, double size, double x, double y, int align, double angle);
  // The same for a text that is hex glyph codes already.
  void DrawNativeText(std::string_view codes, int font, double size, double x, double y, int align, double angle);
  void DrawLine(double x1, double y1, double x2, double y2);
  // An uncompressed 24-bit bitmap; a file that does not start with "BM" is skipped.
  void DrawImage(double x1, double y1, double x2, double y2, const std::string& path) { PlaceImage(x1, y1, x2, y2, ImageAdd(path)); }
  // The two halves of it: reading, which gives the picture's number or 0, and drawing, which passes over 0.
  int ImageAdd(const std::string& path);
  int ImageAdd(const Picture& picture);  // the bitmap of 24 bits that it makes on white paper
  int ImageAgain(int number);            // a further image object with the rows of that one; 0 for 0
  void PlaceImage(double x1, double y1, double x2, double y2, int number);
  static std::string hex2_(uint8_t r, uint8_t g, uint8_t b);
  static int64_t prv_w4bmp_(int64_t bytes) { return (bytes + 3) / 4 * 4; }
  void DrawRect(double x1, double y1, double x2, double y2);
  void DrawEllipse(double x, double y, double rx, double ry);
  void DrawPolygon();  // through the vertices
  void SetAttrs(Colour stroke, Colour fill, int dash_style, int width_style);
  double GetTextWidth(std::string_view text, int font, const double& size) const;  // mm
  void VertexClear() { vertices_.clear(); }
  void VertexAdd(double x, double y);  // ignored when 1,000 stand
  void Test();                         // a chart of all glyphs, written to C:\xx.pdf

  // That many decimals (1 to 15), half away from zero, always with a point.
  std::string FormatNumber(double value, int places = 3) const;

 private:
  enum class Kind : uint8_t { kNone = 0, kCatalog = 1, kPageTree = 2, kPage = 3, kContents = 4, kFont = 5, kImage = 10 };
  struct ObjectRow {
    Kind kind = Kind::kNone;
    int index = 0;
    int64_t position = 0;
  };
  struct PageRow {
    float width, height;
    int contents, object;
  };
  struct ContentsRow {
    float length;
    std::string text;
    int object;
    std::function<void(ClassPDF&)> draw;
  };
  struct FontRow {
    std::string name;
    int object, descendant, descriptor;
    Face face;
  };
  struct ImageRow {
    int number;
    int32_t width, height;
    int object;
    std::shared_ptr<const std::string> hex;  // shared by the image objects of one picture: a long job has its logo on every page
  };
  class Output;

  std::string& Content() { return contents_[drawn_].text; }
  int TakeObject(Kind kind, size_t index);
  Face FaceOfFont(int font) const;
  double Y(double y) const;                                // PDF units
  void AppendNumber(std::string& to, double value) const;  // three decimals
  std::string FormatByPattern(double value, std::string_view pattern) const;
  ClassPDF& Number(double value);  // appended to the page's content, with a blank
  void Line(std::string_view text);
  void ColourLine(Colour colour, std::string_view how);
  void DashLine();
  int TakeImage(int32_t width, int32_t height, std::shared_ptr<const std::string> hex);
  void TextBlock(std::string_view hex, int64_t width, int font, double size, double x, double y, int align, double angle);
  void MakeResources();
  void WriteObject(Output& out, const ObjectRow& object);
  void WritePage(Output& out, const PageRow& page);
  void WriteContents(Output& out, size_t index);
  void WriteFont(Output& out, const FontRow& font);
  void WriteImage(Output& out, const ImageRow& image);
  void WriteTail(Output& out);
  const std::string& WidthList(Face face);

  FileSystem& files_;
  const Locale& locale_;
  std::vector<ObjectRow> objects_;  // object 1 first
  std::vector<PageRow> pages_;
  std::vector<ContentsRow> contents_;
  size_t drawn_ = 0;    // the page under the pen
  std::string reused_;  // content of a page that is drawn while it is written
  std::vector<FontRow> fonts_;
  std::vector<ImageRow> images_;
  std::string resources_;  // of every page, made by Save
  int image_number_ = 0;
  std::vector<std::pair<double, double>> vertices_;
  std::array<std::string, kFaces> width_lists_;
  Colour stroke_ = 0, fill_ = 0;
  int dash_style_ = 0;
  double line_width_ = 0;
  bool written_ = false;
};

}  // namespace ostrinka
