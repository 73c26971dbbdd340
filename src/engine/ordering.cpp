#include "engine/ordering.h"

#include <algorithm>
#include <cstring>

#include "base/bytes.h"
#include "base/text.h"
#include "engine/record_codec.h"
#include "engine/text_key.h"

namespace ostrinka {
namespace {

constexpr int32_t kNumberKey = -1, kCurrencyKey = -2;
constexpr size_t kMostCachedTargets = size_t{1} << 22;

// The first eight bytes as a number that orders like them.
uint64_t PrefixOf(std::string_view text) {
  uint64_t prefix = 0;
  for (size_t i = 0; i < 8; ++i) prefix = prefix << 8 | (i < text.size() ? static_cast<uint8_t>(text[i]) : 0u);
  return prefix;
}

int Order(double a, double b) {
  return a < b ? -1 : a > b ? 1 : 0;
}

}  // namespace

Ordering::Ordering(const FieldId& id, const FieldLayout& layout, LinkReader links) : links_(std::move(links)) {
  std::string name = Trim(id.name());
  const bool prefixed = !name.empty() && (name[0] == '.' || name[0] == '@');
  through_link_ = prefixed && name[0] == '@';
  number_ = prefixed ? layout.Resolve(FieldId(Trim(name.substr(1)))) : layout.Resolve(id);
  if (number_ != 0) field_ = &layout.field(number_);
}

void Ordering::Add(int32_t n, const char* record) {
  if (!field_ || (through_link_ && field_->type != kLink)) return AddMissing(n);
  if (through_link_) return AddLink(n, LoadLe<int32_t>(record + field_->offset));
  if (field_->type == kCurrency) {
    entries_.push_back({0, 0, LoadLe<int64_t>(record + field_->offset), kCurrencyKey, n});
  } else if (field_->type == kText) {
    const size_t start = texts_.size();
    scratch_.clear();
    AppendTextBytes(*field_, record, scratch_);
    AppendSortKey(ShownBytes(scratch_), true, texts_);
    AddText(n, start);
  } else if (field_->width > 0) {
    AddNumber(n, DecodeNumber(*field_, record));
  } else {
    AddMissing(n);
  }
}

void Ordering::AddMissing(int32_t n) {
  AddText(n, texts_.size());
}

void Ordering::AddText(int32_t n, size_t start) {
  const std::string_view text = std::string_view(texts_).substr(start);
  entries_.push_back({0, PrefixOf(text), static_cast<int64_t>(start), static_cast<int32_t>(text.size()), n});
}

void Ordering::AddLink(int32_t n, int32_t target) {
  const size_t slot = target < 1 ? 0 : static_cast<size_t>(target);
  const bool cached = slot < kMostCachedTargets;
  if (cached && slot >= link_known_.size()) {
    const size_t size = std::max(slot + 1, link_known_.size() * 2);
    link_known_.resize(size);
    link_entries_.resize(size);
  }
  if (cached && link_known_[slot]) {
    entries_.push_back(link_entries_[slot]);
    entries_.back().record = n;
    return;
  }
  const Value value = links_(number_, target);
  if (IsText(value) || IsEmpty(value)) {
    const size_t start = texts_.size();
    AppendSortKey(ToCp1250(ToText(value)), false, texts_);
    AddText(n, start);
  } else {
    AddNumber(n, DoubleOr0(value));
  }
  if (!cached) return;
  link_known_[slot] = 1;
  link_entries_[slot] = entries_.back();
}

int Ordering::Compare(const Entry& a, const Entry& b) const {
  if (a.length == kNumberKey && b.length == kNumberKey) return Order(a.number, b.number);
  if (a.length == kCurrencyKey && b.length == kCurrencyKey) return a.start < b.start ? -1 : a.start > b.start ? 1 : 0;
  if (a.length < 0 || b.length < 0) return a.length < 0 ? (b.length < 0 ? 0 : -1) : 1;
  if (a.prefix != b.prefix) return a.prefix < b.prefix ? -1 : 1;
  const std::string_view texts = texts_;
  return texts.substr(static_cast<size_t>(a.start), static_cast<size_t>(a.length))
      .compare(texts.substr(static_cast<size_t>(b.start), static_cast<size_t>(b.length)));
}

// Kept: a heap sort by hand in place of the library's. Equal keys have no order of their own, and lists show them as this one leaves them.
// Entries count from 1 here; `sign` 1 lets the larger child rise, -1 the smaller.
void Ordering::SiftDown(size_t root, size_t end, int sign) {
  const Entry moving = entries_[root - 1];
  for (size_t child = root * 2; child <= end; child = root * 2) {
    if (child < end && Compare(entries_[child], entries_[child - 1]) * sign > 0) ++child;
    if (Compare(entries_[child - 1], moving) * sign <= 0) break;
    entries_[root - 1] = entries_[child - 1];
    root = child;
  }
  entries_[root - 1] = moving;
}

std::vector<int32_t> Ordering::Sorted(bool descending) {
  const int sign = descending ? -1 : 1;
  const size_t count = entries_.size();
  for (size_t i = count / 2; i >= 1; --i) SiftDown(i, count, sign);
  for (size_t i = count; i > 1; --i) {
    std::swap(entries_[0], entries_[i - 1]);
    SiftDown(1, i - 1, sign);
  }
  std::vector<int32_t> records(count);
  for (size_t i = 0; i < count; ++i) records[i] = entries_[i].record;
  return records;
}

}  // namespace ostrinka
