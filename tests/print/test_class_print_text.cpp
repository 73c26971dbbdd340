#include <gmock/gmock.h>

#include "print/class_print_fixture.h"

namespace ostrinka {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class ClassPrintTextTest : public ClassPrintTest {};

TEST_F(ClassPrintTextTest, WidthsFollowTheFontAndItsSize) {
  print->FONT_SIZE(30);  // 2,500 units: 20 times the table's height
  EXPECT_DOUBLE_EQ(print->LineHeightMm(), 10);
  EXPECT_DOUBLE_EQ(print->TextWidthMm("AŻ"), (75 + 68) * 20 / 250.0);
  print->FONT_BOLD(true);
  EXPECT_DOUBLE_EQ(print->TextWidthMm("A"), 81 * 20 / 250.0);
  print->FONT_NAME("Courier New");
  EXPECT_DOUBLE_EQ(print->TextWidthMm("Ąi"), 2 * 66 * 20 / 250.0);
  EXPECT_DOUBLE_EQ(print->TextWidthMm("  日 "), 66 * 20 / 250.0);  // trimmed, as it is drawn
}

TEST_F(ClassPrintTextTest, APlainTextIsDrawnOnceAndStoredLower) {
  print->BEGIN_PAGE(false);
  EXPECT_EQ(print->TEXT_ADD(20, 30, " ab\r\ncd\x1D ", -1, Rgb(1, 2, 3)), 1);
  print->END_PAGE();
  const PageElement& element = print->elements().at(0);
  EXPECT_EQ(element.Text, " ab\r\ncd ");
  EXPECT_FLOAT_EQ(element.Y[0], 30 + 12 * 0.0333f);
  EXPECT_FLOAT_EQ(element.S0, 9.6f);
  EXPECT_EQ(element.Font, "Arial CE");
  Call call = Played(1).at(0);
  EXPECT_EQ(call.text, "ab\r\ncd");
  EXPECT_EQ(call.area.left, 200);
  EXPECT_EQ(call.area.top, 300);
  EXPECT_EQ(call.anchor, Anchor::kRight);
  EXPECT_EQ(call.colour, Rgb(1, 2, 3));
  EXPECT_NEAR(call.font.height, 40, 0.001);
}

// Courier at size 30: a character is 66 * 20 units wide, 5.28 mm, a line 10 mm high.
TEST_F(ClassPrintTextTest, WrappingOnThePage) {
  const struct {
    const char* text;
    float width;
    std::vector<std::string> words;
    std::vector<std::pair<int, int>> places;
    int lines;
  } rows[] = {
      {"ab cd", 50, {"ab ", "cd "}, {{0, 0}, {158, 0}}, 1},
      {"ab cd", 31.69f, {"ab ", "cd "}, {{0, 0}, {158, 0}}, 1},
      {"ab cd", 31.68f, {"ab ", "cd "}, {{0, 0}, {0, 100}}, 2},  // strictly inside: as wide as the box does not fit
      {"abcdefgh x", 20, {"abcdefgh ", "x "}, {{0, 100}, {0, 200}}, 3},
      {"abcdefgh", 20, {"abcdefgh "}, {{0, 100}}, 2},  // the first line stays empty
      {"a  b", 50, {"a ", " ", "b "}, {{0, 0}, {106, 0}, {158, 0}}, 1},
      {" a \r\n\n b\rc", 50, {"a ", " ", "b ", "c "}, {{0, 0}, {0, 100}, {0, 200}, {0, 300}}, 4},
      {"", 50, {" "}, {{0, 0}}, 1},
  };
  for (const auto& row : rows) {
    print = std::make_unique<ClassPRINT>(program);
    print->BEGIN_PAGE(false);
    print->FONT_NAME("Courier New");
    print->FONT_SIZE(30);
    EXPECT_EQ(print->LinesOf(row.text, row.width), row.lines) << row.text;
    EXPECT_EQ(print->TEXT_ADD(0, 0, row.text, 1, 0, row.width), row.lines) << row.text;
    print->END_PAGE();
    EXPECT_EQ(PlayedTexts(1), row.words) << row.text;
    std::vector<std::pair<int, int>> places;
    for (const Call& call : Played(1)) places.emplace_back(std::lround(call.area.left), std::lround(call.area.top));
    EXPECT_EQ(places, row.places) << row.text << row.width;
  }
}

TEST_F(ClassPrintTextTest, MoreThanTwentyLinesAreDrawnButNotCounted) {
  print->BEGIN_PAGE(false);
  EXPECT_EQ(print->TEXT_ADD(0, 0, Repeated("x\n", 25), 1, 0, 100), 20);
  EXPECT_EQ(print->LinesOf(Repeated("x\n", 25), 100), 20);
  print->END_PAGE();
  EXPECT_THAT(PlayedTexts(1), SizeIs(26));
}

TEST_F(ClassPrintTextTest, AWrappedTextKeepsItsAnchorOnlyWhenItFits) {
  print->BEGIN_PAGE(false);
  print->TEXT_ADD(50, 10, "ab", 0, 0, 100);
  print->TEXT_ADD(50, 10, Repeated("ab ", 100), 0, 0, 100);
  print->END_PAGE();
  EXPECT_EQ(Played(1).front().anchor, Anchor::kCentre);
  EXPECT_EQ(Played(1).back().anchor, Anchor::kLeft);
}

TEST_F(ClassPrintTextTest, WrappingInThePdf) {
  // Size 30: 24 in the element, 7.992 in the PDF; a Courier character is 66 * 0.07992 = 5.275 mm wide, lines are 10.2 mm apart.
  const struct {
    const char* text;
    float width;
    std::vector<std::string> words;
    std::vector<std::pair<int, int>> places;
  } rows[] = {
      {"ab cd", 0, {"ab cd"}, {{0, 0}}},
      {"ab cd", 27, {"ab cd"}, {{0, 0}}},                           // 26.4 mm wide: whole
      {"ab cd", 26, {"ab ", "cd "}, {{0, 0}, {0, 102}}},            // words with their blanks and 1 mm in hand
      {"abcdefgh x", 20, {"abcdefgh ", "x "}, {{0, 0}, {0, 102}}},  // no break before the first word
      {"abcdefgh", 20, {"abcdefgh "}, {{0, 0}}},
      {" a\r\nb\n\n%p %m", 50, {" a", "b", "", "1 %m"}, {{0, 0}, {0, 102}, {0, 204}, {0, 306}}},
  };
  for (const auto& row : rows) {
    print = std::make_unique<ClassPRINT>(program);
    print->BEGIN_PAGE(false);
    print->FONT_NAME("Courier New");
    print->FONT_SIZE(30);
    print->TEXT_ADD(0, 0, row.text, 1, 0, row.width);
    print->END_PAGE();
    EXPECT_EQ(PdfTextsOf(1), row.words) << row.text << row.width;
    std::vector<std::pair<int, int>> places;
    std::vector<PdfText> texts = PdfTexts(Pdf());
    for (const PdfText& text : texts) {
      places.emplace_back(std::lround((text.x - texts[0].x) / 2.8333333 * 10), std::lround((texts[0].y - text.y) / 2.8333333 * 10));
      EXPECT_EQ(text.font, 3);
    }
    EXPECT_EQ(places, row.places) << row.text << row.width;
  }
}

TEST_F(ClassPrintTextTest, PageMarksBecomeTheRunningNumber) {
  for (int page = 1; page <= 3; ++page) {
    if (page == 3) print->CLEAR_PAGE_NUMBER_();
    print->BEGIN_PAGE(false);
    print->TEXT_ADD(10, 10, "Strona %p z %P%m%M.");
  }
  print->END_PAGE();
  EXPECT_THAT(PlayedTexts(2), ElementsAre("Strona 2 z 2."));
  EXPECT_THAT(PdfTextsOf(2), ElementsAre("Strona 2 z 2%m%M."));
  EXPECT_THAT(PlayedTexts(3), ElementsAre("Strona 1 z 1."));
  EXPECT_THAT(PdfTextsOf(3), ElementsAre("Strona 1 z 1%m%M."));
  EXPECT_EQ(Int32Or0(print->PAGE_NUMBER_()), 1);
}

TEST_F(ClassPrintTextTest, VerticalTextWithAWrapWidthIsTurnedInThePdfAlone) {
  print->BEGIN_PAGE(false);
  print->TEXT_ADD(10, 100, "a", 1, 0, 0, 0, true);
  print->TEXT_ADD(20, 100, "b", 1, 0, 50, 0, true);
  print->END_PAGE();
  EXPECT_EQ(print->elements()[0].Y[0], 100);  // not shifted
  EXPECT_EQ(Played(1)[0].font.angle, 90);
  EXPECT_EQ(Played(1)[1].font.angle, 0);
  for (const PdfText& text : PdfTexts(Pdf())) EXPECT_TRUE(text.turned) << text.text;
}

TEST_F(ClassPrintTextTest, EachFaceHasItsFontInThePdf) {
  print->BEGIN_PAGE(false);
  const struct {
    const char* name;
    bool bold;
    int font;
  } rows[] = {
      {"Arial CE", false, 1}, {"Arial CE", true, 2}, {" Courier New ", false, 3}, {"courier", true, 4},
      {"Tahoma", false, 5},   {"TAHOMA", true, 6},   {"Verdana", true, 2},
  };
  for (const auto& row : rows) {
    print->FONT_NAME(row.name);
    print->FONT_BOLD(row.bold);
    print->TEXT_ADD(10, 10, "Zażółć");
  }
  print->END_PAGE();
  std::vector<PdfText> texts = PdfTexts(Pdf());
  ASSERT_EQ(texts.size(), std::size(rows));
  for (size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(texts[i].font, rows[i].font) << rows[i].name;
  EXPECT_EQ(texts[0].text, "Zażółć");
}

}  // namespace
}  // namespace ostrinka
