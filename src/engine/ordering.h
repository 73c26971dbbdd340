// Ordering a selection by the values of a field.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/value.h"
#include "engine/condition.h"
#include "engine/field_layout.h"

namespace ostrinka {

// Collects the keys of records, then sorts them. Texts are compared as bytes whose order is that of their code points.
class Ordering {
 public:
  // `id` as in FIELD; only fields of type text are folded. An unknown field gives every record the same key.
  Ordering(const FieldId& id, const FieldLayout& layout, LinkReader links);

  const FieldDef* field() const { return field_; }  // null for an unknown one
  void Reserve(size_t records) { entries_.reserve(records); }
  void Add(int32_t n, const char* record);
  // The record cannot be read: an empty key.
  void AddMissing(int32_t n);
  // Record numbers in order. Equal keys have no promised order.
  std::vector<int32_t> Sorted(bool descending);

 private:
  // Numbers stand before texts; among texts the first eight bytes decide most comparisons.
  struct Entry {
    double number;
    uint64_t prefix;
    int64_t start;   // in texts_; of a currency value: the value
    int32_t length;  // -1 number, -2 currency
    int32_t record;
  };

  void AddNumber(int32_t n, double number) { entries_.push_back({number, 0, 0, -1, n}); }
  void AddText(int32_t n, size_t start);
  void AddLink(int32_t n, int32_t target);
  int Compare(const Entry& a, const Entry& b) const;
  void SiftDown(size_t root, size_t end, int sign);

  LinkReader links_;
  const FieldDef* field_ = nullptr;
  int number_ = 0;
  bool through_link_ = false;
  std::string texts_, scratch_;
  std::vector<Entry> entries_, link_entries_;  // the latter by target: a key that was read before
  std::vector<uint8_t> link_known_;
};

}  // namespace ostrinka
