#include "base/format.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr const char* kMonths[12] = {"styczeń", "luty",     "marzec",   "kwiecień",    "maj",      "czerwiec",
                                     "lipiec",  "sierpień", "wrzesień", "październik", "listopad", "grudzień"};
constexpr const char* kMonthsOf[12] = {"stycznia", "lutego",   "marca",    "kwietnia",     "maja",      "czerwca",
                                       "lipca",    "sierpnia", "września", "października", "listopada", "grudnia"};
constexpr const char* kDays[7] = {"poniedziałek", "wtorek", "środa", "czwartek", "piątek", "sobota", "niedziela"};
constexpr const char* kDaysShort[7] = {"Pn", "Wt", "Śr", "Cz", "Pt", "So", "Nd"};
constexpr Locale kPolish{',', kMonths, kMonthsOf, kDays, kDaysShort};

constexpr std::string_view kGeneral = "General Number";

// A number pattern taken apart: literals and digit places in order.
struct Token {
  enum class Kind { kLiteral, kDigit, kPoint } kind;
  std::string text;       // of a literal
  bool required = false;  // "0", not "#"
};
struct NumberPattern {
  std::vector<Token> tokens;
  int whole_places = 0, decimals = 0, required_whole = 0, required_decimals = 0;
  bool grouping = false, percent = false, has_point = false;
};

NumberPattern ParsePattern(std::string_view pattern) {
  NumberPattern result;
  const auto literal = [&](std::string text) {
    if (!result.tokens.empty() && result.tokens.back().kind == Token::Kind::kLiteral) {
      result.tokens.back().text += text;
    } else {
      result.tokens.push_back({Token::Kind::kLiteral, std::move(text), false});
    }
  };
  for (size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '\\') {
      if (i + 1 < pattern.size()) literal(std::string(1, pattern[++i]));
    } else if (c == '"') {
      const size_t end = std::min(pattern.find('"', i + 1), pattern.size());
      literal(std::string(pattern.substr(i + 1, end - i - 1)));
      i = end;
    } else if (c == '0' || c == '#') {
      const bool required = c == '0';
      result.tokens.push_back({Token::Kind::kDigit, {}, required});
      if (result.has_point) {
        ++result.decimals;
        if (required) result.required_decimals = result.decimals;
      } else {
        ++result.whole_places;
        if (required || result.required_whole > 0) ++result.required_whole;
      }
    } else if (c == '.' && !result.has_point) {
      result.has_point = true;
      result.tokens.push_back({Token::Kind::kPoint, {}, false});
    } else if (c == ',' && result.whole_places > 0 && !result.has_point) {
      result.grouping = true;
    } else if (c == '%') {
      result.percent = true;
      literal("%");
    } else {
      literal(std::string(1, c));
    }
  }
  return result;
}

// Section of a pattern for the sign of the value: positive;negative;zero.
std::vector<std::string> Sections(std::string_view pattern) {
  std::vector<std::string> sections(1);
  bool quoted = false;
  for (size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == '"') quoted = !quoted;
    if (pattern[i] == '\\' && i + 1 < pattern.size()) {
      sections.back() += pattern.substr(i, 2);
      ++i;
    } else if (pattern[i] == ';' && !quoted) {
      sections.emplace_back();
    } else {
      sections.back() += pattern[i];
    }
  }
  return sections;
}

char DigitAt(const Decimal& value, int index) {
  return index >= 0 && static_cast<size_t>(index) < value.digits.size() ? value.digits[static_cast<size_t>(index)] : '0';
}

std::string Lay(Decimal value, const NumberPattern& pattern, const Locale& locale, bool sign) {
  if (pattern.percent && !value.digits.empty()) value.point += 2;
  value = RoundTo(std::move(value), pattern.decimals);
  const int whole_digits = std::max(value.point, 0);
  const int last_decimal = static_cast<int>(value.digits.size()) - value.point;
  const int shown_decimals = std::max(pattern.required_decimals, value.digits.empty() ? 0 : last_decimal);
  const int shown_whole = std::max(whole_digits, pattern.required_whole);
  std::string result = sign && value.negative && !value.digits.empty() ? "-" : "";
  int place = pattern.whole_places;  // of the next whole digit, from the point
  int decimal = 0;
  bool point_seen = false, first_place = true;
  const auto put_whole = [&](int from_point) {
    result.push_back(value.point >= from_point ? DigitAt(value, value.point - from_point) : '0');
    if (pattern.grouping && from_point > 1 && (from_point - 1) % 3 == 0) result.push_back(' ');
  };
  for (const Token& token : pattern.tokens) {
    if (token.kind == Token::Kind::kLiteral) {
      result += token.text;
    } else if (token.kind == Token::Kind::kPoint) {
      point_seen = true;
      if (pattern.whole_places == 0) {
        for (int i = whole_digits; i > 0; --i) put_whole(i);
      }
      result.push_back(locale.decimal);
    } else if (point_seen) {
      if (++decimal <= shown_decimals) result.push_back(value.digits.empty() ? '0' : DigitAt(value, value.point + decimal - 1));
    } else {
      if (first_place) {
        for (int i = shown_whole; i > pattern.whole_places; --i) put_whole(i);
        first_place = false;
      }
      if (place <= shown_whole) put_whole(place);
      --place;
    }
  }
  return result;
}

std::string GeneralNumber(const Decimal& value, const Locale& locale) {
  if (value.digits.empty()) return "0";
  std::string result = value.negative ? "-" : "";
  const int size = static_cast<int>(value.digits.size());
  if (value.point > 15 || value.point < -4) {
    result += value.digits[0];
    if (size > 1) result += locale.decimal + value.digits.substr(1);
    const int exponent = value.point - 1;
    return result + "E" + (exponent < 0 ? "-" : "+") + (std::abs(exponent) < 10 ? "0" : "") + std::to_string(std::abs(exponent));
  }
  if (value.point <= 0) return result + "0" + locale.decimal + std::string(static_cast<size_t>(-value.point), '0') + value.digits;
  if (size <= value.point) return result + value.digits + std::string(static_cast<size_t>(value.point - size), '0');
  return result + value.digits.substr(0, static_cast<size_t>(value.point)) + locale.decimal +
         value.digits.substr(static_cast<size_t>(value.point));
}

std::string FormatDecimal(Decimal value, std::string_view pattern, const Locale& locale) {
  if (pattern.empty() || pattern == kGeneral) return GeneralNumber(value, locale);
  const std::vector<std::string> sections = Sections(pattern);
  size_t section = 0;
  if (value.negative && sections.size() > 1 && !sections[1].empty()) section = 1;
  if (value.digits.empty() && sections.size() > 2 && !sections[2].empty()) section = 2;
  const NumberPattern parsed = ParsePattern(sections[section]);
  return Lay(std::move(value), parsed, locale, section == 0);
}

std::string Padded(int number, size_t width) {
  std::string text = std::to_string(number);
  return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

}  // namespace

const Locale& Locale::Polish() {
  return kPolish;
}

std::string FormatPlain(const Value& value, std::string_view pattern, const Locale& locale) {
  if (const auto* date = std::get_if<Date>(&value))
    return pattern.empty() || pattern == kGeneral ? date->Iso() : FormatDate(*date, pattern, locale);
  if (std::holds_alternative<bool>(value) && pattern.empty()) return ToText(value);
  const std::optional<Decimal> decimal = DecimalOf(value);
  if (!decimal) return ToText(value);
  return FormatDecimal(*decimal, pattern, locale);
}

std::string FormatNumber(const Value& value, std::string_view pattern, const Locale& locale) {
  if (pattern == "\\") return {};
  const bool cuts = pattern.size() == 2 && pattern[0] == '#' && pattern[1] >= '0' && pattern[1] <= '9';
  if (!cuts || !IsNumeric(value)) return FormatPlain(value, pattern, locale);
  const int places = pattern[1] - '0';
  const std::string written = places == 0 ? "0" : "0." + std::string(static_cast<size_t>(places), '0');
  return FormatDecimal(CutTo(*DecimalOf(value), places), written, locale);
}

std::string FormatDate(Date date, std::string_view pattern, const Locale& locale) {
  const YearMonthDay ymd = date.Ymd();
  const double day = date.days();
  const int seconds = date.IsValid() ? static_cast<int>(std::lround((std::fabs(day) - std::floor(std::fabs(day))) * 86400)) % 86400 : 0;
  const std::string lower = Lower(pattern);
  const auto run_at = [&](size_t i) {
    size_t length = 1;
    while (i + length < lower.size() && lower[i + length] == lower[i]) ++length;
    return length;
  };
  bool has_day = false;
  for (size_t i = 0; i < lower.size(); i += run_at(i)) has_day |= lower[i] == 'd' && run_at(i) <= 2;
  std::string result;
  for (size_t i = 0; i < lower.size();) {
    const size_t run = run_at(i);
    const size_t month = static_cast<size_t>(ymd.month - 1), weekday = static_cast<size_t>(date.Weekday() - 1);
    size_t used = run;
    switch (lower[i]) {
      case 'd':
        used = std::min<size_t>(run, 4);
        result += used == 4 ? locale.days[weekday] : used == 3 ? locale.days_short[weekday] : Padded(ymd.day, used);
        break;
      case 'm':
        used = std::min<size_t>(run, 4);
        if (used <= 2) {
          result += Padded(ymd.month, used);
        } else {
          const std::string name = (has_day ? locale.months_genitive : locale.months_nominative)[month];
          result += used == 4 ? name : LeftCharacters(name, 3);
        }
        break;
      case 'y':
        used = run >= 4 ? 4 : std::min<size_t>(run, 2);
        result += used == 4 ? Padded(ymd.year, 4) : used == 2 ? Padded(ymd.year % 100, 2) : std::to_string(date.DayOfYear());
        break;
      case 'q':
        used = 1;
        result += std::to_string(date.Quarter());
        break;
      case 'w':
        used = std::min<size_t>(run, 2);
        result += used == 2 ? std::to_string(date.WeekFromSunday()) : std::to_string(date.Weekday() % 7 + 1);
        break;
      case 'h':
        used = std::min<size_t>(run, 2);
        result += Padded(seconds / 3600, used);
        break;
      case 'n':
        used = std::min<size_t>(run, 2);
        result += Padded(seconds / 60 % 60, used);
        break;
      case 's':
        used = std::min<size_t>(run, 2);
        result += Padded(seconds % 60, used);
        break;
      case '\\':
        used = std::min<size_t>(2, pattern.size() - i);
        result += pattern.substr(i + 1, used - 1);
        break;
      default:
        used = 1;
        result += pattern[i];
    }
    i += used;
  }
  return result;
}

double RoundByPattern(const Value& value, std::string_view pattern) {
  return NumberOr0(FormatNumber(value, pattern));
}

}  // namespace ostrinka
