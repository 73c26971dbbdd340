#include "base/value.h"

#include <cmath>

#include "base/format.h"
#include "base/text.h"

namespace ostrinka {
namespace {

template <class... Ts>
struct Overloaded : Ts... {
  using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

// Nearest whole number, ties to even, within [low, high].
std::optional<int64_t> Whole(const Value& value, int64_t low, int64_t high) {
  const std::optional<double> number = ToDouble(value);
  if (!number) return std::nullopt;
  const double rounded = std::nearbyint(*number);
  if (!(rounded >= static_cast<double>(low) && rounded <= static_cast<double>(high))) return std::nullopt;
  return static_cast<int64_t>(rounded);
}

}  // namespace

bool IsNumeric(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return ReadNumber(*text).has_value();
  return !IsEmpty(value) && !std::holds_alternative<Date>(value);
}

std::optional<double> ToDouble(const Value& value) {
  return std::visit(Overloaded{[](std::monostate) -> std::optional<double> { return 0.0; },
                               // Kept: conditions and exports of existing companies hold -1 for true.
                               [](bool flag) -> std::optional<double> { return flag ? -1.0 : 0.0; },
                               [](Currency money) -> std::optional<double> { return money.ToDouble(); },
                               [](Date date) -> std::optional<double> { return date.days(); },
                               [](const std::string& text) -> std::optional<double> { return ReadNumber(text); },
                               [](auto number) -> std::optional<double> { return static_cast<double>(number); }},
                    value);
}

std::optional<float> ToFloat(const Value& value) {
  if (const auto* single = std::get_if<float>(&value)) return *single;
  const std::optional<double> number = ToDouble(value);
  if (!number || (std::isfinite(*number) && std::fabs(*number) > 3.402823567e38)) return std::nullopt;
  return static_cast<float>(*number);
}

std::optional<int32_t> ToInt32(const Value& value) {
  if (const auto* same = std::get_if<int32_t>(&value)) return *same;
  const auto whole = Whole(value, INT32_MIN, INT32_MAX);
  return whole ? std::optional(static_cast<int32_t>(*whole)) : std::nullopt;
}

std::optional<int16_t> ToInt16(const Value& value) {
  const auto whole = Whole(value, INT16_MIN, INT16_MAX);
  return whole ? std::optional(static_cast<int16_t>(*whole)) : std::nullopt;
}

std::optional<uint8_t> ToByte(const Value& value) {
  const auto whole = Whole(value, 0, 255);
  return whole ? std::optional(static_cast<uint8_t>(*whole)) : std::nullopt;
}

std::optional<bool> ToBoolean(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    const std::string word = Lower(Trim(*text));
    if (word == "true" || word == "prawda" || word == "tak") return true;
    if (word == "false" || word == "fałsz" || word == "nie") return false;
  }
  const std::optional<double> number = ToDouble(value);
  return number ? std::optional(*number != 0) : std::nullopt;
}

std::optional<Currency> ToCurrency(const Value& value) {
  if (const auto* money = std::get_if<Currency>(&value)) return *money;
  if (const auto* single = std::get_if<float>(&value)) return Currency::FromFloat(*single);
  if (const auto* text = std::get_if<std::string>(&value)) return ReadCurrency(*text);
  const std::optional<double> number = ToDouble(value);
  return number ? Currency::FromDouble(*number) : std::nullopt;
}

std::optional<Date> ToDate(const Value& value) {
  if (const auto* date = std::get_if<Date>(&value)) return *date;
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (const std::optional<Date> date = Date::Parse(*text)) return date;
  }
  const std::optional<double> number = ToDouble(value);
  if (!number || !Date(*number).IsValid()) return std::nullopt;
  return Date(*number);
}

std::string ToText(const Value& value) {
  return std::visit(Overloaded{[](std::monostate) { return std::string(); }, [](bool flag) { return std::string(flag ? "True" : "False"); },
                               [](Date date) { return date.Iso(); }, [](const std::string& text) { return text; },
                               [](auto number) { return FormatPlain(number, "General Number"); }},
                    value);
}

double DoubleOr0(const Value& value) {
  return ToDouble(value).value_or(0);
}
float FloatOr0(const Value& value) {
  return ToFloat(value).value_or(0);
}
int32_t Int32Or0(const Value& value) {
  return ToInt32(value).value_or(0);
}
bool BooleanOrFalse(const Value& value) {
  return ToBoolean(value).value_or(false);
}
Currency CurrencyOr0(const Value& value) {
  return ToCurrency(value).value_or(Currency());
}
Date DateOr0(const Value& value) {
  return ToDate(value).value_or(Date());
}

int Compare(const Value& a, const Value& b) {
  const bool text_a = IsText(a) || (IsEmpty(a) && IsText(b)), text_b = IsText(b) || (IsEmpty(b) && IsText(a));
  if (text_a != text_b) return text_a ? 1 : -1;
  if (text_a) {
    const int order = ToText(a).compare(ToText(b));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
  }
  if (std::holds_alternative<Currency>(a) && std::holds_alternative<Currency>(b)) {
    const int64_t x = std::get<Currency>(a).raw(), y = std::get<Currency>(b).raw();
    return x < y ? -1 : x > y ? 1 : 0;
  }
  const double x = DoubleOr0(a), y = DoubleOr0(b);
  if (std::isnan(x) || std::isnan(y)) return std::isnan(x) && std::isnan(y) ? 0 : std::isnan(x) ? -1 : 1;
  return x < y ? -1 : x > y ? 1 : 0;
}

}  // namespace ostrinka
