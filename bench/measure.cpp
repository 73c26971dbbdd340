#include "measure.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace ostrinka::bench {

Pairs Compare(const Side& ours, const Side& theirs, int rounds) {
  ours();
  theirs();
  Pairs pairs;
  for (int round = 0; round < rounds; ++round) {
    const double our_seconds = ours();
    pairs.Add(our_seconds, theirs());
  }
  return pairs;
}

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  const size_t middle = values.size() / 2;
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(middle), values.end());
  return values[middle];
}

void GiveUp(const std::string& what) {
  std::fprintf(stderr, "ostrinka-bench: %s\n", what.c_str());
  std::exit(2);
}

void Require(bool holds, const std::string& what) {
  if (!holds) GiveUp(what);
}

bool Report::Wants(std::string_view name) const {
  return name.find(word_) != name.npos;
}

void Report::Ratio(const std::string& name, const Pairs& pairs, double at_most) {
  std::vector<double> ratios;
  for (size_t i = 0; i < pairs.ours.size(); ++i) ratios.push_back(pairs.ours[i] / pairs.theirs[i]);
  char remark[80];
  std::snprintf(remark, sizeof remark, "%.3f ms to %.3f ms", Median(pairs.ours) * 1e3, Median(pairs.theirs) * 1e3);
  Figure(name, Median(ratios), at_most, remark);
}

void Report::Figure(const std::string& name, double figure, double at_most, const std::string& remark) {
  const bool over = figure > at_most;
  any_over_ = any_over_ || over;
  std::printf("%-58s %7.2f  at most %5.2f  %-4s  (%s)\n", name.c_str(), figure, at_most, over ? "OVER" : "ok", remark.c_str());
  std::fflush(stdout);
}

}  // namespace ostrinka::bench
