// Decimal expansions and their rounding, and numbers read from text.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "base/format.h"
#include "base/text.h"

namespace ostrinka {
namespace {

// From "d.ddde+xx" as the standard library writes it.
Decimal FromScientific(std::string_view text) {
  Decimal result;
  if (!text.empty() && text[0] == '-') {
    result.negative = true;
    text.remove_prefix(1);
  }
  const size_t e = text.find('e');
  if (e == std::string_view::npos) return {};
  int exponent = 0;
  const size_t sign = text[e + 1] == '+' ? 1 : 0;
  std::from_chars(text.data() + e + 1 + sign, text.data() + text.size(), exponent);
  for (const char c : text.substr(0, e)) {
    if (c != '.') result.digits.push_back(c);
  }
  result.point = exponent + 1;
  return result;
}

Decimal Normal(Decimal value) {
  while (!value.digits.empty() && value.digits.back() == '0') value.digits.pop_back();
  size_t zeros = 0;
  while (zeros < value.digits.size() && value.digits[zeros] == '0') ++zeros;
  value.digits.erase(0, zeros);
  value.point -= static_cast<int>(zeros);
  if (value.digits.empty()) return {};
  return value;
}

// The digits up to `places` decimals, and whether the next digit is 5 or more.
Decimal Cut(Decimal value, int places, bool& up) {
  up = false;
  const int kept = value.point + places;
  if (kept >= static_cast<int>(value.digits.size())) return value;
  if (kept < 0) {
    const bool negative = value.negative;
    value = {};
    value.negative = negative;
    return value;
  }
  up = value.digits[static_cast<size_t>(kept)] >= '5';
  value.digits.resize(static_cast<size_t>(kept));
  return value;
}

}  // namespace

Decimal DecimalOf(double value) {
  if (!std::isfinite(value)) return {};
  char text[40];
  std::snprintf(text, sizeof text, "%.14e", value);
  for (char& c : text) {
    if (c == ',') c = '.';
  }
  return Normal(FromScientific(text));
}

Decimal DecimalOf(float value) {
  if (!std::isfinite(value)) return {};
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific);
  return Normal(FromScientific(std::string_view(text, static_cast<size_t>(end.ptr - text))));
}

Decimal DecimalOf(Currency value) {
  Decimal result;
  result.negative = value.raw() < 0;
  const uint64_t magnitude = result.negative ? 0 - static_cast<uint64_t>(value.raw()) : static_cast<uint64_t>(value.raw());
  result.digits = std::to_string(magnitude);
  result.point = static_cast<int>(result.digits.size()) - 4;
  return Normal(result);
}

std::optional<Decimal> DecimalOf(const Value& value) {
  if (const auto* money = std::get_if<Currency>(&value)) return DecimalOf(*money);
  if (const auto* single = std::get_if<float>(&value)) return DecimalOf(*single);
  if (!IsNumeric(value)) return std::nullopt;
  return DecimalOf(*ToDouble(value));
}

Decimal RoundTo(Decimal value, int places) {
  bool up = false;
  const int kept = value.point + places;
  value = Cut(std::move(value), places, up);
  if (up) {
    size_t i = value.digits.size();
    while (i > 0 && value.digits[i - 1] == '9') value.digits[--i] = '0';
    if (i > 0) {
      ++value.digits[i - 1];
    } else {
      value.digits.insert(value.digits.begin(), '1');
      value.point = kept == 0 ? 1 - places : value.point + 1;
    }
  }
  return Normal(std::move(value));
}

Decimal CutTo(Decimal value, int places) {
  bool up = false;
  return Normal(Cut(std::move(value), places, up));
}

namespace {

// Signs that may stand around a number without being part of it.
constexpr std::string_view kPassedOver[] = {"€", "$", "£", "¥", "¤", "zł", "Zł", "ZŁ", "\u00A0"};

// The number's own characters with a decimal point; empty when the text is none.
std::string NumberCharacters(std::string_view text) {
  std::string plain(text);
  for (const std::string_view sign : kPassedOver) {
    if (Contains(plain, sign)) plain = ReplaceAll(plain, sign, " ");
  }
  std::string result;
  bool digit = false, point = false, exponent = false;
  plain = TrimWhite(plain);
  for (size_t i = 0; i < plain.size(); ++i) {
    const char c = plain[i];
    if (c >= '0' && c <= '9') {
      digit = true;
      result.push_back(c);
    } else if ((c == ',' || c == '.') && !point && !exponent) {
      point = true;
      result.push_back('.');
    } else if ((c == '-' || c == '+') && (result.empty() || result.back() == 'e')) {
      if (c == '-' || !result.empty()) result.push_back(c);
    } else if ((c == 'e' || c == 'E') && digit && !exponent && i + 1 < plain.size()) {
      exponent = true;
      result.push_back('e');
    } else if (c != ' ') {
      return {};
    }
  }
  if (!digit || !((result.back() >= '0' && result.back() <= '9') || result.back() == '.')) return {};
  return result;
}

}  // namespace

std::optional<double> ReadNumber(std::string_view text) {
  const std::string number = NumberCharacters(text);
  if (number.empty()) return std::nullopt;
  const char* first = number.data();
  double value = 0;
  const auto [end, error] = std::from_chars(first, first + number.size(), value);
  const size_t read = static_cast<size_t>(end - first);
  if (error != std::errc() || (read != number.size() && !(read + 1 == number.size() && number.back() == '.'))) return std::nullopt;
  return value;
}

double NumberOr0(std::string_view text) {
  return ReadNumber(text).value_or(0);
}

std::optional<Currency> ReadCurrency(std::string_view text) {
  const std::string number = NumberCharacters(text);
  if (number.empty() || Contains(number, "e")) {
    const std::optional<double> value = ReadNumber(text);
    return value ? Currency::FromDouble(*value) : std::nullopt;
  }
  const bool negative = number[0] == '-';
  int64_t raw = 0;
  int decimals = -1;
  bool up = false;
  for (const char c : number.substr(negative ? 1 : 0)) {
    if (c == '.') {
      decimals = 0;
      continue;
    }
    if (decimals == 4) {
      up = c >= '5';
      decimals = 5;
    }
    if (decimals > 4) continue;
    if (decimals >= 0) ++decimals;
    if (__builtin_mul_overflow(raw, 10, &raw) || __builtin_add_overflow(raw, c - '0', &raw)) return std::nullopt;
  }
  for (int i = std::max(decimals, 0); i < 4; ++i) {
    if (__builtin_mul_overflow(raw, 10, &raw)) return std::nullopt;
  }
  if (up && __builtin_add_overflow(raw, 1, &raw)) return std::nullopt;
  return Currency::FromRaw(negative ? -raw : raw);
}

}  // namespace ostrinka
