#include "base/check_digits.h"

#include <span>

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr int kNipWeights[] = {6, 5, 7, 2, 3, 4, 5, 6, 7};
constexpr int kRegon7Weights[] = {2, 3, 4, 5, 6, 7};
constexpr int kRegon9Weights[] = {8, 9, 2, 3, 4, 5, 6, 7};
constexpr int kRegon14Weights[] = {2, 4, 8, 5, 0, 9, 7, 3, 6, 1, 2, 4, 8};

bool IsDigit(char letter) {
  return letter >= '0' && letter <= '9';
}
bool IsCapital(char letter) {
  return letter >= 'A' && letter <= 'Z';
}

char AsciiCapital(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// Whether the weighted sum of all digits but the last, modulo 11, is the last one.
bool LastDigitChecks(const std::string& digits, std::span<const int> weights) {
  if (digits.size() != weights.size() + 1) return false;
  int sum = 0;
  for (size_t i = 0; i < weights.size(); ++i) sum += weights[i] * (digits[i] - '0');
  return sum % 11 == digits.back() - '0';
}

}  // namespace

bool CheckNIP(std::string_view text) {
  return LastDigitChecks(DigitsOnly(text), kNipWeights);
}

bool CheckREGON(std::string_view text) {
  const std::string digits = DigitsOnly(text);
  return LastDigitChecks(digits, kRegon7Weights) || LastDigitChecks(digits, kRegon9Weights) || LastDigitChecks(digits, kRegon14Weights);
}

bool CheckIBAN(std::string_view text, std::string_view country) {
  std::string number = AlnumOnly(text);
  if (number.size() < 2 || !IsCapital(number[0]) || !IsCapital(number[1])) number = Trim(country) + number;
  if (number.size() < 4) return false;
  return ModOf(IbanDigits(number.substr(4) + number.substr(0, 4)), 97) == 1;
}

std::string DigitsOnly(std::string_view text) {
  std::string digits;
  for (char letter : text) {
    if (IsDigit(letter)) digits += letter;
  }
  return digits;
}

std::string AlnumOnly(std::string_view text) {
  std::string kept;
  for (char letter : text) {
    const char capital = AsciiCapital(letter);
    if (IsDigit(capital) || IsCapital(capital)) kept += capital;
  }
  return kept;
}

std::string IbanDigits(std::string_view text) {
  std::string digits;
  for (char letter : text) {
    const char capital = AsciiCapital(letter);
    if (IsDigit(capital)) digits += capital;
    if (IsCapital(capital)) digits += std::to_string(capital - 55);
  }
  return digits;
}

int64_t ModOf(std::string_view digits, int32_t divisor) {
  if (divisor < 1) return 0;
  int64_t remainder = 0;
  for (char digit : DigitsOnly(digits)) remainder = (remainder * 10 + (digit - '0')) % divisor;
  return remainder;
}

}  // namespace ostrinka
