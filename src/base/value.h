// The dynamic value: what a field of a table, a setting or a condition holds.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/currency.h"
#include "base/date.h"

namespace ostrinka {

// std::monostate is the empty value.
using Value = std::variant<std::monostate, uint8_t, bool, int16_t, int32_t, float, double, Currency, Date, std::string>;

inline bool IsEmpty(const Value& value) {
  return std::holds_alternative<std::monostate>(value);
}
inline bool IsText(const Value& value) {
  return std::holds_alternative<std::string>(value);
}
// Any kind but empty and text; a text counts when it reads as a number. A date is not numeric.
bool IsNumeric(const Value& value);

// Conversions. A text is read as a number with either decimal sign; an empty value is 0 or ""; a boolean is 0 or -1; a fraction is rounded
// to the nearest whole, ties to even, where a whole is wanted. Nothing when the value does not convert or does not fit.
std::optional<double> ToDouble(const Value& value);
std::optional<float> ToFloat(const Value& value);
std::optional<int32_t> ToInt32(const Value& value);
std::optional<int16_t> ToInt16(const Value& value);
std::optional<uint8_t> ToByte(const Value& value);
std::optional<bool> ToBoolean(const Value& value);  // texts: a number, "true", "false", "prawda", "fałsz", "tak", "nie"
std::optional<Currency> ToCurrency(const Value& value);
std::optional<Date> ToDate(const Value& value);  // texts: a date as in Date::Parse, or a number of days
// Numbers in their shortest form with a decimal comma, dates as "yyyy-mm-dd", booleans as "True" and "False".
std::string ToText(const Value& value);

// The same with 0, false or 30 December 1899 where the value does not convert.
double DoubleOr0(const Value& value);
float FloatOr0(const Value& value);
int32_t Int32Or0(const Value& value);
bool BooleanOrFalse(const Value& value);
Currency CurrencyOr0(const Value& value);
Date DateOr0(const Value& value);

// Order of two values: numbers (booleans and dates among them) by size, texts by their code points; a number stands before a text, the
// empty value is 0 beside a number and "" beside a text. A text that reads as a number is still a text.
int Compare(const Value& a, const Value& b);

}  // namespace ostrinka
