// Copies in a job beside sheets of another size; the options that a job begins with; a logo that cannot be read.
#include <gtest/gtest.h>

#include "platform/posix/picture_decoder.h"
#include "print/document_copies.h"
#include "print/page_flow.h"
#include "print/print_run.h"
#include "print/sales_fixture.h"
#include "support/picture_files.h"

namespace ostrinka {
namespace {

class DocumentCopiesTest : public SalesFixture {
 protected:
  void Document(int lines) {
    AddDocument(AddCustomer("Kleks"), 21);
    const int32_t article = AddArticle("Toner do drukarki laserowej");
    for (int i = 0; i < lines; ++i) AddLine(article, "1", "10", "12,2");
  }
  // A landscape sheet with a text.
  void AppendSheet(PrintJob& job) {
    job.print->CLEAR_PAGE_NUMBER_();
    PageFlow flow(job, {.landscape = true});
    flow.FirstPage();
    flow.Line(20, 20, "na szerokość");
  }
  std::string FileOf(int page) {
    std::string content;
    EXPECT_TRUE(surroundings.files.ReadAll(Job().pages()[static_cast<size_t>(page - 1)].FileName, content));
    return content;
  }
};

TEST_F(DocumentCopiesTest, TotalsAreStampedOnThePagesOfTheCopyJustAddedAlone) {
  Document(45);
  PrintJob job = NewPrintJob(*program);
  AppendSheet(job);
  const std::string sheet = FileOf(1);
  AppendDocument(job, {document_, true, "ORYGINAŁ"});
  AppendSheet(job);
  AppendDocument(job, {document_, false, "KOPIA"});
  ASSERT_EQ(Job().Page(), 6);
  const struct {
    bool landscape;
    int number, total;
  } rows[] = {{true, 1, 0}, {false, 1, 2}, {false, 2, 2}, {true, 1, 0}, {false, 1, 2}, {false, 2, 2}};
  for (size_t page = 0; page < 6; ++page) {
    const PageRecord& record = Job().pages()[page];
    EXPECT_EQ(record.Width > record.Height, rows[page].landscape) << page;
    EXPECT_EQ(record.PageNumber, rows[page].number) << page;
    EXPECT_EQ(record.StampedTotal, rows[page].total) << page;
  }
  EXPECT_EQ(FileOf(1), sheet);
  // The stamps stand by their own sheet's corner: played, the total ends the line of the page number.
  for (const int page : {2, 3, 5, 6}) {
    RecordingCanvas canvas(2100, 2970);
    Job().PRINT_PAGE_(page, &canvas, 10);
    const auto& calls = canvas.calls();
    const auto total = std::find_if(calls.rbegin(), calls.rend(), [](const auto& call) { return TrimWhite(call.text) == "2"; });
    ASSERT_NE(total, calls.rend()) << page;
    EXPECT_NEAR(total->area.left, 1960, 20) << page;
    EXPECT_NEAR(total->area.top, 2830, 20) << page;
  }
  // Sheets of their own may be stamped as well.
  const int32_t first = Job().Page() + 1;
  AppendSheet(job);
  StampPageTotals(*job.print, first);
  EXPECT_EQ(Job().pages()[6].StampedTotal, 1);
  EXPECT_NEAR(Job().elements().back().X[0], 297 - 14, 0.01);
  EXPECT_NEAR(Job().elements().back().Y[0], 210 - 14, 0.5);
}

TEST_F(DocumentCopiesTest, AFurtherPageTellsWhichCopyItBelongsTo) {
  Document(45);
  BuildDocumentJob(*program, document_, PrintMode::kOriginalAndCopy, false);
  ASSERT_EQ(Job().Page(), 4);
  for (const auto& [page, label] : {std::pair(2, "ORYGINAŁ"), {4, "KOPIA"}}) {
    const PlacedText title = Only("Faktura VAT NR 21 / 2008", page), copy = Only(label, page);
    EXPECT_NEAR(copy.right, 200, 0.01);
    EXPECT_EQ(copy.top, title.top);
  }
  ExpectCleanPages();
  // A title of any length leaves room for it.
  Change(kDokumentKat, 1, {{"FORMAT", "[nr] / yyyy " + std::string(130, 'W')}});
  BuildDocumentJob(*program, document_, PrintMode::kOriginal, false);
  EXPECT_EQ(Find("ORYGINAŁ").size(), 2u);
  ExpectCleanPages();
}

TEST_F(DocumentCopiesTest, AJobKeepsTheOptionsThatItBeganWith) {
  const PrintOptions usual = ReadPrintOptions(*program);
  EXPECT_FALSE(usual.without_classification || usual.tax_number_first || usual.address_sheet);
  EXPECT_TRUE(usual.rate_note && usual.footer_credit);
  EXPECT_EQ(std::tuple(usual.address_left, usual.address_top, usual.head_style, usual.company.chosen_account_text),
            std::tuple(20, 20, 0, 0));
  for (const char* key : {"VDopNorPKWiU", "VDmdNIP", "VDAdrPWD"}) Setting("prgSettings", key, "True");
  Setting("prgSettings", "VDopAddUNBP", "False");
  Setting("prgSettings", "VDAdrPosX", "31");
  Setting("prgSettings", "VDAdrPosY", "42");
  Setting("prgSettings", "DocStyle", "1");
  User("konto_opis_id_", "3");
  User("swift", "  POLS ");
  const PrintOptions other = ReadPrintOptions(*program);
  EXPECT_TRUE(other.without_classification && other.tax_number_first && other.address_sheet);
  EXPECT_FALSE(other.rate_note);
  EXPECT_EQ(std::tuple(other.address_left, other.address_top, other.head_style, other.company.chosen_account_text),
            std::tuple(31, 42, 1, 3));
  EXPECT_EQ(other.company.B_SWIFT, "POLS");
  User("konto_opis_id_", "5");
  EXPECT_EQ(ReadPrintOptions(*program).company.chosen_account_text, 0);

  Document(1);
  PrintJob job = NewPrintJob(*program);
  AppendDocument(job, {document_, true, ""});
  Setting("prgSettings", "VDopNorPKWiU", "False");
  AppendDocument(job, {document_, true, ""});
  EXPECT_TRUE(Find("PKWiU").empty());
}

TEST_F(DocumentCopiesTest, ALogoThatCannotBeReadLeavesNoRoomAndIsToldOnce) {
  Document(2);
  BuildDocumentJob(*program, document_, PrintMode::kOriginal, false);
  const std::vector<PlacedText> without = Texts();
  FilePictureDecoder decoder(surroundings.files);
  Platform platform = surroundings.With(decoder);
  Program other(platform);
  other.catalogue.LoadProgramCatalogue("program.lang");
  bool ok = false;
  OSTEngine(other).open_(true, ok);
  ASSERT_TRUE(ok);
  const std::string logo = DataFolder() + "_logo.img", whole = PngOf(SixColours());
  const auto build = [&] {
    BuildDocumentJob(other, document_, PrintMode::kOriginalAndCopy, false);
    CurrentPrintJob(*program) = CurrentPrintJob(other);
  };
  const auto images = [&] {
    return std::count_if(Job().elements().begin(), Job().elements().end(),
                         [](const PageElement& e) { return e.Kind == ElementKind::kImage; });
  };
  for (const std::string& broken : {std::string("BM and nothing more"), whole.substr(0, 50), std::string()}) {
    ASSERT_TRUE(surroundings.files.WriteAll(logo, broken));
    build();
    EXPECT_EQ(images(), 0);
    const std::vector<PlacedText> with = Texts();
    for (size_t i = 0; i < without.size(); ++i) {
      EXPECT_EQ(with[i].text, without[i].text);
      EXPECT_EQ(with[i].top, without[i].top) << with[i].text;
      EXPECT_EQ(with[i].left, without[i].left) << with[i].text;
    }
  }
  EXPECT_EQ(surroundings.ui.messages, (std::vector{std::make_pair(Text("msg.info.logounreadable"), MessageKind::kWarning)}));
  ASSERT_TRUE(surroundings.files.WriteAll(logo, whole));
  build();
  EXPECT_EQ(images(), 2);
  EXPECT_EQ(surroundings.ui.messages.size(), 1u);
  CurrentPrintJob(*program).reset();
  CurrentPrintJob(other).reset();
  OSTEngine(other).close_(false);
}

}  // namespace
}  // namespace ostrinka
