#include "print/pdf.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/bytes.h"
#include "base/text.h"
#include "print/pdf_glyphs.h"
#include "print/picture_pixels.h"

namespace ostrinka {

namespace {

constexpr double kPi = 3.141592;
constexpr double kHalfPi = 1.570796;
constexpr double kBaseline = 2.975;  // units per mm * 1.05

constexpr size_t kObjectLimit = 999999;
constexpr size_t kPageLimit = 9999;
constexpr size_t kFontLimit = 256;
constexpr size_t kImageLimit = 9999;
constexpr size_t kVertexLimit = 1000;

constexpr double kLineWidths[] = {0.28333333, 0.28333333, 1.4166666, 2.8333333, 4.2499998, 5.6666665};  // by width style
constexpr std::string_view kDashes[] = {"[] 0 d", "[ 10 5 ] 0 d", "[ 3 3 ] 0 d", "[ 8 7 2 7 ] 0 d", "[ 8 4 2 4 2 4 ] 0 d"};
constexpr char kHexDigits[] = "0123456789ABCDEF";

void AppendWhole(std::string& to, uint64_t number) {
  char digits[24];
  to.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void AppendPixel(std::string& to, uint8_t r, uint8_t g, uint8_t b) {
  for (uint8_t channel : {r, g, b}) {
    to += kHexDigits[channel >> 4];
    to += kHexDigits[channel & 15];
  }
}

std::string GlyphCodes(std::string_view cp1250) {
  std::string hex(cp1250.size() * 4, '0');
  char* to = hex.data();
  for (char c : cp1250) {
    uint16_t glyph = kGlyphs[static_cast<uint8_t>(c)];
    for (int shift = 12; shift >= 0; shift -= 4) *to++ = kHexDigits[glyph >> shift & 15];
  }
  return hex;
}

// Rows in the order of the file, for as long as the file holds them.
std::string BitmapRows(File& file, int64_t position, int32_t width, int32_t height) {
  std::string hex;
  const int64_t used = int64_t{width} * 3, stride = ClassPDF::prv_w4bmp_(used), size = file.Size();
  if (used <= 0 || used > size) return hex;
  std::string row(static_cast<size_t>(used), '\0');
  for (int32_t y = 0; y < height && position + used <= size; ++y, position += stride) {
    if (file.ReadAt(position, row.data(), row.size()) != used) return hex;
    for (size_t i = 0; i < row.size(); i += 3) {
      AppendPixel(hex, static_cast<uint8_t>(row[i + 2]), static_cast<uint8_t>(row[i + 1]), static_cast<uint8_t>(row[i]));
    }
    hex += "\r\n";
  }
  return hex;
}

}  // namespace

ClassPDF::ClassPDF(FileSystem& files, const Locale& locale) : files_(files), locale_(locale) {}

bool ClassPDF::Clear() {
  objects_.clear();
  pages_.clear();
  contents_.clear();
  fonts_.clear();
  images_.clear();
  vertices_.clear();
  image_number_ = 0;
  TakeObject(Kind::kCatalog, 0);
  TakeObject(Kind::kPageTree, 0);
  return true;
}

// The number of a new object; the tables that hold its row are so much smaller that the limit is out of reach.
int ClassPDF::TakeObject(Kind kind, size_t index) {
  if (objects_.size() < kObjectLimit) objects_.push_back({kind, static_cast<int>(index), 0});
  return static_cast<int>(objects_.size());
}

bool ClassPDF::PageAdd(float width, float height) {
  if (pages_.size() >= kPageLimit) return true;
  int page = TakeObject(Kind::kPage, pages_.size());
  int contents = TakeObject(Kind::kContents, contents_.size());
  pages_.push_back({width, height, contents, page});
  const size_t before = contents_.empty() ? 0 : Content().size();
  contents_.push_back({0, "", contents, nullptr});
  drawn_ = contents_.size() - 1;
  Content().reserve(before + before / 8);  // pages of a job are much alike
  return true;
}

bool ClassPDF::PageAdd(float width, float height, std::function<void(ClassPDF&)> draw) {
  const size_t before = pages_.size();
  PageAdd(width, height);
  if (pages_.size() > before) contents_.back().draw = std::move(draw);
  return true;
}

int ClassPDF::FontAdd(std::string_view name) {
  if (fonts_.size() >= kFontLimit) return 0;
  int font = TakeObject(Kind::kFont, fonts_.size());
  int descendant = TakeObject(Kind::kNone, 0);
  int descriptor = TakeObject(Kind::kNone, 0);
  fonts_.push_back({std::string(name), font, descendant, descriptor, FaceOf(name, Contains(Upper(name), "BOLD"))});
  return static_cast<int>(fonts_.size());
}

Face ClassPDF::FaceOfFont(int font) const {
  return font >= 1 && font <= static_cast<int>(fonts_.size()) ? fonts_[static_cast<size_t>(font - 1)].face : Face::kArial;
}

// The result is that of the program's number formatter with the pattern "0.000": far from a tie the nearest whole of thousandths is written
// directly, near one the decimal expansion decides.
void ClassPDF::AppendNumber(std::string& to, double value) const {
  double thousandths = std::fabs(value) * 1000;
  double whole = std::floor(thousandths);
  double rest = thousandths - whole;
  if (!(thousandths < 1e9) || std::fabs(rest - 0.5) < 1e-4) {
    to += FormatByPattern(value, "0.000");
    return;
  }
  uint64_t number = static_cast<uint64_t>(whole) + (rest > 0.5 ? 1 : 0);
  if (value < 0 && number != 0) to += '-';
  AppendWhole(to, number / 1000);
  uint64_t decimals = number % 1000;
  const char tail[] = {'.', static_cast<char>('0' + decimals / 100), static_cast<char>('0' + decimals / 10 % 10),
                       static_cast<char>('0' + decimals % 10)};
  to.append(tail, sizeof tail);
}

std::string ClassPDF::FormatByPattern(double value, std::string_view pattern) const {
  std::string separator = FormatPlain(1.2, "0.0", locale_).substr(1, 1);
  return ReplaceAll(FormatPlain(value, pattern, locale_), separator, ".");
}

std::string ClassPDF::FormatNumber(double value, int places) const {
  if (places != 3) return FormatByPattern(value, "0." + std::string(static_cast<size_t>(std::clamp(places, 1, 15)), '0'));
  std::string text;
  AppendNumber(text, value);
  return text;
}

double ClassPDF::Y(double y) const {
  return pages_.empty() ? 0 : (double{pages_[drawn_].height} - y) * kPdfUnitsPerMm;
}

ClassPDF& ClassPDF::Number(double value) {
  AppendNumber(Content(), value);
  Content() += ' ';
  return *this;
}

void ClassPDF::Line(std::string_view text) {
  Content() += text;
  Content() += "\r\n";
}

void ClassPDF::ColourLine(Colour colour, std::string_view how) {
  Number((colour & 255) / 255.0).Number((colour >> 8 & 255) / 255.0).Number((colour >> 16 & 255) / 255.0).Line(how);
}

void ClassPDF::DashLine() {
  Line(kDashes[dash_style_ >= 1 && dash_style_ <= 4 ? dash_style_ : 0]);
}

void ClassPDF::SetAttrs(Colour stroke, Colour fill, int dash_style, int width_style) {
  stroke_ = stroke;
  fill_ = fill;
  dash_style_ = dash_style;
  line_width_ = kLineWidths[width_style >= 2 && width_style <= 5 ? width_style : 0];
}

void ClassPDF::DrawLine(double x1, double y1, double x2, double y2) {
  if (contents_.empty()) return;
  DashLine();
  Number(x1 * kPdfUnitsPerMm).Number(Y(y1)).Line("m");
  Number(x2 * kPdfUnitsPerMm).Number(Y(y2)).Line("l");
  ColourLine(stroke_, "RG");
  Number(line_width_).Line("w S");
  Line("%LINE/%");
}

void ClassPDF::DrawRect(double x1, double y1, double x2, double y2) {
  if (contents_.empty()) return;
  DashLine();
  ColourLine(stroke_, "RG");
  ColourLine(fill_, "rg");
  Number(x1 * kPdfUnitsPerMm).Number(Y(y1)).Number((x2 - x1) * kPdfUnitsPerMm).Number(-((y2 - y1) * kPdfUnitsPerMm)).Line("re B");
  Line("0 G");
  Number(line_width_).Line("w S");  // has no path of its own, kept
  Line("%LINE/%");
}

void ClassPDF::DrawEllipse(double x, double y, double rx, double ry) {
  if (contents_.empty()) return;
  double left = (x - rx) * kPdfUnitsPerMm, bottom = Y(y + ry), width = 2 * rx * kPdfUnitsPerMm, height = 2 * ry * kPdfUnitsPerMm;
  double right = left + width, top = bottom + height, middle_x = left + width / 2, middle_y = bottom + height / 2;
  double reach_x = width / 2 * 11 / 20, reach_y = height / 2 * 11 / 20;  // of a control point from its end point
  auto curve = [this](double x1, double y1, double x2, double y2, double x3, double y3) {
    Number(x1).Number(y1).Number(x2).Number(y2).Number(x3).Number(y3).Line("c");
  };
  DashLine();
  ColourLine(stroke_, "RG");
  ColourLine(fill_, "rg");
  Number(left).Number(middle_y).Line("m");
  curve(left, middle_y + reach_y, middle_x - reach_x, top, middle_x, top);
  curve(middle_x + reach_x, top, right, middle_y + reach_y, right, middle_y);
  curve(right, middle_y - reach_y, middle_x + reach_x, bottom, middle_x, bottom);
  curve(middle_x - reach_x, bottom, left, middle_y - reach_y, left, middle_y);
  Number(line_width_).Line("w s");
}

void ClassPDF::VertexAdd(double x, double y) {
  if (vertices_.size() < kVertexLimit) vertices_.emplace_back(x, y);
}

void ClassPDF::DrawPolygon() {
  if (contents_.empty() || vertices_.empty()) return;
  auto vertex = [this](size_t i, std::string_view how) {
    Number(vertices_[i].first * kPdfUnitsPerMm).Number(Y(vertices_[i].second)).Line(how);
  };
  Line("%DEBUT_POLY/%");
  ColourLine(stroke_, "RG");
  ColourLine(fill_, "rg");
  DashLine();
  vertex(0, "m");
  for (size_t i = 1; i < vertices_.size(); ++i) vertex(i, "l");
  vertex(0, "l");
  Number(line_width_).Line("w B");
  Line("%FIN_POLY/%");
}

double ClassPDF::GetTextWidth(std::string_view text, int font, const double& size) const {
  return static_cast<double>(WidthAt125(text, FaceOfFont(font))) * size * 0.01;
}

void ClassPDF::DrawText(std::string_view text, int font, double size, double x, double y, int align, double angle) {
  if (contents_.empty()) return;
  std::string bytes = ToCp1250(text);
  std::erase(bytes, '\x1D');
  TextBlock(GlyphCodes(bytes), align == 1 ? 0 : WidthAt125OfCp1250(bytes, FaceOfFont(font)), font, size, x, y, align, angle);
}

void ClassPDF::DrawNativeText(std::string_view codes, int font, double size, double x, double y, int align, double angle) {
  if (contents_.empty()) return;
  std::string bytes = ToCp1250(codes);
  std::erase(bytes, '\x1D');
  TextBlock(Trim(codes), align == 1 ? 0 : WidthAt125OfCp1250(bytes, FaceOfFont(font)), font, size, x, y, align, angle);
}

void ClassPDF::TextBlock(std::string_view hex, int64_t width, int font, double size, double x, double y, int align, double angle) {
  double a = -(kPi / 180) * angle;
  double shift = align == 0 ? static_cast<double>(width) * size * 0.5 : align == -1 ? static_cast<double>(width) * size : 0;
  x *= kPdfUnitsPerMm;
  y = Y(y);
  std::string& text = Content();
  ColourLine(stroke_, "rg");
  text += "BT\r\n/F";
  AppendWhole(text, static_cast<uint64_t>(std::max(font, 0)));
  text += ' ';
  Number(size * kPdfUnitsPerMm).Line("Tf");
  Line("100 Tz");
  double t = -(a + kHalfPi);
  x += (size - 0.5) * kBaseline * std::cos(t);
  y += (size - 0.5) * kBaseline * std::sin(t);
  t = -(a + kPi);
  x += shift * kPdfUnitsPerMm * 0.01 * std::cos(t);
  y += shift * kPdfUnitsPerMm * 0.01 * std::sin(t);
  if (a == 0) {
    Number(x).Number(y).Line("Td");
  } else {
    Number(std::cos(a)).Number(-std::sin(a)).Number(std::sin(a)).Number(std::cos(a)).Number(x).Number(y).Line("Tm");
    Line("0 0 Td");
  }
  text += "[<";
  text += hex;
  text += ">] TJ\r\nET\r\n";
}

std::string ClassPDF::hex2_(uint8_t r, uint8_t g, uint8_t b) {
  std::string hex;
  AppendPixel(hex, r, g, b);
  return hex;
}

int ClassPDF::ImageAdd(const std::string& path) {
  std::unique_ptr<File> file = contents_.empty() ? nullptr : files_.Open(path, OpenMode::kRead);
  char header[26] = {};
  if (!file || file->ReadAt(0, header, sizeof header) < 2 || header[0] != 'B' || header[1] != 'M') return 0;
  const int32_t width = LoadLe<int32_t>(header + 18), height = LoadLe<int32_t>(header + 22);
  if (images_.size() >= kImageLimit) return TakeImage(width, height, nullptr);
  return TakeImage(width, height, std::make_shared<std::string>(BitmapRows(*file, LoadLe<uint32_t>(header + 10), width, height)));
}

// In the order of a bitmap's file: the lowest row first.
int ClassPDF::ImageAdd(const Picture& picture) {
  if (contents_.empty() || picture.width < 1 || picture.height < 1) return 0;
  const size_t width = static_cast<size_t>(picture.width), height = static_cast<size_t>(picture.height);
  if (picture.pixels.size() != width * height) return 0;
  auto hex = std::make_shared<std::string>();
  if (images_.size() < kImageLimit) hex->reserve((width * 6 + 2) * height);
  for (size_t row = images_.size() < kImageLimit ? height : 0; row-- > 0;) {
    for (size_t column = 0; column < width; ++column) {
      const uint32_t colour = OnWhitePaper(picture.pixels[row * width + column]);
      AppendPixel(*hex, static_cast<uint8_t>(colour >> 16), static_cast<uint8_t>(colour >> 8), static_cast<uint8_t>(colour));
    }
    *hex += "\r\n";
  }
  return TakeImage(picture.width, picture.height, std::move(hex));
}

int ClassPDF::ImageAgain(int number) {
  if (number < 1 || number > image_number_) return 0;
  // Numbers go on beyond the last object, kept: such a picture is named on its page and drawn by no reader.
  if (static_cast<size_t>(number) > images_.size()) return ++image_number_;
  const ImageRow& image = images_[static_cast<size_t>(number - 1)];
  return TakeImage(image.width, image.height, image.hex);
}

int ClassPDF::TakeImage(int32_t width, int32_t height, std::shared_ptr<const std::string> hex) {
  ++image_number_;
  if (images_.size() >= kImageLimit) return image_number_;
  images_.push_back({image_number_, width, height, TakeObject(Kind::kImage, images_.size()), std::move(hex)});
  return image_number_;
}

void ClassPDF::PlaceImage(double x1, double y1, double x2, double y2, int number) {
  if (number < 1 || contents_.empty()) return;
  Line("q");
  Number((x2 - x1) * kPdfUnitsPerMm);
  Content() += "0 0 ";
  Number(Y(y2) - Y(y1)).Number(x1 * kPdfUnitsPerMm).Number(Y(y1)).Line("cm");
  Line("/Image" + std::to_string(number) + " Do");
  Line("Q");
  Line("%IMAGE/%");
}

void ClassPDF::Test() {
  Clear();
  int font = FontAdd("Arial");
  for (int page = 0; page < 30; ++page) {
    PageAdd(210, 297);
    for (int cell = 0; cell < 100; ++cell) {
      int glyph = page * 100 + cell;
      std::string code{kHexDigits[glyph >> 12 & 15], kHexDigits[glyph >> 8 & 15], kHexDigits[glyph >> 4 & 15], kHexDigits[glyph & 15]};
      const int row = cell / 10, column = cell % 10;
      double x = 15 + column * 18, y = 15 + row * 26;
      SetAttrs(0, 0, 0, 1);
      DrawNativeText(code, font, 8, x, y, 1, 0);
      SetAttrs(Rgb(200, 200, 200), Rgb(200, 200, 200), 0, 1);
      DrawText(code, font, 5, x, y + 10, 1, 0);
    }
  }
  Save("C:\\xx.pdf");
}

}  // namespace ostrinka
