// Money with four decimal places: a 64-bit count of ten-thousandths.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ostrinka {

class Currency {
 public:
  constexpr Currency() = default;
  // `raw` counts ten-thousandths: 12.34 is 123400.
  static constexpr Currency FromRaw(int64_t raw) {
    Currency result;
    result.raw_ = raw;
    return result;
  }
  static constexpr Currency FromWhole(int32_t units) { return FromRaw(int64_t{units} * kScale); }
  // Rounded half away from zero on the decimal expansion; nothing when not finite or out of range.
  static std::optional<Currency> FromDouble(double value);
  static std::optional<Currency> FromFloat(float value);

  constexpr int64_t raw() const { return raw_; }
  double ToDouble() const;

  constexpr bool operator==(const Currency&) const = default;
  constexpr auto operator<=>(const Currency&) const = default;
  constexpr Currency operator-() const { return FromRaw(raw_ == INT64_MIN ? INT64_MAX : -raw_); }

  static constexpr int64_t kScale = 10000;

 private:
  int64_t raw_ = 0;
};

// Nothing on overflow. A product is rounded half away from zero to four decimals.
std::optional<Currency> Add(Currency a, Currency b);
std::optional<Currency> Subtract(Currency a, Currency b);
std::optional<Currency> Multiply(Currency a, Currency b);

}  // namespace ostrinka
