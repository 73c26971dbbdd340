// Check digits of Polish tax, statistical and bank account numbers. Nothing here fails: a text of the wrong shape is invalid.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ostrinka {

// The tax number: ten digits, whatever stands between them.
bool CheckNIP(std::string_view text);
// The statistical number of 7, 9 or 14 digits, whatever stands between them. Kept strict: a remainder of 10
// is invalid and does not count as 0.
bool CheckREGON(std::string_view text);
// The account number in its international form; one without two letters in front gets `country` ("PL").
bool CheckIBAN(std::string_view text, std::string_view country);

// The characters 0 to 9 alone, in order.
std::string DigitsOnly(std::string_view text);
// The digits and the letters A to Z, in capitals; letters beyond ASCII are dropped.
std::string AlnumOnly(std::string_view text);
// Each letter replaced by its number, "A" by "10" up to "Z" by "35"; digits stay, anything else is dropped.
std::string IbanDigits(std::string_view text);
// Remainder of a digit string of any length; 0 for a divisor below 1.
int64_t ModOf(std::string_view digits, int32_t divisor);

}  // namespace ostrinka
