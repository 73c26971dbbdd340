// Days counted from 30 December 1899, the time of day as the fraction.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ostrinka {

struct YearMonthDay {
  int year = 1899, month = 12, day = 30;
  bool operator==(const YearMonthDay&) const = default;
};

class Date {
 public:
  constexpr Date() = default;
  constexpr explicit Date(double days) : days_(days) {}
  // Nothing when there is no such day or the year is outside 100 to 9999.
  static std::optional<Date> FromYmd(int year, int month, int day);
  // "yyyy-mm-dd", with one or two digits for month and day, or "dd-mm-yyyy"; '.' and '/' separate as well; a time "hh:mm[:ss]" may follow.
  static std::optional<Date> Parse(std::string_view text);

  constexpr double days() const { return days_; }
  bool IsValid() const;      // finite and within the years 100 to 9999
  YearMonthDay Ymd() const;  // 30 December 1899 when not valid
  int Weekday() const;       // 1 Monday to 7 Sunday
  int Quarter() const;       // 1 to 4
  int DayOfYear() const;     // from 1
  // Number of the week, the week of 1 January being week 1.
  int WeekFromSunday() const;
  int WeekFromMonday() const;
  Date WithoutTime() const;
  Date PlusDays(int days) const { return Date(days_ + days); }
  std::string Iso() const;  // "2008-03-05"

  constexpr auto operator<=>(const Date&) const = default;

 private:
  double days_ = 0;
};

}  // namespace ostrinka
