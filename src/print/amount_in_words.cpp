#include "print/amount_in_words.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "base/format.h"
#include "base/text.h"

namespace ostrinka {
namespace {

struct Grammar {
  std::vector<std::string> major, minor;
};

std::vector<std::string> Forms(std::string_view list) {
  std::vector<std::string> forms = Split(Trim(ReplaceAll(list, "/", "")), ',');
  for (std::string& form : forms) form = Trim(form);
  return forms;
}

bool ReadGrammar(std::string_view text, Grammar& grammar) {
  const size_t slash = text.find('/');
  if (slash == std::string_view::npos) return false;
  grammar.major = Forms(text.substr(0, slash));
  grammar.minor = Forms(text.substr(slash));
  return grammar.major.size() >= 4 && grammar.minor.size() >= 4;
}

// Form of the noun after the given mode; "" for none.
std::string Noun(const Grammar& grammar, int mode, size_t form) {
  if (mode == 1) return grammar.major[form];
  if (mode == 2) return grammar.minor[form];
  return "";
}

struct Group {
  int hundreds, tens, units;
  bool few() const { return units >= 2 && units <= 4 && tens != 1; }
};

class Speller {
 public:
  explicit Speller(const Program& program) : program_(program) {}
  const std::string& words() const { return words_; }
  void Say(std::string_view text) { words_.append(text) += ' '; }
  void Digit(int digit) { Word("sn", digit); }
  void Number(const Group& group);
  // `family` is the key family of the noun: "th", "ml" or "bl".
  void GroupNoun(const Group& group, std::string_view family);

 private:
  void Word(std::string_view family, int digit) { Say(program_.Text("wd." + std::string(family) + "." + std::to_string(digit))); }

  const Program& program_;
  std::string words_;
};

void Speller::Number(const Group& group) {
  if (group.hundreds > 0) Word("hd", group.hundreds);
  if (group.tens == 1) {
    if (group.units > 0)
      Word("te", group.units);
    else
      Word("di", 1);
    return;
  }
  if (group.tens > 1) Word("di", group.tens);
  if (group.units > 0) Digit(group.units);
}

void Speller::GroupNoun(const Group& group, std::string_view family) {
  const char* form = nullptr;
  if (group.few())
    form = ".b";
  else if (group.hundreds > 0 || group.tens > 0 || group.units > 1)
    form = ".c";
  else if (group.units == 1)
    form = ".a";
  if (form) Say(program_.Text("wd." + std::string(family) + form));
}

std::string CleanBlanks(std::string text, bool compact) {
  if (compact) return ReplaceAll(text, " ", "");
  for (int pass = 0; pass < 3; ++pass) text = ReplaceAll(text, "  ", " ");
  return text;
}

std::string DigitByDigit(const Program& program, int64_t magnitude, bool negative, int mode, const Grammar& grammar) {
  Speller speller(program);
  for (const char digit : std::to_string(magnitude)) speller.Digit(digit - '0');
  return (negative ? "-" : "") + speller.words() + Noun(grammar, mode, 3);
}

std::string Inflected(const Program& program, int64_t magnitude, bool negative, int mode, const Grammar& grammar) {
  constexpr std::array<std::string_view, 4> kFamilies = {"bl", "ml", "th", ""};
  Speller speller(program);
  int64_t divisor = 1'000'000'000;
  Group group{};
  for (const std::string_view family : kFamilies) {
    const int three = static_cast<int>(magnitude / divisor % 1000);
    group = {three / 100, three / 10 % 10, three % 10};
    speller.Number(group);
    if (!family.empty()) speller.GroupNoun(group, family);
    divisor /= 1000;
  }
  // Kept: every number that ends in 1 takes the form after one, 11 and 21 too.
  const size_t form = group.few() ? 2 : group.units == 1 ? 1 : 3;
  return (negative ? "-" : "") + speller.words() + " " + Noun(grammar, mode, form);
}

}  // namespace

std::string AmountInWords(const Program& program, int32_t amount, bool compact, int16_t mode, std::string_view grammar_text) {
  Grammar grammar;
  if (!ReadGrammar(grammar_text, grammar)) return program.Text("wd.err");
  const int64_t magnitude = std::llabs(int64_t{amount});
  if (program.Text("wd.type") == "1") return CleanBlanks(DigitByDigit(program, magnitude, amount < 0, mode, grammar), compact);
  if (amount == 0) {
    const std::string noun = Noun(grammar, mode, 0);
    return program.Text("wd.sn.0") + (mode == 1 || mode == 2 ? " " + noun : "");
  }
  return CleanBlanks(Inflected(program, magnitude, amount < 0, mode, grammar), compact);
}

std::string TotalInWords(const Program& program, double total, std::string_view grammar) {
  if (!(std::fabs(total) < 2147483648.0)) return program.Text("wd.err");
  total = RoundByPattern(total, "0.00");  // a sum of rounded lines can lie a hair below a whole number
  const double major = std::trunc(total);
  const auto minor = static_cast<int32_t>(RoundByPattern((total - major) * 100, "0"));
  return Trim(AmountInWords(program, static_cast<int32_t>(major), false, 1, grammar)) + " " +
         Trim(AmountInWords(program, minor, false, 2, grammar));
}

}  // namespace ostrinka
