#include <gtest/gtest.h>

#include <cmath>

#include "base/format.h"

namespace ostrinka {
namespace {

TEST(Rounding, HalfGoesAwayFromZeroOnTheDecimalExpansion) {
  const struct {
    Value value;
    const char* pattern;
    const char* text;
  } rows[] = {
      {1.005, "0.00", "1,01"},
      {-1.005, "0.00", "-1,01"},
      {0.005, "0.00", "0,01"},
      {-0.004, "0.00", "0,00"},
      {2.675, "0.00##", "2,675"},
      {1e15, "0.00", "1000000000000000,00"},
      {0.995, "0.00", "1,00"},
      {99.995, "0.00", "100,00"},
      {999.5, "0", "1000"},
      {0.5, "0", "1"},
      {0.006, "0.00", "0,01"},
      {2.7f, "0.0000", "2,7000"},
      {0.1f + 0.2f, "0.00########", "0,30"},
      {Currency::FromRaw(INT64_MAX), "0.0000", "922337203685477,5807"},
      {Currency::FromRaw(-12345), "0.00", "-1,23"},
      {12.345, "0.00##", "12,345"},
      {12.0, "0.00##", "12,00"},
      {1234567.891, "#,##0.00", "1 234 567,89"},
      {0.0, "#", ""},
      {17, "#", "17"},
      {5, "0000000000", "0000000005"},
      {22.0f, "0\\%", "22%"},
      {0.5, "0%", "50%"},
      {12.3, "€0.00", "€12,30"},
      {12.3, "0.00 zł", "12,30 zł"},
      {-3.0, "0.00;(0.00)", "(3,00)"},
      {std::string("1,5"), "0.00", "1,50"},
      {std::string("abc"), "0.00", "abc"},
      {1e-7, "", "1E-07"},
      {0.1, "", "0,1"},
      {1234.5, "", "1234,5"},
      {std::nan(""), "0.00", "0,00"},
  };
  for (const auto& row : rows) EXPECT_EQ(FormatNumber(row.value, row.pattern), row.text) << ToText(row.value) << " in " << row.pattern;
}

TEST(Rounding, CuttingPatternsNeverRoundUp) {
  const struct {
    Value value;
    const char* pattern;
    const char* text;
  } rows[] = {{1.239, "#2", "1,23"},      {1.15, "#2", "1,15"},         {-1.999, "#2", "-1,99"}, {1.999, "#0", "1"},
              {-0.001, "#2", "0,00"},     {5, "#3", "5,000"},           {0.29, "#2", "0,29"},    {1.1, "\\", ""},
              {8.0, "#9", "8,000000000"}, {std::string("x"), "#2", "x"}};
  for (const auto& row : rows) EXPECT_EQ(FormatNumber(row.value, row.pattern), row.text) << ToText(row.value) << " in " << row.pattern;
}

TEST(ReadingNumbers, TakesBothDecimalSignsAndPassesOverCurrencySigns) {
  const struct {
    const char* text;
    std::optional<double> number;
  } rows[] = {{"10,00", 10},    {"10.00", 10},      {" -3,5 ", -3.5}, {"1 234,50", 1234.5},
              {"€12,30", 12.3}, {"12,30 zł", 12.3}, {"1e3", 1000},    {",5", 0.5},
              {"5,", 5},        {"", {}},           {"-", {}},        {"abc", {}},
              {"1,2,3", {}},    {"12a", {}},        {"1e", {}},       {"$ 7", 7},
              {"inf", {}},      {"nan", {}},        {"0x10", {}},     {"5-", {}},
              {"1e999", {}},    {"zł", {}}};
  for (const auto& row : rows) EXPECT_EQ(ReadNumber(row.text), row.number) << '"' << row.text << '"';
}

TEST(ReadingNumbers, CurrencyIsExactToFourDecimals) {
  EXPECT_EQ(ReadCurrency("922337203685477,5807"), Currency::FromRaw(INT64_MAX));
  EXPECT_EQ(ReadCurrency("922337203685477,5808"), std::nullopt);
  EXPECT_EQ(ReadCurrency("-0,00005"), Currency::FromRaw(-1));
  EXPECT_EQ(ReadCurrency("0,00004999"), Currency::FromRaw(0));
  EXPECT_EQ(ReadCurrency("1e2"), Currency::FromRaw(1000000));
  EXPECT_EQ(ReadCurrency("x"), std::nullopt);
}

TEST(CurrencyArithmetic, ProductsRoundHalfAwayAndOverflowIsTold) {
  EXPECT_EQ(Multiply(Currency::FromRaw(3333), Currency::FromRaw(5000)), Currency::FromRaw(1667));  // 0.16665
  EXPECT_EQ(Multiply(Currency::FromRaw(-3333), Currency::FromRaw(5000)), Currency::FromRaw(-1667));
  EXPECT_EQ(Multiply(Currency::FromRaw(INT64_MAX), Currency::FromWhole(2)), std::nullopt);
  EXPECT_EQ(Add(Currency::FromRaw(INT64_MAX), Currency::FromRaw(1)), std::nullopt);
  EXPECT_EQ(Currency::FromDouble(1.00005), Currency::FromRaw(10001));
  EXPECT_EQ(Currency::FromDouble(1e16), std::nullopt);
  EXPECT_EQ(Currency::FromFloat(2.7f), Currency::FromRaw(27000));
}

TEST(Dates, PatternsNamesAndWeeks) {
  const Date day = *Date::FromYmd(2008, 11, 5);
  EXPECT_EQ(FormatDate(day, "dd mmmm yyyy"), "05 listopada 2008");
  EXPECT_EQ(FormatDate(day, "mmmm yyyy"), "listopad 2008");
  EXPECT_EQ(FormatDate(day, "D.MM.YY"), "5.11.08");
  EXPECT_EQ(FormatDate(day, "dddd"), "środa");
  EXPECT_EQ(FormatDate(day, "q ww"), "4 45");
  EXPECT_EQ(FormatDate(*Date::Parse("2008-01-06"), "ww"), "2");  // a Sunday opens the second week
  EXPECT_EQ(Date::Parse("2008-01-06")->WeekFromMonday(), 1);
  EXPECT_EQ(FormatDate(*Date::Parse("2008-03-05 14:07:09"), "hh:nn:ss"), "14:07:09");
}

TEST(Dates, ReadsBothOrdersAndRefusesWhatIsNoDay) {
  EXPECT_EQ(Date::Parse("2008-02-29")->days(), 39507);
  EXPECT_EQ(Date::Parse("29.02.2008"), Date::Parse("2008/2/29"));
  for (const char* text :
       {"2007-02-29", "", "2008", "2008-13-01", "08-02-03", "2008-1-1-1", "2008-01-01 25:00", "2008--01", "99999-01-01", "a"}) {
    EXPECT_FALSE(Date::Parse(text)) << text;
  }
  EXPECT_EQ(Date(0).Iso(), "1899-12-30");
  EXPECT_EQ(Date(1e300).Iso(), "1899-12-30");
  EXPECT_EQ(Date(std::nan("")).Weekday(), 6);
}

TEST(Values, ConvertAndCompareByKind) {
  EXPECT_EQ(ToInt32(2.5), 2);
  EXPECT_EQ(ToInt32(3.5), 4);
  EXPECT_EQ(ToInt32(3e9), std::nullopt);
  EXPECT_EQ(ToInt16(std::string("40000")), std::nullopt);
  EXPECT_EQ(ToByte(-1), std::nullopt);
  EXPECT_EQ(ToBoolean(std::string("Prawda")), true);
  EXPECT_EQ(ToBoolean(std::string("0")), false);
  EXPECT_EQ(ToBoolean(std::string("może")), std::nullopt);
  EXPECT_EQ(ToDouble(true), -1);
  EXPECT_EQ(ToDate(std::string("2008-03-05")), Date(39512));
  EXPECT_EQ(ToText(Value(0.5)), "0,5");
  EXPECT_LT(Compare(5, std::string("1")), 0);  // a number before any text
  EXPECT_EQ(Compare(Value(), 0), 0);
  EXPECT_EQ(Compare(Value(), std::string()), 0);
  EXPECT_LT(Compare(std::string("a"), std::string("ą")), 0);
  EXPECT_GT(Compare(Date(2), 1.5f), 0);
}

}  // namespace
}  // namespace ostrinka
