// Fields by name and number: what they are, and their values in the field buffer.
#include "base/text.h"
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

constexpr char kBadNumber[] = "Invalid field number";
constexpr char kBadName[] = "Invalid field name";

char PrefixOf(const FieldId& id) {
  if (id.by_number()) return 0;
  const std::string name = Trim(id.name());
  return !name.empty() && (name[0] == '.' || name[0] == '@') ? name[0] : '\0';
}

// Without its prefix, nulls as blanks, trimmed.
std::string WithoutPrefix(const FieldId& id) {
  return Trim(ReplaceAll(Trim(id.name()).substr(1), std::string_view("\0", 1), " "));
}

}  // namespace

int ClassQDBASE::State::FieldNumber(const FieldId& id) {
  const int n = layout.Resolve(id);
  if (n == 0) Fail(25, id.by_number() || IsAllDigits(Trim(id.name())) ? kBadNumber : kBadName);
  return n;
}

int ClassQDBASE::State::FieldNamed(const FieldId& id) {
  const int n = layout.Find(WithoutPrefix(id));
  if (n == 0) Fail(25, kBadName);
  return n;
}

Value ClassQDBASE::State::LinkValue(int n, int32_t target) {
  if (target < 1 || static_cast<size_t>(n) > links.size()) return {};
  const LinkedTable& link = links[static_cast<size_t>(n - 1)];
  if (!link.table) return {};
  State& there = *link.table->state_;
  if (!there.layout.Has(link.field)) return {};
  return there.ReadShown(target, link.field);
}

bool ClassQDBASE::State::ReadField(int32_t record, const FieldDef& field, std::string& bytes) {
  bytes.resize(static_cast<size_t>(layout.record_length()));
  return MayRead(record) && file.ReadBytes(TableFile::RecordAt(record, layout.record_length()) + field.offset, bytes.data() + field.offset,
                                           static_cast<size_t>(field.width));
}

Value ClassQDBASE::State::ReadShown(int32_t record, int n) {
  const FieldDef& field = layout.field(n);
  std::string& bytes = scratch;
  if (!ReadField(record, field, bytes)) return {};
  if (field.type != kLink) return ShownValue(DecodeField(field, bytes.data()));
  return ShownValue(LinkValue(n, Int32Or0(DecodeField(field, bytes.data()))));
}

Value ClassQDBASE::State::RawValue(const FieldId& id) {
  const char prefix = PrefixOf(id);
  const int n = prefix == 0 ? FieldNumber(id) : prefix == '.' ? FieldNamed(id) : FieldNumber(WithoutPrefix(id));
  if (n == 0) return {};
  if (prefix != '@') return Stored(n);
  return layout.field(n).type == kLink ? LinkValue(n, Int32Or0(Stored(n))) : Value();
}

Value ClassQDBASE::FieldRaw(const FieldId& id) {
  return state_->RawValue(id);
}

Value ClassQDBASE::FIELD(const FieldId& id) {
  return ShownValue(state_->RawValue(id));
}

bool ClassQDBASE::FIELD(const FieldId& id, const Value& value) {
  State& s = *state_;
  if (!s.MayWrite()) return s.Fail(28, "Permission denied");
  if (s.layout.count() == 0) return false;
  const int n = s.FieldNumber(PrefixOf(id) == '.' ? FieldId(WithoutPrefix(id)) : id);
  if (n == 0) return false;
  s.buffer.Set(n, value);
  return true;
}

std::string ClassQDBASE::Text(const FieldId& id) {
  return ToText(FIELD(id));
}
int32_t ClassQDBASE::Int(const FieldId& id) {
  return Int32Or0(FieldRaw(id));
}
double ClassQDBASE::Real(const FieldId& id) {
  return DoubleOr0(FieldRaw(id));
}
Currency ClassQDBASE::Money(const FieldId& id) {
  return CurrencyOr0(FieldRaw(id));
}
bool ClassQDBASE::Flag(const FieldId& id) {
  return BooleanOrFalse(FieldRaw(id));
}
Date ClassQDBASE::Day(const FieldId& id) {
  return DateOr0(FieldRaw(id));
}

std::string ClassQDBASE::TextOf(int32_t record, const FieldId& id) {
  State& s = *state_;
  const int n = s.FieldNumber(id);
  return n == 0 ? std::string() : ToText(s.ReadShown(record, n));
}

int ClassQDBASE::FIELD_COUNT() const {
  return state_->layout.count();
}

bool ClassQDBASE::FIELD_EXISTS(const FieldId& id) {
  State& s = *state_;
  if (s.layout.Resolve(id) != 0) return true;
  // Kept: a missing number is a failure that is told, a missing name a plain no, which the upgrade asks for all the time.
  return id.by_number() || IsAllDigits(Trim(id.name())) ? s.Fail(25, kBadNumber) : false;
}

std::string ClassQDBASE::FIELD_NAME(int n) {
  const int field = state_->FieldNumber(n);
  return field == 0 ? std::string() : state_->header.Field(field).name;
}

std::string ClassQDBASE::FIELD_LFILE(int n) {
  const int field = state_->FieldNumber(n);
  return field == 0 ? std::string() : state_->header.Field(field).link_file;
}

std::string ClassQDBASE::FIELD_LFIELD(int n) {
  const int field = state_->FieldNumber(n);
  return field == 0 ? std::string() : state_->header.Field(field).link_field;
}

int32_t ClassQDBASE::FIELD_TYPE(const FieldId& id) {
  const int field = PrefixOf(id) == '.' ? state_->FieldNamed(id) : state_->FieldNumber(id);
  return field == 0 ? 0 : state_->layout.field(field).type;
}

int32_t ClassQDBASE::FIELD_LEN(const FieldId& id) {
  const int field = PrefixOf(id) == '.' ? state_->FieldNamed(id) : state_->FieldNumber(id);
  return field == 0 ? 0 : state_->layout.field(field).length;
}

}  // namespace ostrinka
