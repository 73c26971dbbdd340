// The invoice as it stands on its pages: geometry, order, sums.
#include <gtest/gtest.h>

#include <set>

#include "base/format.h"
#include "print/print_run.h"
#include "print/sales_document_layout.h"
#include "print/sales_fixture.h"

namespace ostrinka {
namespace {

class InvoiceTest : public SalesFixture {
 protected:
  void Print(int32_t document) { BuildDocumentJob(*program, document, PrintMode::kOriginal, false); }

  void ThreeLines(int32_t document_customer) {
    AddDocument(document_customer, 17);
    AddLine(AddArticle("Usługa serwisowa"), "2", "100", "122");
    AddLine(AddArticle("Książka", 2), "3", "20,00", "21,40");
    AddLine(AddArticle("Szkolenie", 5), "1", "500,5", "500,5");
  }

  // Amounts that end at the right end of the column with that head, from the top of the page down.
  std::vector<double> Amounts(const std::string& head, const std::string& second, int page = 1) {
    double left = 0;
    for (const PlacedText& a : Find(head)) {
      for (const PlacedText& b : Find(second)) {
        if (a.text == head && b.text == second && a.page == page && b.page == page && a.left == b.left && a.bold) left = a.left - 1;
      }
    }
    double right = 200;
    for (const PageElement& element : Job().elements()) {
      const double x = static_cast<double>(element.X[0]);
      if (element.Kind == ElementKind::kLine && element.Page == page && element.X[0] == element.X[1] && x > left + 5)
        right = std::min(right, x);
    }
    std::vector<std::pair<double, double>> found;
    for (const PlacedText& text : Texts()) {
      if (text.page == page && text.align == -1 && std::abs(text.right - (right - 1)) < 0.01 && text.left >= left) {
        found.emplace_back(text.top, NumberOr0(text.text));
      }
    }
    std::sort(found.begin(), found.end());
    std::vector<double> amounts;
    for (const auto& [top, amount] : found) amounts.push_back(amount);
    return amounts;
  }
};

TEST_F(InvoiceTest, AnOrdinaryInvoiceStandsOnOnePageWithAllItsBlocks) {
  ThreeLines(AddCustomer("Hurtownia Papiernicza Kleks"));
  Print(document_);
  EXPECT_EQ(Job().Page(), 1);
  ExpectCleanPages();
  const char* in_order[] = {"Faktura VAT NR 17 / 2008", "ORYGINAŁ", "Sprzedawca", "Lp.",
                            "Usługa serwisowa",         "Razem",    "Do zapłaty", "Wystawił(a)"};
  double last = 0;
  for (const char* text : in_order) {
    const PlacedText placed = Only(text);
    EXPECT_GT(placed.top, last) << text;
    last = placed.top;
  }
  EXPECT_NEAR(Only("Faktura VAT NR 17 / 2008").size, 16, 0.01);
  EXPECT_NEAR(Only("ORYGINAŁ").size, 12, 0.01);
  for (const char* text : {"Żwirowa 12/3a", "63-400 Ostrów", "NIP: 622-000-11-22", "Hurtownia Papiernicza Kleks", "Lipowa 7",
                           "NIP: 521-000-22-33", "05-03-08", "04-03-08", "19-03-08", "Przelew 14 dni", "Ostrinka 2008"}) {
    EXPECT_FALSE(Find(text).empty()) << text;
  }
  EXPECT_EQ(Only("Sprzedawca").top, Only("Nabywca").top);
  EXPECT_LT(Only("Sprzedawca").left, Only("Nabywca").left);
}

TEST_F(InvoiceTest, RowsSumsAndPaymentAddUp) {
  ThreeLines(AddCustomer("Kleks"));
  Print(document_);
  // Rows, the total, then the rates in the order of their table.
  EXPECT_EQ(Amounts("Wartość", "netto"), (std::vector<double>{200, 60, 500.5, 760.5, 200, 60, 500.5}));
  EXPECT_EQ(Amounts("Kwota", "VAT"), (std::vector<double>{44, 4.2, 0, 48.2, 44, 4.2, 0}));
  EXPECT_EQ(Amounts("Wartość", "brutto"), (std::vector<double>{244, 64.2, 500.5, 808.7, 244, 64.2, 500.5}));
  EXPECT_EQ(Find("808,70 zł").size(), 2u);
  EXPECT_FALSE(Find("osiemset osiem złotych").empty());
  EXPECT_FALSE(Find("siedemdziesiąt groszy").empty());
}

TEST_F(InvoiceTest, ValuesAreRoundedBeforeTheyAreSummedSoThatThePaperAddsUp) {
  AddDocument(AddCustomer("Kleks"), 4);
  const int32_t article = AddArticle("Śruba", 5);
  for (int i = 0; i < 3; ++i) AddLine(article, "1", "0,333", "0,333");
  Print(document_);
  EXPECT_EQ(Amounts("Wartość", "netto"), (std::vector<double>{0.33, 0.33, 0.33, 0.99, 0.99}));
  EXPECT_EQ(Find("0,333").size(), 3u);  // the price that was multiplied
}

TEST_F(InvoiceTest, ColumnsFollowTheOptionsAndTheLines) {
  AddDocument(AddCustomer("Kleks"), 5);
  AddLine(AddArticle("Papier", 1, {{"JEDNOSTKA_MIARY", int32_t{2}}}), "2,557", "10", "12,2");
  AddLine(AddArticle("Usługa", 1, {{"JEDNOSTKA_MIARY", int32_t{4}}}), "5", "10", "12,2");
  Print(document_);
  EXPECT_FALSE(Find("PKWiU").empty());
  EXPECT_EQ(Find("72.60.10").size(), 2u);
  EXPECT_TRUE(Find("Rabat").empty());
  EXPECT_EQ(Find("2,55").size(), 1u);  // two decimals of the unit, cut
  EXPECT_TRUE(Find("22%").size() >= 2);

  AddLine(AddArticle("Ołówek"), "1", "10", "12,2", 5);
  Setting("prgSettings", "VDopNorPKWiU", "True");
  Print(document_);
  EXPECT_TRUE(Find("PKWiU").empty());
  EXPECT_TRUE(Find("72.60.10").empty());
  EXPECT_EQ(Find("Rabat").size(), 1u);
  EXPECT_EQ(Amounts("Wartość", "netto").at(2), 9.5);
}

TEST_F(InvoiceTest, ARowThatCannotBeReadOrPricedSaysSo) {
  AddDocument(AddCustomer("Kleks"), 6);
  AddLine(AddArticle("Dobry"), "1", "10", "12,2");
  AddLine(9999, "1", "10", "12,2");
  AddLine(AddArticle("Bez ceny netto"), "1", "0", "12,2");
  const int32_t gone = AddArticle("Pozycja opisowa");
  EXPECT_TRUE(Table(*program, kTowaryUslugi).RECORD_DELETE(gone));
  AddLine(gone, "1", "10", "12,2");
  Print(document_);
  EXPECT_EQ(Find(Text("sdoc.error.ps")).size(), 2u);
  EXPECT_EQ(Find("Pozycja opisowa").size(), 1u);
  ExpectCleanPages();
}

TEST_F(InvoiceTest, APriceCountedFromTheOtherInSinglePrecisionIsNoError) {
  AddDocument(AddCustomer("Kleks"), 6);
  AddLine(AddArticle("Działka budowlana", 5), "1", "300000,03", "300000,02");
  Print(document_);
  EXPECT_TRUE(Find(Text("sdoc.error.ps")).empty());
}

TEST_F(InvoiceTest, ManyLinesRunOverPagesWithTheHeadAndTheNumberRepeated) {
  const int32_t article = AddArticle("Toner do drukarki laserowej, wydajność 2500 stron");
  AddDocument(AddCustomer("Kleks"), 8);
  for (int i = 0; i < 60; ++i) AddLine(article, "1", "10", "12,2");
  Print(document_);
  EXPECT_GE(Job().Page(), 2);
  ExpectCleanPages();
  for (int page = 2; page <= Job().Page(); ++page) {
    EXPECT_LT(Only("Faktura VAT NR 8 / 2008", page).top, 20);
    EXPECT_NEAR(Only("Lp.", page).top, 20.75, 0.01);
  }
  std::vector<double> gross;
  for (int page = 1; page <= Job().Page(); ++page) {
    for (const double amount : Amounts("Wartość", "brutto", page)) gross.push_back(amount);
  }
  ASSERT_EQ(gross.size(), 62u);
  EXPECT_EQ(gross[60], 732);
  EXPECT_EQ(gross[61], 732);
  // Number columns are closed at the same places on every page.
  std::map<int, std::set<float>> uprights;
  for (const PageElement& element : Job().elements()) {
    if (element.Kind == ElementKind::kLine && element.X[0] == element.X[1] && element.Y[1] - element.Y[0] > 30)
      uprights[element.Page].insert(element.X[0]);
  }
  EXPECT_EQ(uprights[1], uprights[2]);
  EXPECT_EQ(*uprights[1].begin(), 10);
  EXPECT_EQ(*uprights[1].rbegin(), 200);
}

TEST_F(InvoiceTest, NothingIsCutOrOverlapsWhateverTheTexts) {
  const std::string word(400, 'W'), words = [] {
    std::string text;
    while (text.size() < 396) text += "długa ";
    return LeftCharacters(text, 400);
  }();
  for (int n = 1; n <= 4; ++n) {
    User("konto_d" + std::to_string(n), "98 7654 3210 0000 1111 2222 333" + std::to_string(n));
    User("konto_opis_" + std::to_string(n), words + std::string(100, 'x'));
  }
  User("stwww", "www." + std::string(200, 'm') + ".pl");
  const Fields all = {{"TELEFON", std::string(100, '5')},      {"TEL_KOM", std::string("600 100 200, 600 100 201")},
                      {"FAKS", std::string(100, '8')},         {"NIP_EU", std::string("PL5210002233")},
                      {"REGON", std::string("123456789")},     {"PANSTWO", int32_t{1}},
                      {"ADRES_WWW", std::string(200, 'w')},    {"ADRES_EMAIL", std::string(200, 'e')},
                      {"NR_LOKALU", std::string("1234567890")}};
  const int32_t buyer = AddCustomer(word, all), payer = AddCustomer(words, all);
  AddDocument(buyer, 9, {{"PLATNIK", payer}, {"UWAGI", LeftCharacters(words + words, 500)}, {"ODEBRAL", std::string(50, 'W')}});
  AddLine(AddArticle(word), "123456,78", "99999,99", "121999,99", 7);
  AddLine(AddArticle(words, 2, {{"PKWIU", std::string("WWWWWWWWWWWWWWWWWWWW")}}), "1", "1", "1,07");
  AddLine(AddArticle("Nazwa\r\nStawka VAT 22%", 5), "1", "-1", "-1");
  Print(document_);
  ExpectCleanPages();
  std::string printed;
  for (const PlacedText& text : Texts()) printed += text.text;
  printed = ReplaceAll(printed, " ", "");
  EXPECT_TRUE(Contains(printed, word));
  EXPECT_TRUE(Contains(printed, ReplaceAll(words, " ", "")));
  EXPECT_TRUE(Contains(printed, std::string(200, 'e')));
  EXPECT_EQ(Find(Text("sdoc.info.pcust")).size(), 1u);
}

TEST_F(InvoiceTest, AFullSheetOfCompanyDetailsStillFits) {
  for (const char* key :
       {"nazwa", "ulica", "kod", "miasto", "kraj", "telefon", "faks", "email", "stwww", "nip", "nipue", "regon", "bank", "swift"}) {
    User(key, std::string(250, 'B'));
  }
  for (int n = 1; n <= 4; ++n) {
    User("konto_d" + std::to_string(n), std::string(250, 'B'));
    User("konto_opis_" + std::to_string(n), std::string(500, 'B'));
  }
  AddDocument(AddCustomer("Kleks", {{"KONTO_INDYW_OK", true}, {"KONTO_INDYW_RACH", std::string(1000, '9')}}), 10);
  AddLine(AddArticle("Usługa"), "1", "10", "12,2");
  Print(document_);
  ExpectCleanPages();
}

TEST_F(InvoiceTest, PageMarksInTextsOfTheUserAreNotReplaced) {
  AddDocument(AddCustomer("Rabat 5%pln i 7%Mleka"), 11, {{"UWAGI", std::string("Upust 3%Polecony, 100%p")}});
  AddLine(AddArticle("Sok 100%pomarańcza 5%min"), "1", "10", "12,2");
  Print(document_);
  std::string all;
  for (const PlacedText& text : Texts()) {
    all += text.text;
    if (text.top < 282) {
      for (const char* mark : {"%p", "%P", "%m", "%M"}) EXPECT_FALSE(Contains(text.text, mark)) << text.text;
    }
  }
  for (const char* whole : {"Rabat 5%pln i 7%Mleka", "Sok 100%pomarańcza 5%min", "Upust 3%Polecony, 100%p"})
    EXPECT_TRUE(Contains(all, whole)) << whole;
  ExpectCleanPages();
}

TEST_F(InvoiceTest, BlocksFollowTheDocument) {
  const int32_t buyer =
      AddCustomer("Kleks", {{"KONTO_INDYW_OK", true}, {"KONTO_INDYW_RACH", std::string("99 0000 1111")}, {"PANSTWO", int32_t{1}}});
  AddDocument(buyer, 12,
              {{"DATA_SPRZED_CK", true},
               {"DATA_SPRZED_DO", Day(2008, 3, 31)},
               {"FORMA_PLATNOSCI", int32_t{5}},
               {"WALUTA", int32_t{2}},
               {"KURS", 3.5f}});
  AddLine(AddArticle("Usługa"), "1", "100", "122");
  Print(document_);
  EXPECT_EQ(Find("04-03-08 - 31-03-08").size(), 1u);
  EXPECT_EQ(Find("99 0000 1111").size(), 1u);
  EXPECT_TRUE(Find("12 1020 2212").empty());
  EXPECT_EQ(Find("00-950 Warszawa, Polska").size(), 1u);
  EXPECT_EQ(Find("€122,00").size(), 1u);
  EXPECT_EQ(Find("€61,00").size(), 2u);  // paid at once, and by the term
  EXPECT_EQ(Find("1 EUR = 3,5000").size(), 1u);
  EXPECT_TRUE(Find(Text("sdoc.info.pcust")).empty());

  Setting("prgSettings", "VDopAddUNBP", "False");
  Setting("prgSettings", "VDmdNIP", "True");
  Change(kDokSprzed, document_, {{"KONTRAHENT", int32_t{77}}, {"FORMA_PLATNOSCI", int32_t{1}}});
  Print(document_);
  EXPECT_TRUE(Find("3,5000").empty());
  EXPECT_EQ(Find(Text("sdoc.error.nc")).size(), 1u);
  EXPECT_TRUE(Find(Text("sdoc.info.payeod")).empty());
  EXPECT_EQ(Find("€122,00").size(), 3u);

  Change(kDokSprzed, document_, {{"KONTRAHENT", buyer}});
  Print(document_);
  EXPECT_LT(Only("NIP: 521-000-22-33").top, Only("Lipowa 7").top);
}

TEST_F(InvoiceTest, FurtherAccountsStandOnPaperWithTheirDescriptions) {
  for (const char* n : {"1", "2", "3", "4"}) {
    User(std::string("konto_d") + n, std::string("98 7654 000") + n);
    User(std::string("konto_opis_") + n, std::string("rachunek numer ") + n);
  }
  User("konto_d4", "");
  AddDocument(AddCustomer("Kleks"), 13);
  AddLine(AddArticle("Usługa"), "1", "100", "122");
  Print(document_);
  const char* in_order[] = {"98 7654 0001", "rachunek numer 1", "98 7654 0002",    "rachunek numer 2",
                            "98 7654 0003", "rachunek numer 3", "rachunek numer 4"};
  double last = Find("12 1020 2212").at(0).top;
  for (const char* text : in_order) {
    const PlacedText placed = Only(text);
    EXPECT_GT(placed.top, last) << text;
    EXPECT_EQ(placed.left, Only("Sprzedawca").left) << text;
    last = placed.top;
  }
  ExpectCleanPages();
  // Once one is chosen its description alone is told, and every account still stands.
  User("konto_opis_id_", "2");
  Print(document_);
  EXPECT_EQ(Find("98 7654 000").size(), 3u);
  ASSERT_EQ(Find("rachunek numer").size(), 1u);
  EXPECT_EQ(Find("rachunek numer")[0].text, "rachunek numer 2");
}

TEST_F(InvoiceTest, ASaleWithoutAnEndEndsOnTheDayOnWhichItBegan) {
  AddDocument(AddCustomer("Kleks"), 14, {{"DATA_SPRZED_CK", true}, {"DATA_SPRZED_DO", Date()}});
  AddLine(AddArticle("Usługa"), "1", "100", "122");
  Print(document_);
  EXPECT_EQ(Find("04-03-08 - 04-03-08").size(), 1u);
}

TEST_F(InvoiceTest, SumsStayWithTheLastRowAndSignaturesWithThePayment) {
  AddDocument(AddCustomer("Kleks"), 15);
  bool sums_moved = false, payment_moved = false;
  for (int line = 1; line <= 40; ++line) {
    AddLine(AddArticle("Pozycja " + std::to_string(line), 1 + line % 2), "1", "10", line % 2 ? "10,7" : "12,2");
    if (line < 10) continue;
    Print(document_);
    const int sums = Find("Razem").at(0).page, payment = Find("Do zapłaty").at(0).page;
    int last_row = 0;
    for (const PlacedText& text : Find("Pozycja " + std::to_string(line))) last_row = text.page;
    EXPECT_EQ(last_row, sums) << line;
    EXPECT_EQ(Find("Wystawił(a)").at(0).page, payment) << line;
    sums_moved = sums_moved || (sums == 2 && Find("Pozycja " + std::to_string(line - 1)).at(0).page == 1);
    payment_moved = payment_moved || payment > sums;
  }
  EXPECT_TRUE(sums_moved);
  EXPECT_TRUE(payment_moved);
}

TEST_F(InvoiceTest, TheLogoKeepsItsProportionsInItsBox) {
  FixedPicture decoder;
  Platform with_pictures = surroundings.With(decoder);
  const struct {
    int width, height;
    double right, bottom;
  } rows[] = {{280, 100, 80, 35}, {100, 100, 35, 35}, {700, 10, 80, 11}};
  ThreeLines(AddCustomer("Kleks"));
  ASSERT_TRUE(surroundings.files.WriteAll(DataFolder() + "_logo.img", "BM"));
  Program other(with_pictures);
  bool ok = false;
  OSTEngine(other).open_(true, ok);
  ASSERT_TRUE(ok);
  for (const auto& row : rows) {
    decoder.width = row.width;
    decoder.height = row.height;
    BuildDocumentJob(other, document_, PrintMode::kOriginal, false);
    const auto& elements = CurrentPrintJob(other)->elements();
    const auto image = std::find_if(elements.begin(), elements.end(), [](const PageElement& e) { return e.Kind == ElementKind::kImage; });
    ASSERT_NE(image, elements.end());
    EXPECT_NEAR(image->X[1], row.right, 0.01);
    EXPECT_NEAR(image->Y[1], row.bottom, 0.01);
    for (const PageElement& element : elements) {
      if (element.Kind != ElementKind::kText) continue;
      EXPECT_TRUE(element.X[0] > 80 || element.Y[0] > 35) << element.Text;
    }
  }
  OSTEngine(other).close_(false);
}

}  // namespace
}  // namespace ostrinka
