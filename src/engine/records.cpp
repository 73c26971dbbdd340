// Records of a table: adding, loading, saving, deleting, locking.
#include <algorithm>

#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

constexpr char kDenied[] = "Permission denied";
constexpr char kMismatch[] = "Type mismatch";

}  // namespace

int32_t ClassQDBASE::State::CountRecords() {
  count = layout.count() == 0 ? 0 : file.CountRecords(layout.record_length());
  recount = false;
  return count;
}

bool ClassQDBASE::State::MayRead(int32_t n) {
  if (n < 1 || !file.IsOpen() || layout.count() == 0) return false;
  if (n > count) return CountRecords() >= n;
  recount = true;
  return true;
}

bool ClassQDBASE::State::ReadRecord(int32_t n, std::string& bytes) {
  bytes.resize(static_cast<size_t>(layout.record_length()));
  return file.ReadBytes(TableFile::RecordAt(n, layout.record_length()), bytes.data(), bytes.size());
}

bool ClassQDBASE::State::WriteRecord(int32_t n, const std::string& bytes) {
  return file.WriteBytes(TableFile::RecordAt(n, layout.record_length()), bytes.data(), bytes.size());
}

bool ClassQDBASE::State::IsLive(int32_t n) {
  char status[2];
  return file.ReadBytes(TableFile::RecordAt(n, layout.record_length()), status, sizeof status) && status[0] == 0;
}

bool ClassQDBASE::RECORD_ADD(const std::vector<Value>& values) {
  State& s = *state_;
  s.Debug("RECORD_ADD");
  if (!s.MayWrite()) return s.Fail(20, kDenied);
  if (s.file.IsOpen() && !s.ReadyToChange()) return s.Fail(20);
  if (s.layout.count() == 0) return s.Fail(20, "Invalid field number");
  if (values.size() > static_cast<size_t>(s.layout.count())) return s.Fail(20, "Too many arguments");
  std::string bytes(static_cast<size_t>(s.layout.record_length()), '\0');
  for (size_t i = 0; i < values.size(); ++i) {
    if (!EncodeField(s.layout.field(static_cast<int>(i) + 1), values[i], EncodeFor::kAdd, bytes)) return s.FailPlatform(kMismatch);
  }
  bytes[0] = bytes[1] = 0;
  const int64_t length = s.file.Size();
  const int64_t records = std::max<int64_t>(length - kRecordsOffset, 0) / s.layout.record_length();
  if (length < 0 || records >= INT32_MAX) return s.Fail(20);
  const int32_t n = static_cast<int32_t>(records) + 1;
  // The record before its number in the header: what fails half-way is taken back.
  if (!s.WriteRecord(n, bytes) || !s.file.WriteCount(n)) {
    const std::string error = s.file.LastError();
    s.file.Resize(length);
    return s.FailPlatform(error);
  }
  s.count = s.added = n;
  return s.Ok();
}

int32_t ClassQDBASE::RECORD_ADDED() const {
  return state_->added;
}

bool ClassQDBASE::RECORD_LOAD(int32_t n) {
  State& s = *state_;
  if (s.MayRead(n) && s.ReadRecord(n, s.buffer.Room(s.layout.record_length()))) {
    s.buffer.Loaded(s.layout.count());
    return true;
  }
  s.buffer.Reset();
  return s.Fail(25);
}

bool ClassQDBASE::RECORD_SAVE(int32_t n, bool revive) {
  return state_->SaveRecord(n, state_->buffer, revive);
}

bool ClassQDBASE::State::SaveRecord(int32_t n, RecordBuffer& values, bool revive) {
  Debug("RECORD_SAVE");
  if (!MayWrite()) return Fail(27, kDenied);
  std::string bytes;
  if (!file.IsOpen() || !ReadyToChange() || !InRange(n) || !ReadRecord(n, bytes)) return Fail(25);
  const std::string before = bytes;
  for (int field = 1; field <= layout.count(); ++field) {
    if (!values.Has(field)) continue;
    if (!EncodeField(layout.field(field), values.Get(field, layout), EncodeFor::kSave, bytes)) return FailPlatform(kMismatch);
  }
  if (revive) bytes[0] = bytes[1] = 0;
  if (!WriteRecord(n, bytes)) {
    const std::string error = file.LastError();
    WriteRecord(n, before);
    return FailPlatform(error);
  }
  return Ok();
}

bool ClassQDBASE::READ(int32_t record, const std::vector<FieldId>& fields, std::vector<Value>& values) {
  State& s = *state_;
  values.clear();
  if (!s.MayRead(record) || !s.ReadRecord(record, s.scratch)) return s.Fail(25);
  for (const FieldId& id : fields) {
    const int n = s.layout.Resolve(id);
    values.push_back(n == 0 ? Value() : DecodeField(s.layout.field(n), s.scratch.data()));
  }
  return true;
}

bool ClassQDBASE::WRITE(int32_t n, int32_t from, const std::vector<FieldValue>& values) {
  State& s = *state_;
  if (!s.MayWrite()) return s.Fail(28, kDenied);
  // The fields of a table without records may have changed since: before a place in the layout is used.
  if (s.file.IsOpen() && !s.ReadyToChange()) return s.Fail(25);
  RecordBuffer buffer;
  if (!s.MayRead(from) || !s.ReadRecord(from, buffer.Room(s.layout.record_length()))) return s.Fail(25);
  buffer.Loaded(s.layout.count());
  for (const FieldValue& entry : values) {
    const int field = s.FieldNumber(entry.field);
    if (field == 0) return false;
    buffer.Set(field, entry.value);
  }
  return s.SaveRecord(n, buffer, false);
}

bool ClassQDBASE::RECORD_DELETE(int32_t n) {
  State& s = *state_;
  s.Debug("RECORD_DELETE");
  if (!s.MayWrite()) return s.Fail(22, kDenied);
  std::string bytes;
  if (!s.file.IsOpen() || !s.ReadyToChange() || !s.InRange(n) || !s.ReadRecord(n, bytes)) {
    s.buffer.Reset();
    return s.Fail(25);
  }
  if (bytes[0] != 0) return s.Fail(25, "Record " + std::to_string(n) + " doesn't exist");
  constexpr char kDeleted[2] = {1, 0};
  if (!s.file.WriteBytes(TableFile::RecordAt(n, s.layout.record_length()), kDeleted, sizeof kDeleted))
    return s.FailPlatform(s.file.LastError());
  if (const int64_t index = s.selection.IndexOf(n); index >= 0) {
    s.selection.RemoveAt(static_cast<size_t>(index));
    const auto& left = s.selection.entries();
    s.current = left.empty() ? 0 : left[std::min(static_cast<size_t>(index), left.size() - 1)];
  }
  s.RecomputeLayout();
  return s.Ok();
}

bool ClassQDBASE::RECORD_EXIST(int32_t n) {
  State& s = *state_;
  if (n > s.count && s.recount) s.CountRecords();
  if (!s.file.IsOpen() || n < 1 || n > s.count) return s.Fail(25);
  return s.IsLive(n);
}

bool ClassQDBASE::RECORD_LOCK(int32_t n) {
  State& s = *state_;
  if (!s.InRange(n)) {
    s.buffer.Reset();
    return s.Fail(25);
  }
  return s.file.LockRecord(n, s.layout.record_length());
}

bool ClassQDBASE::RECORD_UNLOCK(int32_t n) {
  State& s = *state_;
  if (!s.InRange(n)) {
    s.buffer.Reset();
    return s.Fail(25);
  }
  return s.file.UnlockRecord(n, s.layout.record_length());
}

int32_t ClassQDBASE::RECORD_LENGTH() const {
  return state_->layout.record_length();
}

int32_t ClassQDBASE::RECORD_COUNT() {
  return state_->file.IsOpen() ? state_->CountRecords() : -1;
}

}  // namespace ostrinka
