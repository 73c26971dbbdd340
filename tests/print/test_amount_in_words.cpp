// Amounts in words, with the words of the catalogues that are shipped.
#include <gtest/gtest.h>

#include "print/amount_in_words.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

constexpr const char* kZloty = "złotych, złoty, złote , złotych / groszy, grosz, grosze ,groszy";

class AmountInWordsTest : public ::testing::Test {
 protected:
  AmountInWordsTest() { EXPECT_TRUE(program.catalogue.LoadPrintCatalogue(OSTRINKA_SOURCE "/resources/printdoc.lang")); }
  std::string Words(int32_t amount, int16_t mode = 1, bool compact = false) {
    return AmountInWords(program, amount, compact, mode, kZloty);
  }
  // A print catalogue of the test's own.
  void UseCatalogue(const std::string& text) {
    const std::string path = surroundings.folder / "own.lang";
    ASSERT_TRUE(surroundings.files.WriteAll(path, text));
    ASSERT_TRUE(program.catalogue.LoadPrintCatalogue(path));
  }

  TestPlatform surroundings;
  Program program{surroundings.platform};
};

TEST_F(AmountInWordsTest, NumbersTakeTheFormsOfTheirLastGroup) {
  const struct {
    int32_t amount;
    const char* words;
  } rows[] = {
      {0, "zero złotych"},
      {1, "jeden złoty"},
      {2, "dwa złote"},
      {4, "cztery złote"},
      {5, "pięć złotych"},
      {10, "dziesięć złotych"},
      {11, "jedenaście złoty"},
      {12, "dwanaście złotych"},
      {19, "dziewiętnaście złotych"},
      {20, "dwadzieścia złotych"},
      {21, "dwadzieścia jeden złoty"},
      {22, "dwadzieścia dwa złote"},
      {100, "sto złotych"},
      {101, "sto jeden złoty"},
      {112, "sto dwanaście złotych"},
      {999, "dziewięćset dziewięćdziesiąt dziewięć złotych"},
      {1000, "jeden tysiąc złotych"},
      {1001, "jeden tysiąc jeden złoty"},
      {2000, "dwa tysiące złotych"},
      {5000, "pięć tysięcy złotych"},
      {11000, "jedenaście tysięcy złotych"},
      {12000, "dwanaście tysięcy złotych"},
      {21000, "dwadzieścia jeden tysięcy złotych"},
      {22000, "dwadzieścia dwa tysiące złotych"},
      {100000, "sto tysięcy złotych"},
      {101000, "sto jeden tysięcy złotych"},
      {1000000, "jeden milion złotych"},
      {2000000, "dwa miliony złotych"},
      {1000001, "jeden milion jeden złoty"},
      {5000013, "pięć milionów trzynaście złotych"},
      {1000000000, "jeden miliard złotych"},
      {2147483647,
       "dwa miliardy sto czterdzieści siedem milionów czterysta osiemdziesiąt trzy tysiące sześćset czterdzieści siedem złotych"},
      {-12, "-dwanaście złotych"},
      {INT32_MIN,
       "-dwa miliardy sto czterdzieści siedem milionów czterysta osiemdziesiąt trzy tysiące sześćset czterdzieści osiem złotych"},
  };
  for (const auto& row : rows) EXPECT_EQ(Words(row.amount), row.words) << row.amount;
}

TEST_F(AmountInWordsTest, TheModePicksTheNoun) {
  EXPECT_EQ(Words(3, 2), "trzy grosze");
  EXPECT_EQ(Words(0, 2), "zero groszy");
  EXPECT_EQ(Words(0, 0), "zero");
  EXPECT_EQ(Words(25, -1), "dwadzieścia pięć ");
  EXPECT_EQ(Words(125, 1, true), "stodwadzieściapięćzłotych");
}

TEST_F(AmountInWordsTest, AGrammarWithFewerThanFourFormsOnASideIsToldAsAnError) {
  const std::string error = program.Text("wd.err");
  ASSERT_NE(error, "%wd.err");
  for (const char* grammar : {"a,b,c/d,e,f", "a,b,c,d/e,f,g", "a,b,c/d,e,f,g", "a,b,c,d", "", "/"}) {
    EXPECT_EQ(AmountInWords(program, 7, false, 1, grammar), error) << grammar;
    EXPECT_EQ(AmountInWords(program, 0, false, 1, grammar), error) << grammar;
  }
  EXPECT_EQ(AmountInWords(program, 7, false, 2, "a,b,c,d,e/f,g,h, i /j"), "siedem i j");
}

TEST_F(AmountInWordsTest, DigitByDigitWhenTheCatalogueAsksForIt) {
  UseCatalogue("wd.Type=1\nwd.sn.0=zero\nwd.sn.1=one\nwd.sn.4=four\nwd.err=bad\n");
  const char* grammar = "p,s,f, pounds /pennies,penny,f, pence ";
  EXPECT_EQ(AmountInWords(program, 1041, false, 1, grammar), "one zero four one pounds");
  EXPECT_EQ(AmountInWords(program, 0, false, 2, grammar), "zero pence");
  EXPECT_EQ(AmountInWords(program, -14, false, 1, grammar), "-one four pounds");
  EXPECT_EQ(AmountInWords(program, 14, false, 1, "p,s,f/a,b,c,d"), "bad");
}

TEST_F(AmountInWordsTest, AMissingWordShowsItsKey) {
  UseCatalogue("wd.sn.1=one\n");
  EXPECT_EQ(AmountInWords(program, 102, false, 0, kZloty), "%wd.hd.1 %wd.sn.2 ");
}

TEST_F(AmountInWordsTest, TotalsAreToldInBothUnits) {
  const struct {
    double total;
    const char* words;
  } rows[] = {
      {0, "zero złotych zero groszy"},
      {1.01, "jeden złoty jeden grosz"},
      {0.29, "zero złotych dwadzieścia dziewięć groszy"},
      {1234.56, "jeden tysiąc dwieście trzydzieści cztery złote pięćdziesiąt sześć groszy"},
      {4.35, "cztery złote trzydzieści pięć groszy"},
      {123456789.29,
       "sto dwadzieścia trzy miliony czterysta pięćdziesiąt sześć tysięcy siedemset osiemdziesiąt dziewięć złotych "
       "dwadzieścia dziewięć groszy"},
      {-2.5, "-dwa złote -pięćdziesiąt groszy"},
  };
  for (const auto& row : rows) EXPECT_EQ(TotalInWords(program, row.total, kZloty), row.words) << row.total;
  double dimes = 0;
  for (int i = 0; i < 10; ++i) dimes += 0.1;
  ASSERT_LT(dimes, 1);
  EXPECT_EQ(TotalInWords(program, dimes, kZloty), "jeden złoty zero groszy");
  EXPECT_EQ(TotalInWords(program, -dimes, kZloty), TotalInWords(program, -1, kZloty));
  EXPECT_EQ(TotalInWords(program, 2147483648.0, kZloty), program.Text("wd.err"));
  EXPECT_EQ(TotalInWords(program, 3e9, kZloty), program.Text("wd.err"));
  EXPECT_EQ(TotalInWords(program, std::numeric_limits<double>::quiet_NaN(), kZloty), program.Text("wd.err"));
}

}  // namespace
}  // namespace ostrinka
