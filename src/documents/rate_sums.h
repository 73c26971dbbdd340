// Lines of a document summed by VAT rate.
//
// The rule stands here once; how an amount is rounded before it is added is the caller's: as currency values nothing is rounded, as 64-bit
// floats each line counts as the document's totals count it, as 32-bit floats as the settlement of an advance does.
#pragma once

#include <algorithm>
#include <vector>

#include "base/currency.h"

namespace ostrinka {

template <typename Amount>
struct RateAmounts {
  int32_t rate_record = 0;  // of stawki_vat; 0 for a line whose article has none
  Amount net{}, gross{};
};

// A sum that leaves the currency type keeps what it was.
inline Currency Plus(Currency a, Currency b) {
  return Add(a, b).value_or(a);
}
inline double Plus(double a, double b) {
  return a + b;
}
inline float Plus(float a, float b) {
  return a + b;
}

// One sum a rate, in the order of the table of rates. `amounts_of` gives the RateAmounts<Amount> of one line.
template <typename Amount, typename Lines, typename AmountsOf>
std::vector<RateAmounts<Amount>> SumByRate(const Lines& lines, AmountsOf amounts_of) {
  std::vector<RateAmounts<Amount>> sums;
  for (const auto& line : lines) {
    const RateAmounts<Amount> amounts = amounts_of(line);
    auto at = std::find_if(sums.begin(), sums.end(), [&](const auto& sum) { return sum.rate_record >= amounts.rate_record; });
    if (at == sums.end() || at->rate_record != amounts.rate_record) at = sums.insert(at, {amounts.rate_record, {}, {}});
    at->net = Plus(at->net, amounts.net);
    at->gross = Plus(at->gross, amounts.gross);
  }
  return sums;
}

}  // namespace ostrinka
