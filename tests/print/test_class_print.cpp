#include <gmock/gmock.h>

#include "print/class_print_fixture.h"
#include "print/page_file.h"

namespace ostrinka {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PaperPrinter : public NoPrinter {
 public:
  PaperSize paper;
  std::optional<PaperSize> Paper() override { return paper; }
};

class OnePicture : public PictureDecoder {
 public:
  Picture picture{100, 100, std::vector<uint32_t>(10000, 0xFF123456)};
  int decoded = 0;
  std::optional<Picture> Decode(const std::string&) override {
    ++decoded;
    return picture;
  }
};

TEST_F(ClassPrintTest, NothingHappensBeforeTheFirstPage) {
  print->LINE_ADD(1, 1, 2, 2, 0);
  print->RECT_ADD(1, 1, 2, 2, 0);
  print->CIRCLE_ADD(1, 1, 2, 0);
  print->VERTEX_ADD(1, 1);
  print->POLYGON_ADD(0);
  print->POLYLINE_ADD(0);
  print->IMAGE_ADD(1, 1, 2, 2, "x");
  print->FIELD_ADD("a", 1, 1, 2, 2, 0);
  EXPECT_EQ(print->TEXT_ADD(1, 1, "a"), 0);
  EXPECT_THAT(print->elements(), IsEmpty());
  EXPECT_EQ(print->Page(), 0);
  EXPECT_EQ(print->Page_Width(0), 0);
}

TEST_F(ClassPrintTest, CatalogueFollowsThePrintLanguage) {
  surroundings.files.WriteAll(surroundings.folder / "app/printdoc.lang", "sdoc.nip=NIP\n");
  surroundings.files.WriteAll(surroundings.folder / "app/printdocen.lang", "sdoc.nip=Tax no.\n");
  ClassPRINT polish(program);
  EXPECT_EQ(program.Text("sdoc.nip"), "NIP");
  program.settings.SaveSettingValue(kCommon, "prgSettings", "VDLanguage", int32_t{1});
  ClassPRINT english(program);
  EXPECT_EQ(program.Text("sdoc.nip"), "Tax no.");
}

TEST_F(ClassPrintTest, SheetComesFromThePrinterOrStandsAtItsDefault) {
  print->BEGIN_PAGE(false);
  print->BEGIN_PAGE(true);
  EXPECT_EQ(print->Page_Width(1), 210);
  EXPECT_EQ(print->PrintArea_Height(1), 285);
  EXPECT_EQ(print->Page_Width(-1), 297);  // the last
  EXPECT_EQ(print->PrintArea_Width(2), 285);
  EXPECT_EQ(print->Page_Height(3), 0);

  PaperPrinter printer;
  Platform platform = surroundings.With(printer);
  Program other(platform);
  ClassPRINT job(other);
  printer.paper = {216, 279, 206, 270};
  job.BEGIN_PAGE(false);
  job.BEGIN_PAGE(true);
  printer.paper = {279, 216, 270, 206};
  job.BEGIN_PAGE(true);
  EXPECT_EQ(job.Page_Width(1), 216);
  for (int page : {2, 3}) {
    EXPECT_EQ(job.Page_Width(page), 279);
    EXPECT_EQ(job.Page_Height(page), 216);
    EXPECT_EQ(job.PrintArea_Width(page), 270);
    EXPECT_EQ(job.PrintArea_Height(page), 206);
  }
}

TEST_F(ClassPrintTest, PageFilesLiveAsLongAsTheJob) {
  for (int page = 0; page < 3; ++page) print->BEGIN_PAGE(false);
  EXPECT_FALSE(surroundings.files.FileExists(print->pages()[2].FileName));  // still recording
  print->END_PAGE();
  std::vector<std::string> names;
  for (const PageRecord& record : print->pages()) names.push_back(record.FileName);
  EXPECT_EQ(names, program.TempPageFiles);
  for (const std::string& name : names) {
    EXPECT_TRUE(surroundings.files.FileExists(name));
    EXPECT_TRUE(name.ends_with(".ovp"));
    EXPECT_TRUE(IsAllDigits(BareFileName(name).substr(0, BareFileName(name).size() - 4)));
  }
  print.reset();
  for (const std::string& name : names) EXPECT_FALSE(surroundings.files.FileExists(name));
}

TEST_F(ClassPrintTest, ShapesReachThePageAndAllButThePolylineThePdf) {
  print->BEGIN_PAGE(false);
  print->LINE_ADD(10, 10, 20, 10, Rgb(9, 8, 7), 3, 2);
  print->RECT_ADD(10, 10, 20, 20, Rgb(1, 1, 1));
  print->CIRCLE_ADD(50, 50, 10, 0, 1, 0);
  print->VERTEX_ADD(1, 1);
  print->VERTEX_ADD(2, 1);
  print->VERTEX_ADD(2, 2);
  print->POLYLINE_ADD(0, 2);
  print->POLYGON_ADD(Rgb(0, 255, 0));
  print->END_PAGE();
  std::vector<Call> calls = Played(1);
  ASSERT_EQ(calls.size(), 5u);
  EXPECT_EQ(calls[0].pen.style, PenStyle::kDot);
  EXPECT_NEAR(calls[0].pen.width, (250 * 0.9 + 1) / 25, 1e-9);
  EXPECT_EQ(calls[1].area, (RectF{99, 99, 201, 201}));
  EXPECT_EQ(calls[2].area, (RectF{400, 400, 600, 600}));
  EXPECT_EQ(calls[3].points.size(), 3u);
  EXPECT_EQ(calls[4].kind, Call::Kind::kPolygon);  // the vertices were kept
  EXPECT_THAT(print->elements(), SizeIs(5));
  std::string page = PdfPages(Pdf()).at(0);
  EXPECT_THAT(page, testing::HasSubstr("[ 3 3 ] 0 d\r\n28.333 813.167 m\r\n56.667 813.167 l\r\n0.035 0.031 0.027 RG\r\n2.833 w S\r\n"));
  EXPECT_THAT(page, testing::HasSubstr("28.333 813.167 28.333 -28.333 re B\r\n0 G\r\n0.283 w S\r\n"));
  EXPECT_THAT(page, testing::HasSubstr("0.283 w s\r\n%DEBUT_POLY/%"));
  EXPECT_EQ(page.find("%DEBUT_POLY/%"), page.rfind("%DEBUT_POLY/%"));
}

TEST_F(ClassPrintTest, AfterEndPageElementsReachThePdfOnly) {
  print->BEGIN_PAGE(false);
  print->TEXT_ADD(10, 10, "before");
  print->END_PAGE();
  EXPECT_EQ(print->TEXT_ADD(10, 20, "after", 1, 0, 1), 1);
  print->END_PAGE();
  EXPECT_THAT(PlayedTexts(1), ElementsAre("before"));
  EXPECT_THAT(PdfTextsOf(1), ElementsAre("before", "after "));
}

TEST_F(ClassPrintTest, APageIsStampedOnceAndTheElementGoesToTheLastPage) {
  for (int page = 0; page < 2; ++page) {
    print->BEGIN_PAGE(false);
    print->TEXT_ADD(10, 10, "x");
  }
  print->END_PAGE();
  std::string first = print->pages()[0].FileName;
  for (int total : {0, 2, 7}) print->MAX_PAGE(1, 196, 283, total);
  print->MAX_PAGE(0, 196, 283, 2);
  print->MAX_PAGE(3, 196, 283, 2);
  EXPECT_EQ(print->pages()[0].StampedTotal, 2);
  EXPECT_THAT(PlayedTexts(1), ElementsAre("x", "2"));
  EXPECT_EQ(std::lround(Played(1)[1].area.left), 1960);
  EXPECT_EQ(std::lround(Played(1)[1].area.top), 2830);
  EXPECT_THAT(PlayedTexts(2), ElementsAre("x"));
  EXPECT_THAT(PdfTextsOf(1), ElementsAre("x"));
  EXPECT_THAT(PdfTextsOf(2), ElementsAre("x", "2"));
  // The old file is left to the end of the program.
  EXPECT_TRUE(surroundings.files.FileExists(first));
  EXPECT_THAT(program.TempPageFiles, testing::UnorderedElementsAre(first, print->pages()[0].FileName, print->pages()[1].FileName));
  print.reset();
  EXPECT_TRUE(surroundings.files.FileExists(first));
  surroundings.files.Remove(first);
}

TEST_F(ClassPrintTest, APageUnderRecordingIsMarkedButNotStamped) {
  print->BEGIN_PAGE(false);
  print->MAX_PAGE(1, 10, 10, 5);
  EXPECT_EQ(print->pages()[0].StampedTotal, 5);
  EXPECT_THAT(print->elements(), IsEmpty());
  print->END_PAGE();
  print->MAX_PAGE(1, 10, 10, 5);
  EXPECT_THAT(print->elements(), IsEmpty());
}

TEST_F(ClassPrintTest, FieldsOfATableHead) {
  print->BEGIN_PAGE(false);
  print->FIELD_ADD("a", 10, 20, 30, 6, Rgb(0, 100, 255));
  print->SetFldStyle(1);
  print->FIELD_ADD("b", 10, 20, 30, 6, 0);
  print->SetFldStyle(2);
  print->FIELD_ADD("c", 10, 20, 30, 6, 0);
  const auto& elements = print->elements();
  ASSERT_EQ(elements.size(), 6u);
  EXPECT_EQ(elements[0].Kind, ElementKind::kRectangle);
  EXPECT_EQ(elements[0].Colour, Rgb(229, 239, 255));  // 229.5 and 239.5 are cut
  EXPECT_THAT(elements[1].Y, ElementsAre(20, 20));
  EXPECT_EQ(elements[2].X[0], 11);
  EXPECT_FLOAT_EQ(elements[2].Y[0], 20.75f + 12 * 0.0333f);
  EXPECT_THAT(elements[4].Y, ElementsAre(26, 26));
  EXPECT_EQ(elements[4].WidthStyle, 2);
  EXPECT_FALSE(elements[2].Bold);
  EXPECT_TRUE(elements[5].Bold);
  print->TEXT_ADD(0, 0, "d");
  EXPECT_FALSE(print->elements().back().Bold);
  EXPECT_EQ(ClassPRINT::MixColour(Rgb(255, 255, 255), Rgb(255, 255, 255), 0.9), Rgb(255, 255, 255));
  EXPECT_EQ(ClassPRINT::MixColour(Rgb(1, 2, 3), Rgb(255, 255, 255), -1), Rgb(1, 2, 3));
  EXPECT_EQ(ClassPRINT::MixColour(Rgb(1, 2, 3), Rgb(255, 254, 253), 2), Rgb(255, 254, 253));
}

TEST_F(ClassPrintTest, APictureIsDecodedOnceAndMadeNoFinerThanPaper) {
  OnePicture pictures;
  Platform platform = surroundings.With(pictures);
  Program other(platform);
  ClassPRINT job(other);
  surroundings.files.WriteAll(surroundings.folder / "logo.img", "a picture");
  for (int page = 0; page < 3; ++page) {
    job.BEGIN_PAGE(false);
    job.IMAGE_ADD(10, 10, 11, 12, " " + (surroundings.folder / "logo.img") + " ");  // 1 mm holds 24 of the 100 columns
    job.IMAGE_ADD(10, 10, 11, 12, surroundings.folder / "missing.img");
  }
  job.END_PAGE();
  EXPECT_EQ(pictures.decoded, 1);
  EXPECT_THAT(job.elements(), SizeIs(6));
  EXPECT_EQ(job.elements()[0].Text, surroundings.folder / "logo.img");
  std::string file = FileContent(job.pages()[0].FileName);
  PageFileReader reader(file);
  EmfRecord type;
  std::string_view record;
  std::vector<size_t> sizes;
  while (reader.Next(type, record)) {
    if (type == EmfRecord::kPicture) sizes.push_back(record.size());
  }
  EXPECT_THAT(sizes, ElementsAre(120u + 50 * 152));  // half as fine each way
  RecordingCanvas canvas(2100, 2970);
  job.PRINT_PAGE_(1, &canvas, 10);
  EXPECT_EQ(canvas.calls().at(0).area, (RectF{100, 100, 110, 120}));
}

TEST_F(ClassPrintTest, PreviewPaintsSheetAndPageWhereTheySee) {
  print->BEGIN_PAGE(false);
  print->LINE_ADD(0, 0, 210, 297, 0);
  print->END_PAGE();
  RecordingCanvas canvas(1000, 1000);
  float x = 20, y = 30;
  bool sheet = true;
  print->DISPLAY_PAGE_(1, canvas, 2, x, y, sheet, Rgb(9, 9, 9));
  const std::vector<Call>& calls = canvas.calls();
  ASSERT_EQ(calls.size(), 5u);
  EXPECT_EQ(calls[0].area, (RectF{34, 52, 454, 646}));  // margins 5 and 6 mm, shadow 2 mm off
  EXPECT_EQ(calls[0].colour, Rgb(9, 9, 9));
  EXPECT_EQ(calls[1].area, (RectF{30, 48, 450, 642}));
  EXPECT_EQ(calls[3].area, (RectF{40, 60, 440, 630}));
  EXPECT_EQ(calls[3].pen.style, PenStyle::kDot);
  EXPECT_EQ(calls[4].area, (RectF{30, 50, 450, 644}));  // down by the horizontal margin as well
  canvas.Clear();
  y = 520;
  print->DISPLAY_PAGE_(1, canvas, 2, x, y, sheet, 0);
  EXPECT_THAT(canvas.calls(), IsEmpty());
  y = 30;
  surroundings.files.Remove(print->pages()[0].FileName);
  print->DISPLAY_PAGE_(1, canvas, 2, x, y, sheet, 0);
  EXPECT_EQ(canvas.calls().size(), 4u);  // the sheet without content
}

}  // namespace
}  // namespace ostrinka
