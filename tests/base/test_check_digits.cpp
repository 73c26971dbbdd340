#include <gtest/gtest.h>

#include <string>

#include "base/check_digits.h"

namespace ostrinka {
namespace {

TEST(CheckDigits, TaxNumbersCheckByTheirTenthDigitWhateverStandsBetween) {
  const struct {
    const char* text;
    bool valid;
  } rows[] = {
      {"123-456-32-18", true}, {"1234563218", true}, {" PL 123 456 32 18 ", true}, {"1234563217", false},
      {"2134563218", false},   {"", false},          {"123456321", false},         {"12345632180", false},
      {"abcdefghij", false},   {"0000000000", true},
  };
  for (const auto& row : rows) EXPECT_EQ(CheckNIP(row.text), row.valid) << row.text;
}

TEST(CheckDigits, ATaxNumberWithRemainderTenIsInvalidWhateverItsLastDigit) {
  // The weight 5 of the second place times 2 is 10.
  for (char last = '0'; last <= '9'; ++last) EXPECT_FALSE(CheckNIP(std::string("020000000") + last)) << last;
}

TEST(CheckDigits, StatisticalNumbersHaveSevenNineOrFourteenDigits) {
  const struct {
    const char* text;
    bool valid;
  } rows[] = {
      {"123456785", true}, {"123-456-785", true}, {"123456784", false}, {"12345678512347", true}, {"12345678512348", false},
      {"1234562", true},   {"1234563", false},    {"12345678", false},  {"1234567851234", false}, {"", false},
  };
  for (const auto& row : rows) EXPECT_EQ(CheckREGON(row.text), row.valid) << row.text;
}

TEST(CheckDigits, AStatisticalNumberWithRemainderTenIsInvalidAlsoWithZero) {
  // The weight 5 times 2 again, in the sixth place of nine and the fourth of seven.
  for (char last = '0'; last <= '9'; ++last) EXPECT_FALSE(CheckREGON(std::string("00000200") + last)) << last;
  for (char last = '0'; last <= '9'; ++last) EXPECT_FALSE(CheckREGON(std::string("000200") + last)) << last;
}

TEST(CheckDigits, AccountNumbersCheckWithAndWithoutTheirCountry) {
  const struct {
    const char* text;
    const char* country;
    bool valid;
  } rows[] = {
      {"61109010140000071219812874", "PL", true},
      {"61 1090 1014 0000 0712 1981 2874", " PL ", true},
      {"PL61109010140000071219812874", "PL", true},
      {"pl61109010140000071219812874", "", true},
      {"DE89 3704 0044 0532 0130 00", "PL", true},
      {"GB82 WEST 1234 5698 7654 32", "PL", true},
      {"61109010140000071219812874", "DE", false},
      {"61109010140000071219812847", "PL", false},
      {"6P109010140000071219812874", "PL", false},
      {"", "PL", false},
      {"", "", false},
      {"1", "", false},
      {"ąęł", "PL", false},
  };
  for (const auto& row : rows) EXPECT_EQ(CheckIBAN(row.text, row.country), row.valid) << row.text << " " << row.country;
}

TEST(CheckDigits, CleaningKeepsTheOrderAndDropsTheRest) {
  EXPECT_EQ(DigitsOnly(" 12-3 a4ł5 "), "12345");
  EXPECT_EQ(AlnumOnly("pl 61-ź0Z"), "PL610Z");
  EXPECT_EQ(IbanDigits("A1Z-ó9"), "101359");
}

TEST(CheckDigits, RemaindersOfLongNumbersDoNotOverflow) {
  EXPECT_EQ(ModOf("3214282912345698765432161182", 97), 1);
  EXPECT_EQ(ModOf(std::string(400, '9'), 2147483647), 854747203);
  EXPECT_EQ(ModOf("12 34", 100), 34);
  EXPECT_EQ(ModOf("", 97), 0);
  EXPECT_EQ(ModOf("5", 0), 0);
}

}  // namespace
}  // namespace ostrinka
