// The print preview: zoom, the stack of sheets, what is drawn of it, the place of its window.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "platform/recording_canvas.h"
#include "print/doc_preview.h"
#include "print/print.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

using Call = RecordingCanvas::Call;
constexpr Colour kShadow = Rgb(90, 90, 90), kPaper = Rgb(255, 255, 255);

// Takes every sheet, and counts them.
class CountingPrinter : public NoPrinter {
 public:
  State state = State::kReady;
  std::vector<bool> landscape;
  State Query() override { return state; }
  bool StartDocument(const std::string&) override { return true; }
  Canvas* StartPage(bool across, double& pixels_per_mm) override {
    landscape.push_back(across);
    pixels_per_mm = 10;
    return &sheet_;
  }
  bool EndPage() override { return true; }
  bool EndDocument() override { return true; }

 private:
  RecordingCanvas sheet_{2100, 2970};
};

class DocPreviewTest : public testing::Test {
 protected:
  DocPreviewTest() {
    std::string content;
    EXPECT_TRUE(surroundings.files.ReadAll(OSTRINKA_SOURCE "/resources/program.lang", content));
    EXPECT_TRUE(surroundings.files.WriteAll(platform.application_folder + "program.lang", content));
    program.catalogue.LoadProgramCatalogue("program.lang");
    CurrentPrintJob(program) = std::make_shared<ClassPRINT>(program);
  }
  ~DocPreviewTest() override { CurrentPrintJob(program).reset(); }

  ClassPRINT& Job() { return *CurrentPrintJob(program); }
  void AddPage(bool landscape) {
    Job().BEGIN_PAGE(landscape);
    Job().TEXT_ADD(20, 30, "Strona %p");
    Job().LINE_ADD(10, 10, 190, 10, 0, 2);
    Job().RECT_ADD(10, 180, 100, 190, Rgb(1, 2, 3));
    Job().END_PAGE();
  }
  static std::vector<Call> Drawn(const frm_DocPreview& preview, double top, double bottom) {
    RecordingCanvas canvas(10000, 1000000);
    preview.ref_(canvas, kShadow, top, bottom);
    return canvas.calls();
  }
  static std::vector<RectF> Papers(const std::vector<Call>& calls) {
    std::vector<RectF> papers;
    for (const Call& call : calls) {
      if (call.kind == Call::Kind::kFill && call.colour == kPaper) papers.push_back(call.area);
    }
    return papers;
  }
  std::string Stored(const char* key) { return program.settings.Text(kOstrinka, "Windows\\DocPreview", key, "none"); }
  void Store(const char* key, const std::string& value) { program.settings.SaveSettingValue(kOstrinka, "Windows\\DocPreview", key, value); }

  TestPlatform surroundings;
  CountingPrinter printer;
  Platform platform = surroundings.With(printer);
  Program program{platform};
};

TEST_F(DocPreviewTest, TheZoomGoesInQuartersFromAQuarterToTwiceAndStaysThere) {
  AddPage(false);
  frm_DocPreview preview(program);
  int drawn = 0;
  preview.Repaint += [&] { ++drawn; };
  EXPECT_EQ(preview.PercentText(), "100%");
  for (const char* percent : {"125%", "150%", "175%", "200%"}) {
    EXPECT_TRUE(preview.UserCommand("ZOOM.+"));
    EXPECT_EQ(preview.PercentText(), percent);
  }
  EXPECT_FALSE(preview.Enabled("ZOOM.+"));
  EXPECT_FALSE(preview.UserCommand("ZOOM.+"));
  EXPECT_EQ(preview.zoom(), 2.0);
  EXPECT_EQ(preview.Scale(), 6.5);
  EXPECT_TRUE(preview.UserCommand("ZOOM.100"));
  EXPECT_EQ(preview.zoom(), 1.0);
  for (const char* percent : {"75%", "50%", "25%"}) {
    EXPECT_TRUE(preview.UserCommand("ZOOM.-"));
    EXPECT_EQ(preview.PercentText(), percent);
  }
  EXPECT_FALSE(preview.UserCommand("ZOOM.-"));
  EXPECT_EQ(preview.PercentText(), "25%");
  EXPECT_TRUE(preview.Enabled("ZOOM.+"));
  EXPECT_EQ(drawn, 8);
  EXPECT_FALSE(preview.UserCommand("ZOOM.50"));
}

TEST_F(DocPreviewTest, SheetsStandOneBelowTheOtherFiveMillimetresApartInTheMiddleOfTheWidest) {
  for (const bool landscape : {false, true, false}) AddPage(landscape);
  frm_DocPreview preview(program);
  for (const char* command : {"ZOOM.-", "ZOOM.100", "ZOOM.+"}) {
    preview.UserCommand(command);
    const double scale = preview.Scale();
    EXPECT_EQ(preview.Width(), 297 * scale);
    EXPECT_EQ(preview.Height(), (297 + 5 + 210 + 5 + 297) * scale);
    const RectF sheets[] = {{43.5 * scale, 0, 253.5 * scale, 297 * scale},
                            {0, 302 * scale, 297 * scale, 512 * scale},
                            {43.5 * scale, 517 * scale, 253.5 * scale, 814 * scale}};
    const std::vector<RectF> papers = Papers(Drawn(preview, 0, preview.Height()));
    ASSERT_EQ(papers.size(), 3u);
    for (int page = 1; page <= 3; ++page) {
      EXPECT_EQ(preview.Sheet(page), sheets[page - 1]) << page;
      EXPECT_NEAR(papers[static_cast<size_t>(page - 1)].left, sheets[page - 1].left, 0.001);
      EXPECT_NEAR(papers[static_cast<size_t>(page - 1)].bottom, sheets[page - 1].bottom, 0.001);
    }
    const struct {
      double mm;
      int page;
    } places[] = {{-10, 1}, {0, 1}, {296, 1}, {301, 1}, {302.5, 2}, {516, 2}, {517.5, 3}, {5000, 3}};
    for (const auto& place : places) EXPECT_EQ(preview.PageAt(place.mm * scale), place.page) << place.mm;
  }
  EXPECT_EQ(preview.PlaceText(2), "Strona 2 z 3");
  EXPECT_EQ(preview.Sheet(4), RectF{});
}

// Top and bottom of what a call leaves on the surface.
std::pair<double, double> Reach(const Call& call) {
  const double thick = call.kind == Call::Kind::kText ? call.font.height : 0;
  return {std::min(call.area.top, call.area.bottom), std::max(call.area.top, call.area.bottom) + thick};
}

TEST_F(DocPreviewTest, AStripDrawsWhatTheWholeDrawingHasThereAndNoSheetMore) {
  constexpr int kPages = 300;
  for (int page = 1; page <= kPages; ++page) AddPage(page % 7 == 0);
  frm_DocPreview preview(program);
  const auto same = [](const Call& a, const Call& b) {
    return a.kind == b.kind && a.area == b.area && a.text == b.text && a.colour == b.colour && a.pen.width == b.pen.width;
  };
  for (const char* command : {"ZOOM.100", "ZOOM.-", "ZOOM.+", "ZOOM.+", "ZOOM.+"}) {
    preview.UserCommand(command);
    const std::vector<Call> whole = Drawn(preview, 0, preview.Height());
    EXPECT_EQ(Papers(whole).size(), static_cast<size_t>(kPages));
    const double sheet_7 = preview.Sheet(7).top, end = preview.Height(), mm = preview.Scale();
    // Across sheets, within one, where only a shadow reaches in, in the gap alone, at both ends, and beyond.
    const std::pair<double, double> strips[] = {{sheet_7 - 100, sheet_7 + 500},
                                                {sheet_7 + 20, sheet_7 + 60},
                                                {sheet_7 - 4 * mm, sheet_7 - mm},
                                                {sheet_7 - 2 * mm, sheet_7 - mm},
                                                {-50, 300},
                                                {end - 200, end + 400},
                                                {end + 100, end + 400}};
    for (const auto& [top, bottom] : strips) {
      const std::vector<Call> strip = Drawn(preview, top, bottom);
      const auto at = std::search(whole.begin(), whole.end(), strip.begin(), strip.end(), same);
      ASSERT_TRUE(strip.empty() || at != whole.end()) << top;
      for (auto call = whole.begin(); call != whole.end(); ++call) {
        if (call >= at && call < at + static_cast<std::ptrdiff_t>(strip.size())) continue;
        EXPECT_TRUE(Reach(*call).second <= top || Reach(*call).first >= bottom) << "left out at " << top << " of " << preview.PercentText();
      }
      for (const RectF& paper : Papers(strip)) EXPECT_TRUE(paper.top < bottom && paper.bottom + 2 * mm > top);
    }
  }
}

TEST_F(DocPreviewTest, TheWindowsPlaceIsWrittenAtClosingAndReadAtLoading) {
  AddPage(false);
  {
    frm_DocPreview preview(program);
    EXPECT_FALSE(preview.placement) << "it was never placed";
    preview.placement = {12.5f, -40, 900, 700, 2};
    int closed = 0;
    preview.Closed += [&] { ++closed; };
    preview.UserCommand("ZOOM.+");
    EXPECT_EQ(Stored("Left"), "none");
    EXPECT_TRUE(preview.UserCommand("CLOSE"));
    EXPECT_FALSE(preview.IsOpen());
    EXPECT_FALSE(preview.UserCommand("CLOSE"));
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(Stored("Height"), "700");
    EXPECT_EQ(Stored("WinState"), "2");
  }
  const frm_DocPreview again(program);
  ASSERT_TRUE(again.placement);
  EXPECT_EQ(again.placement->left, 12.5f);
  EXPECT_EQ(again.placement->top, -40);
  EXPECT_EQ(again.placement->width, 900);
  EXPECT_EQ(again.placement->height, 700);
  EXPECT_EQ(again.placement->state, 2);
  EXPECT_EQ(again.zoom(), 1.0) << "each preview starts at its plain size";
}

TEST_F(DocPreviewTest, ADamagedPlaceCountsAsNone) {
  const std::pair<const char*, const char*> whole[] = {
      {"Left", "10"}, {"Top", "20"}, {"Width", "900"}, {"Height", "700"}, {"WinState", "0"}};
  const std::pair<const char*, const char*> damages[] = {{"Left", "abc"}, {"Top", "1e30"}, {"Width", "0"}, {"Height", "-5"}, {"Width", ""}};
  for (const auto& [key, value] : damages) {
    for (const auto& [good_key, good_value] : whole) Store(good_key, good_value);
    EXPECT_TRUE(frm_DocPreview(program).placement);
    Store(key, value);
    EXPECT_FALSE(frm_DocPreview(program).placement) << key << " " << value;
  }
}

TEST_F(DocPreviewTest, PrintSendsEverySheetAndTakesNoOtherCommandMeanwhile) {
  for (const bool landscape : {false, true}) AddPage(landscape);
  frm_DocPreview preview(program);
  int refused = 0;
  surroundings.ui.on_turn = [&] {
    for (const char* command : {"PRINT", "CLOSE", "ZOOM.+"}) refused += preview.UserCommand(command) ? 0 : 1;
  };
  EXPECT_TRUE(preview.UserCommand("PRINT"));
  EXPECT_EQ(printer.landscape, (std::vector<bool>{false, true}));
  EXPECT_GE(refused, 3);
  EXPECT_EQ(refused % 3, 0) << "all of them";
  EXPECT_TRUE(preview.IsOpen());
  printer.state = Printer::State::kMissing;
  EXPECT_TRUE(preview.UserCommand("PRINT"));
  ASSERT_EQ(surroundings.ui.messages.size(), 1u);
  EXPECT_EQ(printer.landscape.size(), 2u);
  EXPECT_TRUE(preview.UserCommand("ZOOM.+")) << "the job is still there";
}

TEST_F(DocPreviewTest, MakePdfWritesTheJobOnShow) {
  AddPage(false);
  frm_DocPreview preview(program);
  surroundings.ui.file_answers.push_back(surroundings.folder / "a.pdf");
  EXPECT_TRUE(preview.UserCommand("MAKEPDF"));
  std::string content;
  ASSERT_TRUE(surroundings.files.ReadAll(surroundings.folder / "a.pdf", content));
  EXPECT_TRUE(content.starts_with("%PDF-1.3"));
}

TEST_F(DocPreviewTest, AnEmptyJobHasNothingToPrintOrDraw) {
  for (const bool job : {true, false}) {
    if (!job) CurrentPrintJob(program).reset();
    frm_DocPreview preview(program);
    for (const char* command : {"PRINT", "MAKEPDF"}) EXPECT_FALSE(preview.UserCommand(command));
    EXPECT_EQ(preview.PageAt(10), 0);
    EXPECT_EQ(preview.Height(), 0);
    EXPECT_TRUE(Drawn(preview, 0, 1000).empty());
    EXPECT_TRUE(preview.UserCommand("CLOSE"));
  }
}

TEST_F(DocPreviewTest, TheWordsOfAPageHaveItsNumber) {
  for (int page = 0; page < 2; ++page) AddPage(false);
  const frm_DocPreview preview(program);
  EXPECT_EQ(preview.WordsOf(2), "Strona 2");
  EXPECT_EQ(preview.WordsOf(3), "");
}

}  // namespace
}  // namespace ostrinka
