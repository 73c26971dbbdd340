#include <cmath>

#include "documents/trade.h"

namespace ostrinka {

class ArithmeticTest : public Trade {};

TEST_F(ArithmeticTest, PricesAreComputedInSinglePrecisionAndRoundedByThePattern) {
  const struct {
    const char* net;
    double multiplier;
    const char* gross;
  } rows[] = {
      {"100", 1.22, "122,00"},    {"10,005", 1.22, "12,2061"},       {"0,01", 1.22, "0,0122"},
      {"1,23456", 1.0, "1,2346"}, {"1234567,89", 1.0, "1234567,90"},  // a price of many digits loses them
      {"abc", 1.22, "0,00"},
  };
  for (const auto& row : rows) EXPECT_EQ(GrossOfNet(program, row.net, row.multiplier), row.gross) << row.net;
  EXPECT_EQ(NetOfGross(program, "122", 1.22), "100,00");
}

TEST_F(ArithmeticTest, AMultiplierIsNeverBelowOne) {
  EXPECT_DOUBLE_EQ(VatMultiplier(22), 1.22);
  EXPECT_EQ(VatMultiplier(0), 1);
  EXPECT_EQ(VatMultiplier(-5), 1);
  EXPECT_EQ(VatMultiplierOf(program, kVatExempt), 1);
  EXPECT_EQ(VatMultiplierOf(program, 99), 1);
  EXPECT_EQ(VatRateBySymbol(program, " zw "), kVatExempt);
}

TEST_F(ArithmeticTest, ADiscountStaysWithinNothingAndNinetyNine) {
  const int32_t article = AddArticle("Młotek", 100, 122);
  const struct {
    int16_t stored;
    const char* net;
  } rows[] = {{0, "100"}, {5, "95"}, {99, "1"}, {100, "1"}, {-20, "100"}};
  for (const auto& row : rows) {
    const int32_t line = AddStoredLine(1, article, "1", "100", "122", row.stored);
    EXPECT_EQ(Stored(kSprzedane, line, "WARTOSC_NETTO"), row.net) << row.stored;
  }
}

TEST_F(ArithmeticTest, LinesAreRoundedBeforeTheyAreSummed) {
  const int32_t article = AddArticle("Śrubka", 0.333, 0.333, kVatExempt);
  for (int i = 0; i < 3; ++i) AddStoredLine(7, article, "1", "0,333", "0,333");
  AddStoredLine(8, article, "1", "50", "50");
  const DocumentTotals totals = SumLines(program, 7, kZloty);
  EXPECT_DOUBLE_EQ(totals.net, 0.99);
  EXPECT_DOUBLE_EQ(totals.gross, 0.99);
}

TEST_F(ArithmeticTest, DeletedLinesAndDocumentsWithoutIdentityDoNotCount) {
  const int32_t article = AddArticle("Deska", 10, 12.2);
  AddStoredLine(0, article, "1", "10", "12,2");
  const int32_t gone = AddStoredLine(3, article, "1", "10", "12,2");
  AddStoredLine(3, article, "2", "10", "12,2");
  EXPECT_TRUE(Table(program, kSprzedane).RECORD_DELETE(gone));
  EXPECT_DOUBLE_EQ(SumLines(program, 3, kZloty).gross, 24.4);
  EXPECT_EQ(SumLines(program, 0, kZloty).gross, 0);
}

TEST_F(ArithmeticTest, AnArticleInAnotherCurrencyIsConvertedWhenTheLineIsAdded) {
  const int32_t article = AddArticle("Pumpe", 100, 122, kVat22, kEuro);
  const int32_t on_zloty = AddLine(program, 5, Entry(article, "2", "100", "122", "10"), 1).record;
  EXPECT_EQ(Stored(kSprzedane, on_zloty, "CENA_NETTO"), "350");
  EXPECT_EQ(Stored(kSprzedane, on_zloty, "CENA_BRUTTO"), "427");
  EXPECT_EQ(Stored(kSprzedane, on_zloty, "RABAT"), "10");
  ASSERT_EQ(RecalculateLine(program, on_zloty), LineOutcome::kDone);
  EXPECT_EQ(Stored(kSprzedane, on_zloty, "WARTOSC_NETTO"), "630");
  const int32_t without_rate = AddLine(program, 5, Entry(article, "1", "100", "122"), 0).record;
  EXPECT_EQ(Stored(kSprzedane, without_rate, "CENA_NETTO"), "350");
  const int32_t on_euro = AddLine(program, 5, Entry(article, "1", "100", "122"), 3.5F).record;
  EXPECT_EQ(Stored(kSprzedane, on_euro, "CENA_NETTO"), "100");
}

TEST_F(ArithmeticTest, TheRatioOfTwoRatesStaysWithinItsBounds) {
  const struct {
    float rate;
    const char *typed, *price;
  } rows[] = {{0.000001F, "1000000", "10"}, {0.00002F, "1000000", "20"}, {-2, "1000000", "10"},
              {0, "1000000", "10"},         {900000, "1", "900000"},     {5000000, "1", "1000000"}};
  for (const auto& row : rows) {
    const int32_t currency = Add(kWaluty, {{"NAZWA", std::string("x")}, {"KURS", row.rate}});
    const int32_t article = AddArticle("Towar", 1, 1, kVatExempt, currency);
    const int32_t line = AddLine(program, 5, Entry(article, "1", row.typed, row.typed), 1).record;
    EXPECT_EQ(ToText(std::round(At(kSprzedane, line).Real("CENA_NETTO"))), row.price) << row.rate;
    EXPECT_GT(line, 0);
  }
}

TEST_F(ArithmeticTest, ARewrittenLineKeepsItsPricesAsTheyAre) {
  const int32_t article = AddArticle("Pumpe", 100, 122, kVat22, kEuro);
  const int32_t line = AddLine(program, 5, Entry(article, "1", "100", "122"), 1).record;
  ASSERT_EQ(RewriteLine(program, line, Entry(article, "0,3333", "0,3333", "1", "7")), LineOutcome::kDone);
  EXPECT_EQ(Stored(kSprzedane, line, "CENA_NETTO"), "0,3333");
  // 0,3333 x 0,3333 is rounded to 0,1111 before the discount
  EXPECT_EQ(Stored(kSprzedane, line, "WARTOSC_NETTO"), "0,1033");
}

TEST_F(ArithmeticTest, AnOverflowStopsAndLeavesTheLineAsItWas) {
  const int32_t article = AddArticle("Złoto", 1, 1);
  const LineEntry huge = Entry(article, "900000000000000", "900000000000000", "1");
  const int32_t before = Table(program, kSprzedane).RECORD_COUNT();
  EXPECT_EQ(AddLine(program, 5, huge, 1).outcome, LineOutcome::kTooLarge);
  EXPECT_EQ(Table(program, kSprzedane).RECORD_COUNT(), before);
  const int32_t line = AddLine(program, 5, Entry(article, "1", "2", "2,44"), 1).record;
  EXPECT_EQ(RewriteLine(program, line, huge), LineOutcome::kTooLarge);
  EXPECT_EQ(Stored(kSprzedane, line, "CENA_NETTO"), "2");
  EXPECT_TRUE(platform.ui.messages.empty());
}

TEST_F(ArithmeticTest, AnotherCurrencyScalesPricesAndValues) {
  const int32_t article = AddArticle("Farba", 70, 85.4);
  const int32_t line = AddStoredLine(4, article, "2", "70", "85,4");
  const int32_t other = AddStoredLine(9, article, "2", "70", "85,4");
  ASSERT_EQ(ConvertLines(program, 4, 1, 3.5F), LineOutcome::kDone);
  EXPECT_EQ(Stored(kSprzedane, line, "CENA_NETTO"), "20");
  EXPECT_EQ(Stored(kSprzedane, line, "WARTOSC_BRUTTO"), "48,8");
  EXPECT_EQ(Stored(kSprzedane, other, "CENA_NETTO"), "70");
  ASSERT_EQ(ConvertLines(program, 4, 3.5F, 0), LineOutcome::kDone);
  EXPECT_EQ(Stored(kSprzedane, line, "CENA_NETTO"), "70");
}

TEST_F(ArithmeticTest, TotalsKeepRatesOfOneValueApartAndCountDeletedArticles) {
  const int32_t free = AddArticle("Wolne", 10, 10, kVatExempt), zero = AddArticle("Zero", 20, 20, kVat0),
                full = AddArticle("Pełne", 100, 122);
  AddStoredLine(6, free, "1", "10", "10");
  AddStoredLine(6, full, "1", "100", "122");
  AddStoredLine(6, zero, "1", "20", "20");
  AddStoredLine(6, full, "1", "50", "61");
  EXPECT_TRUE(Table(program, kTowaryUslugi).RECORD_DELETE(zero));
  const std::vector<VatTotal> totals = TotalsByVatRate(program, 6);
  ASSERT_EQ(totals.size(), 3u);
  EXPECT_EQ(totals[0].symbol, "22%");
  EXPECT_DOUBLE_EQ(totals[0].net, 150);
  EXPECT_DOUBLE_EQ(totals[0].vat, 33);
  EXPECT_EQ(totals[1].symbol, "0%");
  EXPECT_EQ(totals[2].symbol, "zw");
  EXPECT_DOUBLE_EQ(totals[2].vat, 0);
}

TEST_F(ArithmeticTest, ThePaymentFormGivesDueDateAndShare) {
  EXPECT_EQ(PaymentDueDate(program, Day("2008-02-20"), kTransfer14), Day("2008-03-05"));
  EXPECT_EQ(PaymentDueDate(program, Day("2008-02-20"), 0), Day("2008-02-20"));
  for (const int16_t days : {int16_t{32767}, int16_t{-32768}}) {  // as the field holds them
    const int32_t form = Add(kFormyPlatn, {{"NAZWA", std::string("x")}, {"TERMIN", days}});
    EXPECT_EQ(PaymentDueDate(program, Day("2008-02-20"), form), Day("2008-02-20").PlusDays(days));
  }
  EXPECT_FLOAT_EQ(PaidAtOnceShare(program, kCash), 1);
  EXPECT_FLOAT_EQ(PaidAtOnceShare(program, 5), 0.5F);
}

TEST_F(ArithmeticTest, AnAdvanceIsSettledRateByRateThroughDeletedArticles) {
  const int32_t full = AddArticle("Dom", 100, 122), low = AddArticle("Cegła", 100, 107, kVat7), zero = AddArticle("Nic", 0, 0, kVat0);
  const int32_t advance = AddDocument(kAdvanceInvoice, "2008-03-01", 17, 40);
  AddStoredLine(40, full, "1", "100", "122");
  AddStoredLine(40, low, "2", "100", "107");
  AddStoredLine(40, full, "1", "50", "61");
  AddStoredLine(40, zero, "1", "0", "0");
  ASSERT_EQ(SettleAdvance(program, 41, kZloty, advance), AdvanceOutcome::kSettled);
  const std::vector<int32_t> lines = LinesOf(program, 41);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(Stored(kSprzedane, lines[0], "WARTOSC_NETTO"), "-150");
  EXPECT_EQ(Stored(kSprzedane, lines[0], "CENA_BRUTTO"), "-183");
  EXPECT_EQ(Stored(kSprzedane, lines[1], "WARTOSC_BRUTTO"), "-214");
  EXPECT_EQ(Stored(kSprzedane, lines[1], "@NAZWA_T_U"), "Faktura VAT zaliczkowa NR 17 / 2008\r\nStawka VAT 7%");
  EXPECT_FALSE(Table(program, kTowaryUslugi).RECORD_EXIST(Table(program, kTowaryUslugi).RECORD_COUNT()));
  EXPECT_TRUE(platform.ui.messages.empty());
  ASSERT_EQ(RecalculateLine(program, lines[0]), LineOutcome::kDone);
  EXPECT_EQ(Stored(kSprzedane, lines[0], "WARTOSC_NETTO"), "-150");
}

TEST_F(ArithmeticTest, AnAdvanceIsSettledByNetOrGrossAlone) {
  const int32_t advance = AddDocument(kAdvanceInvoice, "2008-03-01", 17, 40);
  AddStoredLine(40, AddArticle("Brutto", 0, 61), "1", "0", "61");
  AddStoredLine(40, AddArticle("Netto", 50, 0, kVat7), "1", "50", "0");
  AddStoredLine(40, AddArticle("Nic", 0, 0, kVat0), "1", "0", "0");
  ASSERT_EQ(SettleAdvance(program, 41, kEuro, advance), AdvanceOutcome::kSettled);
  std::string settled;
  for (const int32_t line : LinesOf(program, 41)) {
    settled += Stored(kSprzedane, line, "WARTOSC_NETTO") + "/" + Stored(kSprzedane, line, "WARTOSC_BRUTTO") + " ";
    EXPECT_EQ(Stored(kTowaryUslugi, At(kSprzedane, line).Int(".NAZWA_T_U"), ".WALUTA"), "2");
  }
  EXPECT_EQ(settled, "0/-61 -50/0 ");
}

TEST_F(ArithmeticTest, AnAdvanceWithoutValueOrWithoutChoiceIsRefused) {
  const int32_t advance = AddDocument(kAdvanceInvoice, "2008-03-01", 1, 40);
  EXPECT_EQ(SettleAdvance(program, 41, kZloty, advance), AdvanceOutcome::kNoValue);
  EXPECT_EQ(SettleAdvance(program, 41, kZloty, 0), AdvanceOutcome::kNoAdvance);
  EXPECT_TRUE(platform.ui.messages.empty());
  EXPECT_TRUE(LinesOf(program, 41).empty());
}

}  // namespace ostrinka
