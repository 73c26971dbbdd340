// The file of a ClassPDF: objects in the order of their numbers, the table of their positions, the trailer.
#include <cmath>

#include "base/text.h"
#include "print/pdf.h"

namespace ostrinka {

namespace {

constexpr int kGlyphWidths = 301;
constexpr int kShift = 29;  // of a glyph's number from its character's code

// Code counted from a glyph's number, and the plain letter that lends its width.
struct Substitute {
  int code;
  char letter;
};
constexpr Substitute kSubstitutes[] = {
    {290, 'a'}, {281, 'c'}, {295, 'e'}, {254, 'l'}, {305, 'n'}, {150, 'o'}, {315, 's'}, {325, 'z'}, {327, 'z'},
    {289, 'A'}, {280, 'C'}, {294, 'E'}, {253, 'L'}, {304, 'N'}, {236, 'O'}, {314, 'S'}, {324, 'Z'}, {326, 'Z'},
};

uint8_t MeasuredByte(int glyph) {
  int code = glyph + kShift;
  if (code >= 32 && code <= 128) return static_cast<uint8_t>(code);
  for (const Substitute& substitute : kSubstitutes) {
    if (substitute.code == code) return static_cast<uint8_t>(substitute.letter);
  }
  return '_';
}

std::string Reference(int object) {
  return std::to_string(object) + " 0 R";
}

}  // namespace

// Lines ended by CR LF, written in large blocks.
class ClassPDF::Output {
 public:
  explicit Output(std::unique_ptr<File> file) : file_(std::move(file)) {}

  void Line(std::string_view text) {
    Text(text);
    Text("\r\n");
  }
  void Lines(std::initializer_list<std::string_view> lines) {
    for (std::string_view line : lines) Line(line);
  }
  void Text(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() >= kBlock) Flush();
  }
  // Of the next byte, counted from 1, kept.
  int64_t Position() const { return written_ + static_cast<int64_t>(buffer_.size()) + 1; }
  // True when everything reached the file.
  bool Finish() {
    Flush();
    return ok_ && file_->Resize(written_);
  }

 private:
  static constexpr size_t kBlock = 1 << 20;
  void Flush() {
    ok_ = ok_ && file_->WriteAt(written_, buffer_.data(), buffer_.size());
    written_ += static_cast<int64_t>(buffer_.size());
    buffer_.clear();
  }

  std::unique_ptr<File> file_;
  std::string buffer_;
  int64_t written_ = 0;
  bool ok_ = true;
};

bool ClassPDF::Save(const std::string& path) {
  written_ = false;
  std::unique_ptr<File> file = files_.Open(path, OpenMode::kCreate);
  if (!file) return false;
  Output out(std::move(file));
  out.Line("%PDF-1.3");
  MakeResources();
  for (size_t i = 0; i < objects_.size(); ++i) {
    objects_[i].position = out.Position();
    WriteObject(out, objects_[i]);
  }
  WriteTail(out);
  written_ = out.Finish();
  return false;
}

void ClassPDF::WriteObject(Output& out, const ObjectRow& object) {
  size_t index = static_cast<size_t>(object.index);
  switch (object.kind) {
    case Kind::kCatalog:
      out.Lines({"1 0 obj", "<<", "/Type /Catalog", "/Pages 2 0 R", "/PageLayout /OneColumn", ">>", "endobj"});
      break;
    case Kind::kPageTree:
      out.Lines({"2 0 obj", "<<", "/Type /Pages"});
      out.Text("/Kids [ ");
      for (const PageRow& page : pages_) out.Text(Reference(page.object) + " ");
      out.Lines({" ]", "/Count " + std::to_string(pages_.size()), ">>", "endobj"});
      break;
    case Kind::kPage:
      WritePage(out, pages_[index]);
      break;
    case Kind::kContents:
      WriteContents(out, index);
      break;
    case Kind::kFont:
      WriteFont(out, fonts_[index]);
      break;
    case Kind::kImage:
      WriteImage(out, images_[index]);
      break;
    case Kind::kNone:
      break;  // the second and third of a font, written with the first
  }
}

namespace {

// Trimmed without a copy: contents and pictures are long.
std::string_view WithoutEndBlanks(std::string_view text) {
  const size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

// Every page lists every font and every image of the document: the text is the same for all.
void ClassPDF::MakeResources() {
  resources_ = "/Resources <<\r\n/ProcSet [ /PDF /Text /ImageB /ImageC /ImageI ]\r\n/Font\r\n<<\r\n";
  for (size_t i = 0; i < fonts_.size(); ++i) resources_ += "/F" + std::to_string(i + 1) + " " + Reference(fonts_[i].object) + "\r\n";
  resources_ += ">>\r\n/XObject\r\n<<\r\n";
  for (const ImageRow& image : images_) resources_ += "/Image" + std::to_string(image.number) + " " + Reference(image.object) + "\r\n";
  resources_ += ">>\r\n>>\r\n";
}

void ClassPDF::WritePage(Output& out, const PageRow& page) {
  std::string box = "/MediaBox [ 0 0 ";
  AppendNumber(box, double{page.width} * kPdfUnitsPerMm);
  box += ' ';
  AppendNumber(box, double{page.height} * kPdfUnitsPerMm);
  out.Lines({std::to_string(page.object) + " 0 obj", "<<", "/Type /Page", box + " ]", "/Contents " + Reference(page.contents)});
  out.Text(resources_);
  out.Lines({"/Parent 2 0 R", ">>", "endobj"});
}

void ClassPDF::WriteContents(Output& out, size_t index) {
  ContentsRow& contents = contents_[index];
  if (contents.draw) {
    drawn_ = index;
    contents.text.swap(reused_);
    contents.text.clear();
    contents.draw(*this);
  }
  // The length stays 0, kept: readers recover it from "endstream".
  out.Lines({std::to_string(contents.object) + " 0 obj", "<<", "/Length " + std::to_string(std::lround(contents.length)), ">>", "stream"});
  out.Line(WithoutEndBlanks(contents.text));
  out.Lines({"endstream", "endobj"});
  if (contents.draw) contents.text.swap(reused_);
}

void ClassPDF::WriteImage(Output& out, const ImageRow& image) {
  out.Lines({std::to_string(image.object) + " 0 obj", "<<", "/Type /XObject", "/Subtype /Image",
             "/Name /Image" + std::to_string(image.number), "/Width " + std::to_string(image.width),
             "/Height " + std::to_string(image.height), "/BitsPerComponent 8", "/ColorSpace /DeviceRGB", "/ImageMask false", "/Length 0",
             "/Filter /AHx", "/BitsPerComponent 8", ">>", "stream"});
  out.Line(WithoutEndBlanks(*image.hex));
  out.Lines({"endstream", "endobj"});
}

const std::string& ClassPDF::WidthList(Face face) {
  std::string& list = width_lists_[static_cast<size_t>(face)];
  if (!list.empty()) return list;
  for (int glyph = 0; glyph < kGlyphWidths; ++glyph) {
    AppendNumber(list, WidthTable(face)[MeasuredByte(glyph)] * 10);
    list += ' ';
  }
  return list;
}

void ClassPDF::WriteFont(Output& out, const FontRow& font) {
  std::string name = "/" + ReplaceAll(font.name, " ", "#20");
  out.Lines({std::to_string(font.object) + " 0 obj", "<<", "/Type /Font", "/BaseFont " + name, "/Subtype /Type0", "/Encoding /Identity-H",
             "/DescendantFonts [ " + Reference(font.descendant) + " ]", ">>", "endobj"});
  out.Lines({std::to_string(font.descendant) + " 0 obj", "<<", "/Type /Font", "/Subtype /CIDFontType2", "/BaseFont " + name, "/DW 777",
             "/CIDToGIDMap /Identity", "/CIDSystemInfo <<", "/Registry (Adobe)", "/Ordering (Identity)", "/Supplement 0", ">>",
             "/FontDescriptor " + Reference(font.descriptor)});
  out.Text("/W [ 0 [ ");
  out.Text(WidthList(font.face));
  out.Lines({"] ]", ">>", "endobj"});
  out.Lines({std::to_string(font.descriptor) + " 0 obj", "<<", "/Type /FontDescriptor", "/FontName " + name, "/Ascent 891", "/Descent -216",
             "/Flags 32", "/CapHeight 662", "/MissingWidth 777", "/FontBBox [ -568.35938 -306.64063 2000 1006.83594 ]", "/ItalicAngle 0",
             "/StemV 0", "/XHeight 447", ">>", "endobj"});
}

// One entry more than the count says, and an information object that does not exist, kept.
void ClassPDF::WriteTail(Output& out) {
  std::string count = std::to_string(objects_.size());
  int64_t position = out.Position();
  out.Lines({"xref", "0 " + count, "0000000000 65535 f"});
  for (const ObjectRow& object : objects_) {
    std::string digits = std::to_string(object.position);
    out.Line(std::string(digits.size() < 10 ? 10 - digits.size() : 0, '0') + digits + " 00000 n");
  }
  out.Lines({"trailer", "<<", "/Root 1 0 R", "/Info 99 0 R", "/Size " + count, ">>", "startxref", std::to_string(position), "%%EOF"});
}

}  // namespace ostrinka
