#include "base/currency.h"

#include <cmath>

#include "base/format.h"

namespace ostrinka {
namespace {

__extension__ typedef __int128 Int128;

std::optional<Currency> FromDecimal(const Decimal& value) {
  const Decimal rounded = RoundTo(value, 4);
  Int128 raw = 0;
  const int digits = rounded.point + 4;  // of the count of ten-thousandths
  if (digits > 19) return std::nullopt;
  for (int i = 0; i < digits; ++i) {
    const int digit = static_cast<size_t>(i) < rounded.digits.size() ? rounded.digits[static_cast<size_t>(i)] - '0' : 0;
    raw = raw * 10 + digit;
  }
  if (raw > INT64_MAX) return std::nullopt;
  return Currency::FromRaw(rounded.negative ? -static_cast<int64_t>(raw) : static_cast<int64_t>(raw));
}

}  // namespace

std::optional<Currency> Currency::FromDouble(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  return FromDecimal(DecimalOf(value));
}

std::optional<Currency> Currency::FromFloat(float value) {
  if (!std::isfinite(value)) return std::nullopt;
  return FromDecimal(DecimalOf(value));
}

double Currency::ToDouble() const {
  return static_cast<double>(raw_) / static_cast<double>(kScale);
}

std::optional<Currency> Add(Currency a, Currency b) {
  int64_t raw;
  if (__builtin_add_overflow(a.raw(), b.raw(), &raw)) return std::nullopt;
  return Currency::FromRaw(raw);
}

std::optional<Currency> Subtract(Currency a, Currency b) {
  int64_t raw;
  if (__builtin_sub_overflow(a.raw(), b.raw(), &raw)) return std::nullopt;
  return Currency::FromRaw(raw);
}

std::optional<Currency> Multiply(Currency a, Currency b) {
  const Int128 product = static_cast<Int128>(a.raw()) * b.raw();
  const Int128 half = product < 0 ? -Currency::kScale / 2 : Currency::kScale / 2;
  const Int128 rounded = (product + half) / Currency::kScale;
  if (rounded > INT64_MAX || rounded < INT64_MIN) return std::nullopt;
  return Currency::FromRaw(static_cast<int64_t>(rounded));
}

}  // namespace ostrinka
