// The arithmetic of an article's prices. Nothing is rounded here: the text of a field rounds, and is what the next step reads.
//
// Prices and profit in the article's currency, rate, margin and mark-up in percent.
#pragma once

#include <algorithm>

namespace ostrinka {

inline constexpr double kSmallestPrice = 0.01;  // stands in for a smaller denominator

inline double GrossFromNet(double net, double rate) {
  return net * (rate * 0.01 + 1);
}
inline double NetFromGross(double gross, double rate) {
  return gross / (rate * 0.01 + 1);
}
inline double ProfitOf(double net, double purchase) {
  return net - purchase;
}
inline double MarginOf(double profit, double net) {
  return profit / std::max(net, kSmallestPrice) * 100;
}
inline double MarkupOf(double profit, double purchase) {
  return profit / std::max(purchase, kSmallestPrice) * 100;
}
inline double NetFromProfit(double purchase, double profit) {
  return purchase + profit;
}
inline double NetFromMargin(double purchase, double margin) {
  return purchase / (std::clamp(100 - margin, 0.01, 100.0) * 0.01);
}
inline double NetFromMarkup(double purchase, double markup) {
  return purchase * (markup * 0.01) + purchase;
}

}  // namespace ostrinka
