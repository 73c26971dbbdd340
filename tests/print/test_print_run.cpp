// The print run: copies, page totals, the PDF.
#include <gtest/gtest.h>

#include "print/print_options.h"
#include "print/print_run.h"
#include "print/sales_fixture.h"

namespace ostrinka {
namespace {

class PrintRunTest : public SalesFixture {
 protected:
  int32_t Document(int lines, int32_t type = 1) {
    AddDocument(AddCustomer("Kleks"), 21, {{"TYP", type}});
    const int32_t article =
        AddArticle("Toner do drukarki laserowej, wydajność 2500 stron przy pokryciu 5 procent, gwarancja producenta 24 miesiące");
    for (int i = 0; i < lines; ++i) AddLine(article, "1", "10", "12,2");
    return document_;
  }
  // Page number and stamped total of each page.
  std::vector<std::pair<int, int>> Pages() {
    std::vector<std::pair<int, int>> pages;
    for (const PageRecord& page : Job().pages()) pages.emplace_back(page.PageNumber, page.StampedTotal);
    return pages;
  }
  std::vector<std::string> Labels() {
    std::vector<std::string> labels;
    for (const PlacedText& text : Texts()) {
      if (std::abs(text.size - 12) < 0.01) labels.push_back(text.text);
    }
    return labels;
  }
};

TEST_F(PrintRunTest, EachModeWritesItsCopies) {
  const struct {
    PrintMode mode;
    std::vector<const char*> keys;
  } rows[] = {
      {PrintMode::kOriginalAndCopy, {"sdoc.ct.org", "sdoc.ct.cop"}},
      {PrintMode::kOriginalAndTwoCopies, {"sdoc.ct.org", "sdoc.ct.cop", "sdoc.ct.cop"}},
      {PrintMode::kOriginalCopyInOne, {"sdoc.ct.coo"}},
      {PrintMode::kOriginal, {"sdoc.ct.org"}},
      {PrintMode::kCopy, {"sdoc.ct.cop"}},
      {PrintMode::kDuplicate, {"sdoc.ct.dup"}},
  };
  const int32_t document = Document(1);
  for (const auto& row : rows) {
    BuildDocumentJob(*program, document, row.mode, false);
    std::vector<std::string> labels;
    for (const char* key : row.keys) labels.push_back(Text(key));
    EXPECT_EQ(Labels(), labels) << static_cast<int>(row.mode);
    EXPECT_EQ(Find(Text("sdoc.dupdate")).size(), row.mode == PrintMode::kDuplicate ? 1u : 0u) << static_cast<int>(row.mode);
  }
  EXPECT_EQ(Table(*program, kDokSprzed).RECORD_POSITION(), document);
}

TEST_F(PrintRunTest, AProFormaIsPrintedOnceWithoutALabelWhateverTheMode) {
  const int32_t document = Document(1, 2);
  for (const int mode : {1, 5, 42}) {
    BuildDocumentJob(*program, document, static_cast<PrintMode>(mode), false);
    EXPECT_EQ(Job().Page(), 1) << mode;
    EXPECT_TRUE(Labels().empty()) << mode;
    EXPECT_FALSE(Find("Faktura VAT PRO FORMA NR 21 / 2008").empty());
  }
  EXPECT_TRUE(surroundings.ui.messages.empty());
}

TEST_F(PrintRunTest, EveryCopyCountsItsOwnPages) {
  BuildDocumentJob(*program, Document(25), PrintMode::kOriginalAndCopy, false);
  EXPECT_EQ(Pages(), (std::vector<std::pair<int, int>>{{1, 2}, {2, 2}, {1, 2}, {2, 2}}));
  ExpectCleanPages();
}

TEST_F(PrintRunTest, AnUnknownModeIsReportedAndReplacesTheJobWithAnEmptyOne) {
  const int32_t document = Document(1);
  BuildDocumentJob(*program, document, PrintMode::kOriginalAndCopy, false);
  for (const int mode : {-1, 6}) {
    BuildDocumentJob(*program, document, static_cast<PrintMode>(mode), false);
    EXPECT_EQ(Job().Page(), 0);
    EXPECT_TRUE(Job().elements().empty());
  }
  ASSERT_EQ(surroundings.ui.messages.size(), 2u);
  EXPECT_EQ(surroundings.ui.messages[0], std::make_pair(Text("msg.info.error"), MessageKind::kError));
}

TEST_F(PrintRunTest, ThePdfGetsItsExtensionAndTheStatusItsText) {
  const struct {
    std::optional<std::string> answer;
    const char* file;  // null: none is written
  } rows[] = {{"a.PDF", "a.PDF"}, {"b", "b.pdf"}, {"c.pdf.txt", "c.pdf.txt.pdf"}, {std::string("d\0.pdf", 6), "d.pdf"},
              {"pdf", "pdf.pdf"}, {"", nullptr},  {std::nullopt, nullptr}};
  const int32_t document = Document(1);
  size_t files = 0;
  for (const auto& row : rows) {
    const std::string folder = surroundings.folder / "out/";
    surroundings.files.MakeFolder(folder);
    surroundings.ui.status.clear();
    surroundings.ui.file_answers.push_back(row.answer && !row.answer->empty() ? std::optional(folder + *row.answer) : row.answer);
    BuildDocumentJob(*program, document, PrintMode::kOriginal, true);
    if (row.file) {
      std::string content;
      ASSERT_TRUE(surroundings.files.ReadAll(folder + row.file, content)) << row.file;
      EXPECT_TRUE(StartsWith(content, "%PDF-1.3"));
      ++files;
      EXPECT_EQ(surroundings.ui.status, (std::vector<std::string>{Text("mdi.pdf.pleasewait"), ""}));
    } else {
      EXPECT_TRUE(surroundings.ui.status.empty());
    }
    EXPECT_EQ(surroundings.files.ListFiles(folder).size(), files);
  }
  surroundings.ui.file_answers.push_back(surroundings.folder / "no such folder/a.pdf");
  BuildDocumentJob(*program, document, PrintMode::kOriginal, true);
  ASSERT_FALSE(surroundings.ui.messages.empty());
  EXPECT_EQ(surroundings.ui.messages.back().first, Text("msg.info.error"));
}

TEST_F(PrintRunTest, EverySheetGoesToThePrinterInItsOwnDirection) {
  TestPrinter& printer = surroundings.printer;
  printer.state = Printer::State::kReady;
  EXPECT_TRUE(PrintOneDocument(*program, Document(25), PrintMode::kOriginal));
  EXPECT_EQ(printer.calls, (std::vector<std::string>{"Velmora.Ostrinka", "portrait", "portrait", "finished"}));
  EXPECT_EQ(surroundings.ui.status.back(), program->Text("prntpv.printed", {"Biuro"}));
  // A text stands where the element list has it, at 10 pixels a mm.
  const PlacedText label = Find(Text("sdoc.info.sdate")).at(0);
  int found = 0;
  for (const RecordingCanvas::Call& call : printer.sheets[0]->calls()) {
    if (TrimWhite(call.text) != label.text) continue;
    ++found;
    EXPECT_NEAR(call.area.top, label.top * 10, 25);
  }
  EXPECT_EQ(found, 1);

  // A sheet that the printer refuses is passed over; the others come out.
  CurrentPrintJob(*program)->BEGIN_PAGE(true);
  CurrentPrintJob(*program)->TEXT_ADD(10, 10, "na szerokość");
  CurrentPrintJob(*program)->END_PAGE();
  printer.calls.clear();
  printer.sheets.clear();
  printer.failing = 2;
  EXPECT_TRUE(RunPrinter(*program));
  EXPECT_EQ(printer.calls, (std::vector<std::string>{"Velmora.Ostrinka", "portrait", "portrait", "landscape", "finished"}));
  EXPECT_TRUE(printer.sheets[1]->calls().empty());
  EXPECT_FALSE(printer.sheets[2]->calls().empty());
  EXPECT_TRUE(surroundings.ui.messages.empty());
}

TEST_F(PrintRunTest, AJobThatIsReplacedWhileItPrintsComesOutWhole) {
  surroundings.printer.state = Printer::State::kReady;
  BuildDocumentJob(*program, Document(25), PrintMode::kOriginal, false);
  int turns = 0;
  surroundings.ui.on_turn = [&] {
    EXPECT_GT(surroundings.ui.busy, 0);  // the person's keys wait
    if (++turns == 1) CurrentPrintJob(*program).reset();
  };
  EXPECT_TRUE(RunPrinter(*program));
  EXPECT_EQ(surroundings.printer.sheets.size(), 2u);
  EXPECT_FALSE(surroundings.printer.sheets[1]->calls().empty());
  EXPECT_EQ(turns, 2);
  surroundings.ui.on_turn = nullptr;
  EXPECT_EQ(surroundings.ui.busy, 0);
}

TEST_F(PrintRunTest, WithoutAPrinterTheJobSurvives) {
  const int32_t document = Document(1);
  const struct {
    Printer::State state;
    const char* key;
  } rows[] = {{Printer::State::kMissing, "msg.info.printernotfound"}, {Printer::State::kBroken, "msg.info.printerror"}};
  for (const auto& row : rows) {
    surroundings.printer.state = row.state;
    EXPECT_FALSE(PrintOneDocument(*program, document, PrintMode::kOriginal));
    EXPECT_EQ(surroundings.ui.messages.back(), std::make_pair(Text(row.key), MessageKind::kError));
    EXPECT_TRUE(surroundings.printer.sheets.empty());
    EXPECT_EQ(Job().Page(), 1);
  }
  surroundings.ui.file_answers.push_back(surroundings.folder / "saved.pdf");
  SaveJobAsPdf(*program);
  EXPECT_GT(surroundings.files.FileSize(surroundings.folder / "saved.pdf"), 0);
}

// Keeps the sheets that it is given.
class TestEmbeddedPdf : public EmbeddedPdf {
 public:
  bool arial = false, works = true;
  std::string path;
  std::vector<std::pair<double, double>> sizes;
  RecordingCanvas canvas{2100, 2970};

  bool HasArial() override { return arial; }
  bool Start(const std::string& file) override {
    path = file;
    sizes.clear();
    return works;
  }
  Canvas* StartPage(double width, double height, double& pixels_per_mm) override {
    pixels_per_mm = 10;
    sizes.emplace_back(width, height);
    return &canvas;
  }
  bool Finish() override { return works; }
};

TEST_F(PrintRunTest, TheSecondKindOfPdfIsOfferedWhereThereIsOneAndTheChoiceIsRemembered) {
  TestUserInterface& ui = surroundings.ui;
  const std::string path = surroundings.folder / "a.pdf";
  const auto save = [&](std::optional<size_t> chosen, std::optional<std::string> answer) {
    ui.chosen_filter = chosen;
    ui.file_answers.push_back(answer);
    BuildDocumentJob(*program, document_, PrintMode::kOriginalAndCopy, true);
  };
  Document(1);
  save({}, path);
  EXPECT_EQ(ui.save_filters.size(), 1u);
  EXPECT_TRUE(ui.messages.empty());

  TestEmbeddedPdf embedded;
  surroundings.platform.embedded_pdf = &embedded;
  save(0, path);
  ASSERT_EQ(ui.save_filters.size(), 2u);
  EXPECT_EQ(ui.save_filters[0].name, "Portable Document Format (*.pdf)");
  EXPECT_EQ(ui.save_filters[1].name, "PDF z osadzonymi czcionkami (*.pdf)");
  EXPECT_EQ(ui.messages, (std::vector{std::make_pair(Text("msg.info.pdffonts"), MessageKind::kInformation)}));
  save(0, path);
  EXPECT_EQ(ui.messages.size(), 1u);  // told once

  save(1, surroundings.folder / "b");
  EXPECT_EQ(embedded.path, surroundings.folder / "b.pdf");
  EXPECT_EQ(embedded.sizes, (std::vector<std::pair<double, double>>{{210, 297}, {210, 297}}));
  EXPECT_FALSE(embedded.canvas.calls().empty());
  EXPECT_LT(surroundings.files.FileSize(surroundings.folder / "b.pdf"), 0);
  save(0, std::nullopt);  // who cancels has chosen nothing
  EXPECT_EQ(ui.proposed_filter, 1u);
  save({}, path);
  EXPECT_EQ(ui.proposed_filter, 1u);
  EXPECT_EQ(ui.messages.size(), 1u);
  embedded.works = false;
  save({}, path);
  EXPECT_EQ(ui.messages.back().first, Text("msg.info.error"));
}

TEST_F(PrintRunTest, TheLastFooterFlagOfDataIniWins) {
  const struct {
    const char* content;
    bool shown;
  } rows[] = {{"", true},       {"FFV-\r\n", false}, {" ffv- \n", false}, {"FFV-\r\nFFV+\r\n", true}, {"FFV+\nabc\nFFV-", false},
              {"XFFV-\n", true}};
  const int32_t document = Document(1);
  EXPECT_TRUE(ReadFooterFlag(*program));
  for (const auto& row : rows) {
    ASSERT_TRUE(surroundings.files.WriteAll(DataFolder() + "data.ini", row.content));
    EXPECT_EQ(ReadFooterFlag(*program), row.shown) << row.content;
    BuildDocumentJob(*program, document, PrintMode::kOriginal, false);
    EXPECT_EQ(Find("Ostrinka 2008").size(), row.shown ? 1u : 0u) << row.content;
  }
}

TEST_F(PrintRunTest, TheThemeOfTheSettingsSetsTheHeads) {
  const auto rectangles = [&] {
    return std::count_if(Job().elements().begin(), Job().elements().end(),
                         [](const PageElement& e) { return e.Kind == ElementKind::kRectangle; });
  };
  const int32_t document = Document(2);
  BuildDocumentJob(*program, document, PrintMode::kOriginal, false);
  EXPECT_GT(rectangles(), 0);
  Setting("prgSettings", "DocStyle", "1");
  BuildDocumentJob(*program, document, PrintMode::kOriginal, false);
  EXPECT_EQ(rectangles(), 0);
  ExpectCleanPages();
}

}  // namespace
}  // namespace ostrinka
