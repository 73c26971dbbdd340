#include "base/date.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace ostrinka {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kEpoch = sys_days(year_month_day(year(1899), month(12), day(30)));
constexpr double kFirst = -657434;  // 1 January 100
constexpr double kLast = 2958466;   // the day after 31 December 9999

sys_days DayOf(double number) {
  return kEpoch + days(static_cast<int>(std::floor(number)));
}

// Weeks of a year that begin on the weekday `start` (0 Sunday, 1 Monday); the week of 1 January is week 1. Kept: this is not the ISO week,
// also where the week begins on Monday.
int WeekOf(const Date& date, int start) {
  const YearMonthDay ymd = date.Ymd();
  const int first = Date::FromYmd(ymd.year, 1, 1)->Weekday() % 7;  // 0 Sunday
  const int offset = (first - start + 7) % 7;
  return (date.DayOfYear() - 1 + offset) / 7 + 1;
}

}  // namespace

std::optional<Date> Date::FromYmd(int y, int m, int d) {
  if (y < 100 || y > 9999 || m < 1 || m > 12 || d < 1 || d > 31) return std::nullopt;
  const year_month_day ymd(year(y), month(static_cast<unsigned>(m)), day(static_cast<unsigned>(d)));
  if (!ymd.ok()) return std::nullopt;
  return Date(static_cast<double>((sys_days(ymd) - kEpoch).count()));
}

bool Date::IsValid() const {
  return std::isfinite(days_) && days_ >= kFirst && days_ < kLast;
}

YearMonthDay Date::Ymd() const {
  if (!IsValid()) return {};
  const year_month_day ymd(DayOf(days_));
  return {static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
          static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

int Date::Weekday() const {
  if (!IsValid()) return 6;  // 30 December 1899 was a Saturday
  return static_cast<int>(std::chrono::weekday(DayOf(days_)).iso_encoding());
}

int Date::Quarter() const {
  return (Ymd().month - 1) / 3 + 1;
}

int Date::DayOfYear() const {
  const Date start = FromYmd(Ymd().year, 1, 1).value_or(Date());
  return IsValid() ? static_cast<int>(std::floor(days_) - start.days_) + 1 : 364;
}

int Date::WeekFromSunday() const {
  return WeekOf(*this, 0);
}
int Date::WeekFromMonday() const {
  return WeekOf(*this, 1);
}
Date Date::WithoutTime() const {
  return Date(std::floor(days_));
}

std::string Date::Iso() const {
  const YearMonthDay ymd = Ymd();
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", ymd.year, ymd.month, ymd.day);
  return text;
}

std::optional<Date> Date::Parse(std::string_view text) {
  std::array<int, 6> numbers{};
  std::array<size_t, 6> widths{};
  size_t count = 0;
  bool in_number = false;
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(' ') - first + 1);
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      if (!in_number && ++count > numbers.size()) return std::nullopt;
      in_number = true;
      if (++widths[count - 1] > 4) return std::nullopt;
      numbers[count - 1] = numbers[count - 1] * 10 + (c - '0');
      continue;
    }
    const bool in_date = count <= 2;
    const bool separates = in_date ? c == '-' || c == '.' || c == '/' : count == 3 ? c == ' ' || c == 'T' : c == ':';
    if (!separates || !in_number) return std::nullopt;
    in_number = false;
  }
  if (!in_number || (count != 3 && count != 5 && count != 6)) return std::nullopt;
  std::optional<Date> date;
  if (widths[0] > 2) {
    date = FromYmd(numbers[0], numbers[1], numbers[2]);
  } else if (widths[2] > 2) {
    date = FromYmd(numbers[2], numbers[1], numbers[0]);
  }
  if (!date || numbers[3] > 23 || numbers[4] > 59 || numbers[5] > 59) return std::nullopt;
  return Date(date->days_ + (numbers[3] * 3600 + numbers[4] * 60 + numbers[5]) / 86400.0);
}

}  // namespace ostrinka
