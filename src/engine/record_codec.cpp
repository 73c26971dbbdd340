#include "engine/record_codec.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "base/bytes.h"
#include "base/text.h"

namespace ostrinka {
namespace {

template <typename T>
bool Put(const std::optional<T>& value, char* to) {
  if (value) StoreLe(to, *value);
  return value.has_value();
}

void PutText(const FieldDef& field, const Value& value, EncodeFor purpose, std::string& record) {
  const size_t at = static_cast<size_t>(field.offset);
  if (purpose == EncodeFor::kSave) std::memset(record.data() + at, 0, static_cast<size_t>(field.width));
  const std::string bytes = ToCp1250(ToText(value));
  // kept: a text longer than its field is not cut
  std::memcpy(record.data() + at, bytes.data(), std::min(bytes.size(), record.size() - at));
}

// Kept: saving takes what is no number for "none", adding refuses it.
bool PutRecordNumber(const Value& value, EncodeFor purpose, char* to) {
  if (purpose == EncodeFor::kSave && !IsNumeric(value)) {
    StoreLe(to, int32_t{0});
    return true;
  }
  return Put(ToInt32(value), to);
}

}  // namespace

void AppendTextBytes(const FieldDef& field, const char* record, std::string& to) {
  const char* from = record + field.offset;
  const char* const end = from + field.width;
  while (from < end) {
    const auto* null = static_cast<const char*>(std::memchr(from, 0, static_cast<size_t>(end - from)));
    to.append(from, null ? null : end);
    if (!null) return;
    from = null + 1;
    // The padding: nothing but nulls up to the end.
    if (from < end && *from == 0 && std::memcmp(from, from + 1, static_cast<size_t>(end - from - 1)) == 0) return;
  }
}

Value DecodeField(const FieldDef& field, const char* record) {
  const char* at = record + field.offset;
  switch (field.type) {
    case kByte:
      return LoadLe<uint8_t>(at);
    case kBoolean:
      return LoadLe<int16_t>(at) != 0;
    case kInteger:
      return LoadLe<int16_t>(at);
    case kLong:
    case kLink:
    case kMemo:
      return LoadLe<int32_t>(at);
    case kSingle:
      return LoadLe<float>(at);
    case kDouble:
      return LoadLe<double>(at);
    case kCurrency:
      return Currency::FromRaw(LoadLe<int64_t>(at));
    case kDate:
      return Date(LoadLe<double>(at));
    case kText: {
      std::string bytes;
      AppendTextBytes(field, record, bytes);
      return FromCp1250(bytes);
    }
    default:
      return {};
  }
}

double DecodeNumber(const FieldDef& field, const char* record) {
  const char* at = record + field.offset;
  switch (field.type) {
    case kByte:
      return LoadLe<uint8_t>(at);
    case kBoolean:
      return LoadLe<int16_t>(at) != 0 ? -1 : 0;
    case kInteger:
      return LoadLe<int16_t>(at);
    case kLong:
    case kLink:
    case kMemo:
      return LoadLe<int32_t>(at);
    case kSingle:
      return static_cast<double>(LoadLe<float>(at));
    case kDouble:
    case kDate:
      return LoadLe<double>(at);
    default:
      return 0;
  }
}

bool EncodeField(const FieldDef& field, const Value& value, EncodeFor purpose, std::string& record) {
  char* at = record.data() + field.offset;
  switch (field.type) {
    case kByte:
      return Put(ToByte(value), at);
    case kBoolean: {
      const std::optional<bool> flag = ToBoolean(value);
      return Put(flag ? std::optional<int16_t>(static_cast<int16_t>(*flag ? -1 : 0)) : std::nullopt, at);
    }
    case kInteger:
      return Put(ToInt16(value), at);
    case kLong:
      return Put(ToInt32(value), at);
    case kLink:
    case kMemo:
      return PutRecordNumber(value, purpose, at);
    case kSingle:
      return Put(ToFloat(value), at);
    case kDouble:
      return Put(ToDouble(value), at);
    case kCurrency: {
      const std::optional<Currency> money = ToCurrency(value);
      return Put(money ? std::optional(money->raw()) : std::nullopt, at);
    }
    case kDate: {
      const std::optional<Date> date = ToDate(value);
      return Put(date ? std::optional(date->days()) : std::nullopt, at);
    }
    case kText:
      PutText(field, value, purpose, record);
      return true;
    default:
      return true;
  }
}

Value ShownValue(Value value) {
  if (IsNumeric(value)) return value;
  std::string text = ToText(value);
  std::replace(text.begin(), text.end(), '\0', ' ');
  return Trim(text);
}

}  // namespace ostrinka
