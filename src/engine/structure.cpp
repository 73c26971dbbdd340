// Structure changes: adding, deleting, renaming and redefining fields.
//
// On a table with records the whole file is rewritten, in this order: ".temp" (the table as it was), ".new" (the table as it shall be) and
// brought to the disk, ".temp" deleted, ".new" renamed over the table. So the table is whole at any moment; a change that breaks off leaves
// companions, which the same change overwrites when it is repeated.
#include <algorithm>
#include <cstring>

#include "base/bytes.h"
#include "base/text.h"
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

constexpr char kDenied[] = "Permission denied";
constexpr char kBadName[] = "Invalid field name";
constexpr int64_t kBlock = 1024 * 1024;

// How the records of the old shape become those of the new one.
struct Reshape {
  int32_t old_length, new_length;
  std::vector<std::pair<size_t, size_t>> pieces;  // offset and length in the old record, put one behind the other
};

bool ReshapeRecords(File& from, File& to, int32_t count, const Reshape& shape, std::string& error) {
  const size_t old_length = static_cast<size_t>(shape.old_length), new_length = static_cast<size_t>(shape.new_length);
  const int32_t per_block = std::max<int32_t>(1, static_cast<int32_t>(kBlock / std::max(shape.old_length, shape.new_length)));
  std::string before(old_length * static_cast<size_t>(per_block), '\0'), after;
  for (int32_t done = 0; done < count;) {
    const size_t records = static_cast<size_t>(std::min(per_block, count - done));
    const size_t bytes = records * old_length;
    if (from.ReadAt(kRecordsOffset + int64_t{done} * shape.old_length, before.data(), bytes) != static_cast<int64_t>(bytes)) {
      error = from.LastError();
      return false;
    }
    after.assign(records * new_length, '\0');
    for (size_t i = 0; i < records; ++i) {
      char* put = after.data() + i * new_length;
      for (const auto& [offset, length] : shape.pieces) {
        std::memcpy(put, before.data() + i * old_length + offset, length);
        put += length;
      }
    }
    if (!to.WriteAt(kRecordsOffset + int64_t{done} * shape.new_length, after.data(), after.size())) {
      error = to.LastError();
      return false;
    }
    done += static_cast<int32_t>(records);
  }
  return true;
}

}  // namespace

bool ClassQDBASE::State::TakeSoleUse(int code) {
  bool lost = false;
  if (file.TakeSoleUse(lost)) return true;
  if (!lost) return Fail(code);
  CloseFile();
  return Fail(15);
}

// Writes ".temp" and ".new"; null when that failed, and `error` says why.
std::unique_ptr<File> ClassQDBASE::State::BuildCompanions(const TableHeader& new_header, const Reshaping& pieces, std::string& error) {
  const std::unique_ptr<File> temp = MakeAnew(platform.files, path + ".temp", &error);
  if (!temp || !CopyBytes(*file.raw(), *temp, file.Size(), error)) return nullptr;
  std::unique_ptr<File> made = MakeAnew(platform.files, path + ".new", &error);
  if (!made) return nullptr;
  made->WillFlush();
  FieldLayout new_layout;
  TableHeader positioned = new_header;
  if (!new_layout.Build(new_header)) {
    error = "Invalid file format";
    return nullptr;
  }
  for (int n = 1; n <= new_layout.count(); ++n) positioned.SetFieldPosition(n, new_layout.field(n).offset - 1);
  const int32_t new_count = new_layout.count() == 0 ? 0 : count;
  const bool headed =
      made->WriteAt(0, positioned.data(), static_cast<size_t>(kHeaderSize)) && made->WriteAt(kCountOffset, &new_count, sizeof new_count);
  if (headed && !ReshapeRecords(*temp, *made, new_count, {layout.record_length(), new_layout.record_length(), pieces}, error))
    return nullptr;
  if (headed && made->Flush()) return made;
  error = made->LastError();
  return nullptr;
}

bool ClassQDBASE::State::ReplaceFile(const TableHeader& new_header, int code, const Reshaping& pieces) {
  if (!TakeSoleUse(code)) return false;
  CountRecords();
  std::string error;
  std::unique_ptr<File> made = BuildCompanions(new_header, pieces, error);
  bool done = made != nullptr;
  if (done) {
    platform.files.Remove(path + ".temp");
    done = file.Replace(std::move(made), path + ".new", &error);
  }
  file.LeaveSoleUse();
  if (done) return true;
  if (!ReadHeaderAgain()) CloseFile();
  return FailPlatform(error);
}

// A torn record behind the header of a table without a whole one would be records of a shorter shape, or of the first field.
bool ClassQDBASE::State::DropFragment(int code) {
  if (file.Size() <= kRecordsOffset) return true;
  if (!TakeSoleUse(code)) return false;
  const bool cut = CountRecords() == 0 && file.Resize(kRecordsOffset);
  file.LeaveSoleUse();
  return cut || Fail(code);
}

bool ClassQDBASE::State::AddField(const FieldSlot& slot) {
  TableHeader changed = header;
  const int n = header.field_count() + 1;
  changed.SetFieldCount(n);
  changed.SetField(n, slot);
  if (CountRecords() == 0) {
    if (!DropFragment(29)) return false;
    header = changed;
    FieldLayout check;
    check.Build(header);
    header.SetFieldPosition(n, check.field(n).offset - 1);
    if (!WriteHeader()) return FailPlatform(file.LastError());
  } else if (!ReplaceFile(changed, 29, {{0, static_cast<size_t>(layout.record_length())}})) {
    return false;
  }
  if (!RecomputeLayout()) return Fail(10);
  if (slot.type == kLink) OpenLink(n);
  return Ok();
}

bool ClassQDBASE::FIELD_ADD(std::string_view name, int32_t type, int32_t length, std::string_view link_file, std::string_view link_field) {
  State& s = *state_;
  s.Debug("FIELD_ADD");
  if (!s.IsOwner()) return s.Fail(29, kDenied);
  if (!s.file.IsOpen()) return s.Fail(10);
  FieldSlot slot{Upper(Trim(name)), type, type == kText ? length : 0, 0, Trim(link_file), Trim(link_field)};
  if (IsAllDigits(slot.name) || !IsPlainName(slot.name)) return s.Fail(10, kBadName);
  if (type == kLink && (slot.link_file.empty() || slot.link_field.empty())) return s.Fail(10, "Invalid link value");
  if (type != kLink && !(slot.link_file.empty() && slot.link_field.empty())) {
    return s.Fail(10, "Wrong number of arguments or invalid property assigment");  // kept: so spelled in older logs
  }
  if (!s.ReadyToWrite() || !s.ReadHeaderAgain() || s.header.field_count() >= kMaxFields) return s.Fail(10);
  if (slot.name.empty() || CharacterCount(slot.name) > 16) return s.Fail(10);
  if (type == kText && (length <= 0 || length > kMaxTextLength)) return s.Fail(10, "Bad field length");
  if (s.layout.Find(slot.name) != 0) return s.Fail(10, "Field '" + slot.name + "' already exist");
  return s.AddField(slot);
}

bool ClassQDBASE::FIELD_DELETE(const FieldId& id) {
  State& s = *state_;
  s.Debug("FIELD_DELETE");
  if (!s.IsOwner()) return s.Fail(30, kDenied);
  if (s.file.IsOpen() && !(s.ReadyToWrite() && s.ReadHeaderAgain())) return s.Fail(30);
  const int n = s.FieldNumber(id);
  if (n == 0) return false;
  TableHeader changed = s.header;
  changed.RemoveField(n);
  if (s.CountRecords() == 0) {
    if (!s.DropFragment(30)) return false;
    s.header = changed;
    if (!s.WriteHeader()) return s.FailPlatform(s.file.LastError());
  } else {
    const FieldDef& gone = s.layout.field(n);
    const size_t from = static_cast<size_t>(gone.offset), to = from + static_cast<size_t>(gone.width);
    if (!s.ReplaceFile(changed, 30, {{0, from}, {to, static_cast<size_t>(s.layout.record_length()) - to}})) return false;
  }
  if (static_cast<size_t>(n) <= s.links.size()) s.links.erase(s.links.begin() + (n - 1));
  if (!s.RecomputeLayout()) return s.Fail(30);
  SELECTION("", "", "", ordAsc, 0, 0);
  return s.Ok();
}

bool ClassQDBASE::FIELD_RENAME(const FieldId& id, std::string_view new_name, bool force) {
  State& s = *state_;
  if (!s.file.IsOpen() || !s.ReadyToWrite()) return s.Fail(11);
  bool lost = false;
  const bool alone = s.file.TakeSoleUse(lost);
  if (lost) {
    s.CloseFile();
    return s.Fail(15);
  }
  if (alone) s.file.LeaveSoleUse();
  if (!alone && !force) return false;
  const std::string name = Upper(Trim(new_name));
  if (!IsPlainName(name) || name.empty() || CharacterCount(name) > 16) return s.Fail(10, kBadName);
  if (!s.IsOwner()) return s.Fail(35, kDenied);
  if (!s.ReadHeaderAgain()) return s.Fail(11);
  const int n = s.FieldNumber(id);
  if (n == 0) return false;
  const int other = s.layout.Find(name);
  if (other != 0 && other != n) return s.Fail(11, "Field '" + name + "' already exist");
  FieldSlot slot = s.header.Field(n);
  slot.name = name;
  s.header.SetField(n, slot);
  s.BuildLayout();
  return (s.WriteHeader() && s.file.Flush()) || s.FailPlatform(s.file.LastError());
}

bool ClassQDBASE::FIELD_SET(int n, std::string_view name, int32_t type, int32_t length) {
  State& s = *state_;
  if (!s.IsOwner()) return s.Fail(35, kDenied);
  if (!s.file.IsOpen() || !s.ReadyToWrite() || !s.ReadHeaderAgain() || !s.layout.Has(n)) return false;
  if (s.CountRecords() != 0) return true;  // kept: with records there is nothing to do, and that counts as done
  if (type == kText && (length <= 0 || length > kMaxTextLength)) return false;
  if (!s.DropFragment(28)) return false;
  FieldSlot slot = s.header.Field(n);
  slot.name = Upper(Trim(name));
  slot.type = type;
  slot.length = length;
  s.header.SetField(n, slot);
  s.BuildLayout();
  return (s.WriteHeader() && s.RecomputeLayout()) || s.FailPlatform(s.file.LastError());
}

}  // namespace ostrinka
