// Numbers and dates as text: patterns, rounding, reading back.
//
// Rounding is half away from zero on the decimal expansion: the 15 significant digits of a 64-bit float, the shortest round-trip form of a
// 32-bit float, the four decimals of a currency value. So 1.005 in "0.00" is 1,01.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/value.h"

namespace ostrinka {

// What differs from country to country in a written number or date.
struct Locale {
  char decimal = ',';
  const char* const* months_nominative;  // 12
  const char* const* months_genitive;    // 12
  const char* const* days;               // 7, Monday first
  const char* const* days_short;         // 7
  static const Locale& Polish();
};

// A decimal expansion: sign, digits without a leading zero, and how many of them stand before the point (may be negative or past the end).
struct Decimal {
  bool negative = false;
  std::string digits;
  int point = 0;
};
Decimal DecimalOf(double value);
Decimal DecimalOf(float value);
Decimal DecimalOf(Currency value);
// The value as a Decimal; nothing when not numeric (IsNumeric).
std::optional<Decimal> DecimalOf(const Value& value);
// Half away from zero to `places` decimals.
Decimal RoundTo(Decimal value, int places);
// Cut toward zero to `places` decimals.
Decimal CutTo(Decimal value, int places);

// The plain formatter. Number patterns: "0" and "#" digits, "." decimal sign, "," grouping between digits, "%" times 100 and the sign,
// "\x" the character itself, "..." literal; up to three sections split by ";". Other characters stand for themselves. A date value takes a
// date pattern. A text that is no number, and an empty value, come back as text. An empty pattern gives the plain text of the value.
std::string FormatPlain(const Value& value, std::string_view pattern, const Locale& locale = Locale::Polish());

// The program's formatter: "#0" to "#9" cut to that many decimals; any other pattern as FormatPlain. The pattern "\" gives "".
std::string FormatNumber(const Value& value, std::string_view pattern, const Locale& locale = Locale::Polish());

// Date patterns, in any case: d dd ddd dddd m mm mmm mmmm yy yyyy q w ww h hh n nn s ss; other characters stand for themselves. A month's
// name is genitive when the pattern also has a day of the month.
std::string FormatDate(Date date, std::string_view pattern, const Locale& locale = Locale::Polish());

// Reads a number: blanks at the ends, grouping blanks and currency signs (€ $ £ ¥ ¤, zł) are passed over; comma and point both are the
// decimal sign; an exponent is taken. Nothing when anything else is left, or no digit stands there.
std::optional<double> ReadNumber(std::string_view text);
// The same with 0 for no number.
double NumberOr0(std::string_view text);
// The same without a detour over a float: exact to four decimals, half away from zero.
std::optional<Currency> ReadCurrency(std::string_view text);

// Rounding as the whole system does it: format with the pattern and read the text back.
double RoundByPattern(const Value& value, std::string_view pattern);

}  // namespace ostrinka
