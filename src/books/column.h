// A column of a table as a typed constant: which table, which field, and what it holds.
#pragma once

#include <string>
#include <type_traits>

#include "base/value.h"
#include "company/tables.h"
#include "engine/record_codec.h"

namespace ostrinka {

// A link holds the number of a record of another table; the text that stands for it is read with LinkText.
struct Link {};
// Files kept with the record, through the engine's attachments alone.
struct Attachments {};

template <typename T>
struct Column {
  int table;
  const char* name;
};

namespace column_traits {

template <typename T>
struct Traits;
template <>
struct Traits<bool> {
  using Held = bool;
  static constexpr FieldType kType = kBoolean;
  static Held From(const Value& value) { return BooleanOrFalse(value); }
};
template <>
struct Traits<int16_t> {
  using Held = int16_t;
  static constexpr FieldType kType = kInteger;
  static Held From(const Value& value) { return ToInt16(value).value_or(0); }
};
template <>
struct Traits<int32_t> {
  using Held = int32_t;
  static constexpr FieldType kType = kLong;
  static Held From(const Value& value) { return Int32Or0(value); }
};
template <>
struct Traits<float> {
  using Held = float;
  static constexpr FieldType kType = kSingle;
  static Held From(const Value& value) { return FloatOr0(value); }
};
template <>
struct Traits<double> {
  using Held = double;
  static constexpr FieldType kType = kDouble;
  static Held From(const Value& value) { return DoubleOr0(value); }
};
template <>
struct Traits<Currency> {
  using Held = Currency;
  static constexpr FieldType kType = kCurrency;
  static Held From(const Value& value) { return CurrencyOr0(value); }
};
template <>
struct Traits<Date> {
  using Held = Date;
  static constexpr FieldType kType = kDate;
  static Held From(const Value& value) { return DateOr0(value); }
};
template <>
struct Traits<std::string> {
  using Held = std::string;
  static constexpr FieldType kType = kText;
  static Held From(const Value& value) { return ToText(ShownValue(value)); }  // without the blanks around it
};
template <>
struct Traits<Link> {
  using Held = int32_t;
  static constexpr FieldType kType = kLink;
  static Held From(const Value& value) { return Int32Or0(value); }
};
template <>
struct Traits<Attachments> {
  using Held = int32_t;
  static constexpr FieldType kType = kMemo;
};

}  // namespace column_traits

// What a column of that kind holds in memory, and the type of its field in the table.
template <typename T>
using Held = typename column_traits::Traits<T>::Held;
template <typename T>
inline constexpr FieldType kFieldTypeOf = column_traits::Traits<T>::kType;

// What the column makes of a stored value; 0, false or "" where it does not convert.
template <typename T>
Held<T> FromStored(const Column<T>&, const Value& value) {
  return column_traits::Traits<T>::From(value);
}

}  // namespace ostrinka
