// Field values to and from the bytes of a record.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/value.h"
#include "engine/field_layout.h"

namespace ostrinka {

// The value that stands in `record`, which holds a whole record; empty for a field of an unknown type.
Value DecodeField(const FieldDef& field, const char* record);
// The bytes of a text field without its nulls, appended to `to`.
void AppendTextBytes(const FieldDef& field, const char* record, std::string& to);
// A field of any type but text and currency as a number; dates as days, booleans as 0 and -1.
double DecodeNumber(const FieldDef& field, const char* record);

enum class EncodeFor { kAdd, kSave };
// Puts `value` in its place. False when it does not convert to the field's type. An over-long text goes on over the fields behind it, up to
// the end of the record. kSave clears a text field first and takes what is no number as 0 in links and attachments.
bool EncodeField(const FieldDef& field, const Value& value, EncodeFor purpose, std::string& record);

// What FIELD shows of a value: numbers as they are, anything else as text, nulls as blanks, trimmed.
Value ShownValue(Value value);

}  // namespace ostrinka
