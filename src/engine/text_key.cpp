#include "engine/text_key.h"

#include <algorithm>
#include <array>

#include "base/format.h"
#include "base/text.h"

namespace ostrinka {
namespace {

// Rank of each byte of Windows-1250 among all by its code point.
const std::array<uint8_t, 256>& Ranks() {
  static const std::array<uint8_t, 256> kRanks = [] {
    std::array<int, 256> bytes{};
    for (int i = 0; i < 256; ++i) bytes[static_cast<size_t>(i)] = i;
    std::sort(bytes.begin(), bytes.end(),
              [](int a, int b) { return CodePointOfCp1250(static_cast<uint8_t>(a)) < CodePointOfCp1250(static_cast<uint8_t>(b)); });
    std::array<uint8_t, 256> ranks{};
    for (size_t i = 0; i < 256; ++i) ranks[static_cast<size_t>(bytes[i])] = static_cast<uint8_t>(i);
    return ranks;
  }();
  return kRanks;
}

// Only a text with a digit can read as a number.
bool ReadsAsNumber(std::string_view bytes) {
  const bool has_digit = std::any_of(bytes.begin(), bytes.end(), [](char c) { return c >= '0' && c <= '9'; });
  return has_digit && ReadNumber(FromCp1250(bytes)).has_value();
}

}  // namespace

std::string_view ShownBytes(std::string_view bytes) {
  if (bytes.empty() || (bytes.front() != ' ' && bytes.back() != ' ') || ReadsAsNumber(bytes)) return bytes;
  const size_t first = bytes.find_first_not_of(' ');
  if (first == bytes.npos) return {};
  return bytes.substr(first, bytes.find_last_not_of(' ') - first + 1);
}

int CompareCodePoints(std::string_view a, std::string_view b) {
  const std::array<uint8_t, 256>& ranks = Ranks();
  const size_t common = std::min(a.size(), b.size());
  for (size_t i = 0; i < common; ++i) {
    const int difference = ranks[static_cast<uint8_t>(a[i])] - ranks[static_cast<uint8_t>(b[i])];
    if (difference != 0) return difference;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

void AppendSortKey(std::string_view bytes, bool fold, std::string& to) {
  const std::array<uint8_t, 256>& ranks = Ranks();
  const uint8_t* folded = Cp1250FoldTable();
  const bool plain = !fold || ReadsAsNumber(bytes);
  for (const char c : bytes) {
    const uint8_t byte = static_cast<uint8_t>(c);
    to += static_cast<char>(ranks[plain ? byte : folded[byte]]);
  }
}

}  // namespace ostrinka
