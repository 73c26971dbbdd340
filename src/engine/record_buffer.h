// The field buffer: the values of one record, decoded from its bytes when they are first asked for.
#pragma once

#include <string>
#include <vector>

#include "engine/field_layout.h"
#include "engine/record_codec.h"

namespace ostrinka {

class RecordBuffer {
 public:
  // No field is in the buffer: a save then leaves every field as the file has it.
  void Reset() { state_.clear(); }
  // The bytes to read a record of `length` into; Loaded() makes them the buffer's content.
  std::string& Room(int32_t length) {
    bytes_.resize(static_cast<size_t>(length));
    return bytes_;
  }
  void Loaded(int fields) {
    state_.assign(static_cast<size_t>(fields), State::kBytes);
    if (values_.size() < state_.size()) values_.resize(state_.size());
  }

  bool Has(int n) const { return n >= 1 && static_cast<size_t>(n) <= state_.size() && state_[Index(n)] != State::kAbsent; }
  // The value of field `n`; empty when it is not in the buffer.
  const Value& Get(int n, const FieldLayout& layout) {
    static const Value kNothing;
    if (!Has(n) || !layout.Has(n)) return kNothing;
    if (state_[Index(n)] == State::kBytes) Put(n, DecodeField(layout.field(n), bytes_.data()));
    return values_[Index(n)];
  }
  void Set(int n, Value value) {
    if (state_.size() < static_cast<size_t>(n)) state_.resize(static_cast<size_t>(n), State::kAbsent);
    if (values_.size() < state_.size()) values_.resize(state_.size());
    Put(n, std::move(value));
  }
  // Carries the values over to a table whose fields changed, by name.
  void Remap(const FieldLayout& from, const FieldLayout& to);

 private:
  enum class State : uint8_t { kAbsent, kBytes, kValue };
  static size_t Index(int n) { return static_cast<size_t>(n - 1); }
  void Put(int n, Value value) {
    values_[Index(n)] = std::move(value);
    state_[Index(n)] = State::kValue;
  }

  std::string bytes_;
  std::vector<State> state_;
  std::vector<Value> values_;
};

}  // namespace ostrinka
