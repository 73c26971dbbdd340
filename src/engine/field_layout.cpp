#include "engine/field_layout.h"

#include <charconv>

#include "base/text.h"

namespace ostrinka {

int32_t FieldWidth(int32_t type, int32_t length) {
  switch (type) {
    case kByte:
      return 1;
    case kBoolean:
    case kInteger:
      return 2;
    case kLong:
    case kSingle:
    case kLink:
    case kMemo:
      return 4;
    case kDouble:
    case kCurrency:
    case kDate:
      return 8;
    case kText:
      return length >= 0 && length <= kMaxTextLength ? length : -1;
    default:
      return 0;
  }
}

bool FieldLayout::Build(const TableHeader& header) {
  Clear();
  int32_t offset = 2;
  for (int n = 1; n <= header.field_count(); ++n) {
    const FieldSlot slot = header.Field(n);
    const int32_t width = FieldWidth(slot.type, slot.length);
    if (width < 0) {
      Clear();
      return false;
    }
    fields_.push_back({Upper(slot.name), slot.type, slot.length, width, offset});
    by_name_.emplace(fields_.back().name, n);
    offset += width;
  }
  record_length_ = offset;
  return true;
}

void FieldLayout::Clear() {
  fields_.clear();
  by_name_.clear();
  record_length_ = 2;
}

int FieldLayout::Find(std::string_view name) const {
  auto found = by_name_.find(name);
  if (found == by_name_.end()) found = by_name_.find(Upper(Trim(name)));
  return found == by_name_.end() || found->first.empty() ? 0 : found->second;
}

int FieldLayout::Resolve(const FieldId& id) const {
  if (id.by_number()) return Has(id.number()) ? id.number() : 0;
  const std::string_view name = id.name();
  if (const int found = Find(name)) return found;
  const std::string digits = Trim(name);
  if (!IsAllDigits(digits)) return 0;
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && Has(number) ? number : 0;
}

}  // namespace ostrinka
