// Paired measurements: both sides in turn, round after round, and the median of their ratios.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrinka::bench {

inline constexpr int kRounds = 11;

// Wall time of one call.
template <typename Function>
double Seconds(Function&& function) {
  const auto start = std::chrono::steady_clock::now();
  function();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// One side: does its work once and gives the seconds of the part that counts, so that setting up and clearing away stay outside.
using Side = std::function<double()>;

// Times of the two sides, by round.
struct Pairs {
  std::vector<double> ours, theirs;
  void Add(double our_seconds, double their_seconds) {
    ours.push_back(our_seconds);
    theirs.push_back(their_seconds);
  }
};

// Each side once untimed, then the rounds: ours, theirs, ours, theirs ...
Pairs Compare(const Side& ours, const Side& theirs, int rounds = kRounds);

double Median(std::vector<double> values);

// Ends the program with a message: a measurement whose two sides do not agree is worth nothing.
[[noreturn]] void GiveUp(const std::string& what);
void Require(bool holds, const std::string& what);

// Prints the rows and remembers whether one is over its figure.
class Report {
 public:
  // Only rows whose name holds `word` are wanted; all when it is empty.
  explicit Report(std::string word) : word_(std::move(word)) {}
  bool Wants(std::string_view name) const;
  // The median of the paired ratios against `at_most`.
  void Ratio(const std::string& name, const Pairs& pairs, double at_most);
  void Figure(const std::string& name, double figure, double at_most, const std::string& remark);
  bool any_over() const { return any_over_; }

 private:
  std::string word_;
  bool any_over_ = false;
};

}  // namespace ostrinka::bench
