// The selection: record numbers in walking order, each at most once.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace ostrinka {

class RecordList {
 public:
  const std::vector<int32_t>& entries() const { return entries_; }
  bool empty() const { return entries_.empty(); }
  size_t size() const { return entries_.size(); }

  void Assign(std::vector<int32_t> entries) {
    entries_ = std::move(entries);
    present_.clear();
    for (const int32_t n : entries_) Mark(n, true);
    hint_ = 0;
  }
  void Clear() { Assign({}); }
  bool Has(int32_t n) const { return n >= 1 && static_cast<size_t>(n) < present_.size() && present_[static_cast<size_t>(n)]; }
  void Append(int32_t n) {
    entries_.push_back(n);
    Mark(n, true);
  }
  // Index from 0, -1 when absent. A walk finds its next entry beside the last one found.
  int64_t IndexOf(int32_t n) const {
    if (!Has(n)) return -1;
    const size_t from = hint_ > 0 ? hint_ - 1 : 0;
    for (size_t i = from; i < std::min(from + 3, entries_.size()); ++i) {
      if (entries_[i] == n) return Found(i);
    }
    return Found(static_cast<size_t>(std::find(entries_.begin(), entries_.end(), n) - entries_.begin()));
  }
  void RemoveAt(size_t index) {
    Mark(entries_[index], false);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
  }
  // Another order of the same records.
  void Reorder(std::vector<int32_t> entries) {
    entries_ = std::move(entries);
    hint_ = 0;
  }

 private:
  void Mark(int32_t n, bool present) {
    const size_t at = static_cast<size_t>(n);
    if (at >= present_.size()) present_.resize(std::max(at + 1, present_.size() * 3 / 2));
    present_[at] = present;
  }
  int64_t Found(size_t index) const {
    hint_ = index;
    return static_cast<int64_t>(index);
  }

  std::vector<int32_t> entries_;
  std::vector<bool> present_;
  mutable size_t hint_ = 0;
};

}  // namespace ostrinka
