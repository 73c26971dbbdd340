#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "base/bytes.h"
#include "print/pdf.h"
#include "print/pdf_reader.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class PdfTest : public testing::Test {
 protected:
  // Bytes of the file after Save.
  std::string Saved() {
    pdf.Save(path);
    EXPECT_TRUE(pdf.written());
    return FileContent(path);
  }
  std::string WriteFile(const std::string& name, const std::string& content) {
    std::ofstream(folder / name, std::ios::binary) << content;
    return folder / name;
  }
  // A 24-bit bitmap of the given size; the rows hold `fill` bytes counting up.
  std::string Bitmap(int32_t width, int32_t height, size_t bytes, uint16_t magic = 0x4D42) {
    std::string file;
    AppendLe(file, magic);
    for (uint32_t value : {54u + static_cast<uint32_t>(bytes), 0u, 54u, 40u}) AppendLe(file, value);
    AppendLe(file, width);
    AppendLe(file, height);
    AppendLe(file, uint16_t{1});
    AppendLe(file, uint16_t{24});
    file.append(24, '\0');
    for (size_t i = 0; i < bytes; ++i) file += static_cast<char>(i);
    return file;
  }
  void StartPage() {
    pdf.Clear();
    pdf.FontAdd("Arial");
    pdf.PageAdd(210, 297);
    pdf.SetAttrs(Rgb(255, 0, 51), Rgb(0, 102, 0), 1, 2);
  }
  std::string Content() { return PdfPages(Saved()).at(0); }

  TemporaryFolder folder;
  PosixFileSystem files;
  ClassPDF pdf{files, Locale::Polish()};
  std::string path = folder / "out.pdf";
};

TEST_F(PdfTest, EmptyDocumentIsExact) {
  pdf.Clear();
  EXPECT_EQ(Saved(),
            "%PDF-1.3\r\n1 0 obj\r\n<<\r\n/Type /Catalog\r\n/Pages 2 0 R\r\n/PageLayout /OneColumn\r\n>>\r\nendobj\r\n"
            "2 0 obj\r\n<<\r\n/Type /Pages\r\n/Kids [  ]\r\n/Count 0\r\n>>\r\nendobj\r\n"
            "xref\r\n0 2\r\n0000000000 65535 f\r\n0000000011 00000 n\r\n0000000090 00000 n\r\n"
            "trailer\r\n<<\r\n/Root 1 0 R\r\n/Info 99 0 R\r\n/Size 2\r\n>>\r\nstartxref\r\n151\r\n%%EOF\r\n");
}

TEST_F(PdfTest, SaveReplacesALongerFileAndReportsAFailure) {
  WriteFile("out.pdf", std::string(5000, 'x'));
  pdf.Clear();
  EXPECT_TRUE(Saved().ends_with("%%EOF\r\n"));
  pdf.Save(folder / "missing/out.pdf");
  EXPECT_FALSE(pdf.written());
}

TEST_F(PdfTest, ShapesAreWrittenInPdfUnitsFromTheBottomLeft) {
  StartPage();
  pdf.DrawLine(10, 20, 30, 40);
  EXPECT_EQ(Content(), "[ 10 5 ] 0 d\r\n28.333 784.833 m\r\n85.000 728.167 l\r\n1.000 0.000 0.200 RG\r\n1.417 w S\r\n%LINE/%\r\n");
  StartPage();
  pdf.DrawRect(10, 20, 30, 40);
  EXPECT_EQ(Content(),
            "[ 10 5 ] 0 d\r\n1.000 0.000 0.200 RG\r\n0.000 0.400 0.000 rg\r\n28.333 784.833 56.667 -56.667 re B\r\n0 G\r\n1.417 w S\r\n"
            "%LINE/%\r\n");
  StartPage();
  pdf.DrawEllipse(100, 97, 30, 60);
  EXPECT_EQ(Content(),
            "[ 10 5 ] 0 d\r\n1.000 0.000 0.200 RG\r\n0.000 0.400 0.000 rg\r\n198.333 566.667 m\r\n"
            "198.333 660.167 236.583 736.667 283.333 736.667 c\r\n330.083 736.667 368.333 660.167 368.333 566.667 c\r\n"
            "368.333 473.167 330.083 396.667 283.333 396.667 c\r\n236.583 396.667 198.333 473.167 198.333 566.667 c\r\n1.417 w s\r\n");
  StartPage();
  pdf.VertexAdd(0, 297);
  pdf.VertexAdd(30, 297);
  pdf.VertexAdd(30, 267);
  pdf.DrawPolygon();
  EXPECT_EQ(Content(),
            "%DEBUT_POLY/%\r\n1.000 0.000 0.200 RG\r\n0.000 0.400 0.000 rg\r\n[ 10 5 ] 0 d\r\n0.000 0.000 m\r\n85.000 0.000 l\r\n"
            "85.000 85.000 l\r\n0.000 0.000 l\r\n1.417 w B\r\n%FIN_POLY/%\r\n");
}

TEST_F(PdfTest, EachStyleHasItsDashAndWidth) {
  const struct {
    int style;
    const char* dash;
    const char* width;
  } rows[] = {
      {0, "[] 0 d", "0.283"},
      {1, "[ 10 5 ] 0 d", "0.283"},
      {2, "[ 3 3 ] 0 d", "1.417"},
      {3, "[ 8 7 2 7 ] 0 d", "2.833"},
      {4, "[ 8 4 2 4 2 4 ] 0 d", "4.250"},
      {5, "[] 0 d", "5.667"},
      {6, "[] 0 d", "0.283"},
      {-1, "[] 0 d", "0.283"},
  };
  for (const auto& row : rows) {
    StartPage();
    pdf.SetAttrs(0, 0, row.style, row.style);
    pdf.DrawLine(0, 0, 1, 1);
    std::vector<std::string> lines = PdfLines(Content());
    EXPECT_EQ(lines.at(0), row.dash) << row.style;
    EXPECT_EQ(lines.at(4), std::string(row.width) + " w S") << row.style;
  }
}

// The quick way of writing a number must agree with the general formatter, ties and signs among them.
TEST_F(PdfTest, NumbersAgreeWithTheFormatterAndHaveAPointInAnyLocale) {
  std::vector<double> values = {0,           -0.0,         0.0005,  0.0015,        1.0005,      2.0005,         8.3325, -8.3325,
                                1.2345,      1.2355,       -0.0004, -0.0005,       594.9999833, 0.4995,         0.9995, 999.9995,
                                123456.7895, 1e5 + 0.0005, 1e9,     12345678901.5, 1e300,       99999.99949999, 5e-324};
  for (int i = -20000; i < 20000; i += 7)
    values.push_back(i / 16.0 / 125), values.push_back(i * 0.0005), values.push_back(i * 2.8333332538604736);
  Locale english = Locale::Polish();
  english.decimal = '.';
  ClassPDF other(files, english);
  for (double value : values) {
    std::string expected = FormatPlain(value, "0.000", english);
    ASSERT_EQ(pdf.FormatNumber(value, 3), expected);
    ASSERT_EQ(other.FormatNumber(value, 3), expected);
  }
  EXPECT_EQ(pdf.FormatNumber(-0.0004, 3), FormatPlain(-0.0004, "0.000", english));
  EXPECT_EQ(pdf.FormatNumber(1.0005, 3), "1.001");
}

TEST_F(PdfTest, TextIsWrittenAsGlyphNumbers) {
  const struct {
    std::string text, codes;
  } rows[] = {
      {"ŻÓŁĆ", "012900CF00E000FB"},
      {"ąćęłńóśźż", "010500FC010A00E101140079011E0128012A"},
      {"ĄĆĘŁŃÓŚŹŻ", "010400FB010900E0011300CF011D01270129"},
      {" Az~", "00030024005D0061"},
      {"ß§`´üÜöÖäÄ€", "008900680043008D00810068007C0067006C006200BC"},
      {std::string("a\x1D"
                   "b\t\r\x1E",
                   6),
       "00440045000000000001"},
      {"ě日", "00CF0022"},  // by the rule, and a letter that Windows-1250 lacks
  };
  for (const auto& row : rows) {
    StartPage();
    pdf.DrawText(row.text, 1, 3, 10, 10, 1, 0);
    EXPECT_THAT(Content(), HasSubstr("\r\n[<" + row.codes + ">] TJ\r\nET\r\n")) << row.text;
  }
  StartPage();
  pdf.DrawNativeText(" 0024 ", 1, 3, 10, 10, 1, 0);
  EXPECT_THAT(Content(), HasSubstr("\r\n[<0024>] TJ\r\n"));
}

TEST_F(PdfTest, TextStandsBelowItsTopAndByItsAnchor) {
  // "AA" is 150 wide; size 4: 6 mm, baseline (4 - 0.5) * 2.975 below the top.
  const struct {
    int align;
    double angle;
    const char* place;
  } rows[] = {
      {1, 0, "283.333 547.754 Td"},
      {0, 0, "274.833 547.754 Td"},
      {-1, 0, "266.333 547.754 Td"},
      {1, 90, "0.000 1.000 -1.000 0.000 293.746 558.167 Tm\r\n0 0 Td"},
      {-1, 90, "0.000 1.000 -1.000 0.000 293.746 541.167 Tm\r\n0 0 Td"},
  };
  for (const auto& row : rows) {
    StartPage();
    pdf.DrawText("AA", 1, 4, 100, 100, row.align, row.angle);
    std::string content = Content();
    EXPECT_TRUE(content.starts_with("1.000 0.000 0.200 rg\r\nBT\r\n/F1 11.333 Tf\r\n100 Tz\r\n")) << content;
    EXPECT_THAT(content, HasSubstr("100 Tz\r\n" + std::string(row.place) + "\r\n[<"));
  }
  EXPECT_DOUBLE_EQ(pdf.GetTextWidth("AA", 1, 4), 6);
}

TEST_F(PdfTest, FontsTakeThreeObjectsWithOneOffsetBehindThem) {
  pdf.Clear();
  EXPECT_EQ(pdf.FontAdd("Arial"), 1);
  EXPECT_EQ(pdf.FontAdd("Courier New,Bold"), 2);
  pdf.PageAdd(210, 297);
  pdf.DrawText("x", 2, 4, 1, 1, 1, 0);
  std::string bytes = Saved();
  EXPECT_THAT(bytes,
              HasSubstr("6 0 obj\r\n<<\r\n/Type /Font\r\n/BaseFont /Courier#20New,Bold\r\n/Subtype /Type0\r\n/Encoding /Identity-H\r\n"
                        "/DescendantFonts [ 7 0 R ]\r\n>>\r\nendobj\r\n7 0 obj\r\n"));
  EXPECT_THAT(
      bytes,
      HasSubstr("/MediaBox [ 0 0 595.000 841.500 ]\r\n/Contents 10 0 R\r\n/Resources <<\r\n"
                "/ProcSet [ /PDF /Text /ImageB /ImageC /ImageI ]\r\n/Font\r\n<<\r\n/F1 3 0 R\r\n/F2 6 0 R\r\n>>\r\n/XObject\r\n<<\r\n"
                ">>\r\n>>\r\n/Parent 2 0 R\r\n>>\r\nendobj\r\n"));
  EXPECT_THAT(bytes, HasSubstr("\r\n0 10\r\n"));
  // Widths: space, A, the letter é by a rule of its own, the last by the substitute.
  size_t start = bytes.find("/W [ 0 [ ") + 9;
  std::istringstream widths(bytes.substr(start, bytes.find("] ]", start) - start));
  std::vector<std::string> list{std::istream_iterator<std::string>(widths), {}};
  ASSERT_EQ(list.size(), 301u);
  EXPECT_EQ(list[0], "620.000");    // "_"
  EXPECT_EQ(list[3], "310.000");    // blank
  EXPECT_EQ(list[36], "750.000");   // A
  EXPECT_EQ(list[98], "840.000");   // code 127
  EXPECT_EQ(list[99], "620.000");   // the last measured by itself: the euro sign
  EXPECT_EQ(list[100], "620.000");  // "_" again
  EXPECT_EQ(list[225], "250.000");  // ł as l
  EXPECT_EQ(list[298], "560.000");  // ż as z
  EXPECT_EQ(list[300], "620.000");

  // Offsets count from 1; the second and third object of a font have the position behind the three.
  std::vector<std::string> lines = PdfLines(bytes);
  size_t table = static_cast<size_t>(std::find(lines.begin(), lines.end(), "xref") - lines.begin()) + 3;
  auto offset = [&](int object) { return static_cast<size_t>(std::stol(lines.at(table + static_cast<size_t>(object) - 1))); };
  for (int object : {1, 2, 3, 6, 9, 10}) EXPECT_EQ(offset(object) - 1, bytes.find("\n" + std::to_string(object) + " 0 obj") + 1) << object;
  for (int object : {4, 5}) EXPECT_EQ(offset(object), offset(6));
  for (int object : {7, 8}) EXPECT_EQ(offset(object), offset(9));
  EXPECT_EQ(std::stoul(lines.at(lines.size() - 2)) - 1, bytes.find("\nxref") + 1);
}

TEST_F(PdfTest, BitmapRowsAreTakenInFileOrder) {
  StartPage();
  pdf.DrawImage(10, 20, 30, 40, WriteFile("logo.bmp", Bitmap(3, 2, 24)));
  std::string bytes = Saved();
  EXPECT_EQ(PdfPages(bytes).at(0), "q\r\n56.667 0 0 -56.667 28.333 784.833 cm\r\n/Image1 Do\r\nQ\r\n%IMAGE/%\r\n");
  EXPECT_THAT(bytes,
              HasSubstr("8 0 obj\r\n<<\r\n/Type /XObject\r\n/Subtype /Image\r\n/Name /Image1\r\n/Width 3\r\n/Height 2\r\n"
                        "/BitsPerComponent 8\r\n/ColorSpace /DeviceRGB\r\n/ImageMask false\r\n/Length 0\r\n/Filter /AHx\r\n"
                        "/BitsPerComponent 8\r\n>>\r\nstream\r\n020100050403080706\r\n0E0D0C11100F141312\r\n\r\nendstream\r\nendobj\r\n"));
  EXPECT_THAT(bytes, HasSubstr("/XObject\r\n<<\r\n/Image1 8 0 R\r\n>>"));
}

TEST_F(PdfTest, APictureThatIsNoBitmapIsSkipped) {
  StartPage();
  pdf.DrawImage(10, 20, 30, 40, WriteFile("logo.png", "\x89PNG\r\n\x1A\n and more"));
  pdf.DrawImage(10, 20, 30, 40, WriteFile("empty.bmp", "B"));
  pdf.DrawImage(10, 20, 30, 40, folder / "missing.bmp");
  std::string bytes = Saved();
  EXPECT_THAT(bytes, HasSubstr("/Size 7\r\n"));
  EXPECT_EQ(PdfPages(bytes).at(0), "");
}

TEST_F(PdfTest, ALyingBitmapGivesTheRowsItHas) {
  const struct {
    int32_t width, height;
    size_t bytes, digits;
  } rows[] = {
      {3, 2147483647, 24, 36}, {2147483647, 2147483647, 24, 0}, {-3, 2, 24, 0}, {3, -2, 24, 0}, {INT32_MIN, 2, 24, 0},
      {3, INT32_MIN, 24, 0},   {1431655766, 2, 24, 0},          {0, 5, 24, 0},  {3, 2, 21, 36}, {3, 2, 20, 18},
  };
  for (const auto& row : rows) {
    StartPage();
    pdf.DrawImage(0, 0, 1, 1, WriteFile("logo.bmp", Bitmap(row.width, row.height, row.bytes)));
    std::string bytes = Saved();
    size_t start = bytes.rfind("\r\nstream\r\n") + 10;
    std::string hex = bytes.substr(start, bytes.rfind("\r\nendstream") - start);
    EXPECT_EQ(std::count_if(hex.begin(), hex.end(), isxdigit), static_cast<long>(row.digits)) << row.width << " x " << row.height;
  }
}

TEST_F(PdfTest, PagesBeyondTheLimitAreLeftOut) {
  pdf.Clear();
  pdf.FontAdd("Arial");
  int drawn = 0;
  for (int page = 1; page <= 10002; ++page) pdf.PageAdd(210, 297, [&](ClassPDF&) { ++drawn; });
  const std::string bytes = Saved();
  EXPECT_THAT(bytes, HasSubstr("/Count 9999\r\n"));
  EXPECT_EQ(PdfPages(bytes).size(), 9999u);
  EXPECT_EQ(drawn, 9999);
}

TEST_F(PdfTest, AnotherProgramRecoversThePages) {
  pdf.Clear();
  pdf.FontAdd("Arial");
  for (int page = 0; page < 3; ++page) {
    pdf.PageAdd(210, 297);
    pdf.DrawText("Strona", 1, 4, 10, 10, 1, 0);
    pdf.DrawLine(0, 0, 210, 297);
  }
  Saved();
  std::string command = "qpdf --show-npages " + path + " 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  char answer[16] = {};
  EXPECT_NE(fgets(answer, sizeof answer, pipe), nullptr);
  pclose(pipe);
  EXPECT_STREQ(answer, "3\n");
}

}  // namespace
}  // namespace ostrinka
