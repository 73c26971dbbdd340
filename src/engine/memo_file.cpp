#include "engine/memo_file.h"

#include <algorithm>
#include <cstring>

#include "base/bytes.h"
#include "base/text.h"

namespace ostrinka {
namespace {

constexpr size_t kNameSize = 256, kFieldSize = 16, kCopyBlock = size_t{1} << 20;
constexpr int64_t kShareByte = int64_t{1} << 62, kChangeByte = kShareByte + 1;
constexpr int kLockAttempts = 200, kLockPause = 10;  // milliseconds
constexpr size_t kSizeAt = 256, kLiveAt = 260, kFieldAt = 262, kRecordAt = 278, kNextAt = 282;

std::string Padded(const std::string& utf8, size_t size) {
  std::string bytes = ToCp1250(utf8);
  bytes.resize(size, ' ');
  return bytes;
}

std::string Unpadded(const char* bytes, size_t size) {
  std::string kept(bytes, size);
  std::erase(kept, '\0');
  return Trim(FromCp1250(kept));
}

std::string Encode(const MemoEntry& entry) {
  std::string bytes = Padded(entry.name, kNameSize);
  bytes.resize(static_cast<size_t>(kMemoEntrySize), '\0');
  StoreLe(bytes.data() + kSizeAt, entry.size);
  StoreLe(bytes.data() + kLiveAt, static_cast<int16_t>(entry.live ? -1 : 0));
  std::memcpy(bytes.data() + kFieldAt, Padded(Upper(entry.field), kFieldSize).data(), kFieldSize);
  StoreLe(bytes.data() + kRecordAt, entry.record);
  StoreLe(bytes.data() + kNextAt, static_cast<int32_t>(entry.next));
  return bytes;
}

MemoEntry Decode(const char* bytes) {
  MemoEntry entry;
  entry.name = Unpadded(bytes, kNameSize);
  entry.size = LoadLe<int32_t>(bytes + kSizeAt);
  entry.live = LoadLe<int16_t>(bytes + kLiveAt) != 0;
  entry.field = Unpadded(bytes + kFieldAt, kFieldSize);
  entry.record = LoadLe<int32_t>(bytes + kRecordAt);
  entry.next = LoadLe<int32_t>(bytes + kNextAt);
  return entry;
}

// Whether the entry's data lie within a file of that length.
bool IsWhole(const MemoEntry& entry, int64_t length) {
  return entry.size >= 1 && entry.offset + kMemoEntrySize + entry.size <= length;
}

}  // namespace

std::unique_ptr<MemoFile> MemoFile::Open(Platform& platform, const std::string& path) {
  std::unique_ptr<MemoFile> memo(new MemoFile(platform, path));
  return memo->Reopen() ? std::move(memo) : nullptr;
}

bool MemoFile::Reopen() {
  std::unique_ptr<File> other = files_.Open(path_, OpenMode::kCompanion);
  if (!other || !other->Lock(kShareByte, 1, false)) return false;
  file_ = std::move(other);
  return true;
}

bool MemoFile::EnsureNamed() {
  return file_->StillNamed() || Reopen();
}

bool MemoFile::StartChange() {
  for (int attempt = 0; attempt < kLockAttempts; ++attempt) {
    if (EnsureNamed() && file_->Lock(kChangeByte, 1, true)) {
      if (file_->StillNamed()) return true;
      EndChange();
    } else {
      waiter_.Wait(kLockPause);
    }
  }
  return false;
}

void MemoFile::EndChange() {
  file_->Unlock(kChangeByte, 1);
}

void MemoFile::Walk(const std::function<bool(const MemoEntry&)>& visit) {
  if (!EnsureNamed()) return;
  char bytes[kMemoEntrySize];
  int64_t offset = 0;
  for (int index = 1; file_->ReadAt(offset, bytes, sizeof bytes) == static_cast<int64_t>(sizeof bytes); ++index) {
    MemoEntry entry = Decode(bytes);
    entry.index = index;
    entry.offset = offset;
    if (!visit(entry) || entry.next - 1 < offset + kMemoEntrySize) return;
    offset = entry.next - 1;
  }
}

bool MemoFile::Find(int index, const std::string& field, int32_t record, MemoEntry& entry) {
  bool found = false;
  Walk([&](const MemoEntry& seen) {
    if (seen.index < index) return true;
    found = seen.index == index && seen.live && seen.record == record && Lower(seen.field) == Lower(field);
    if (found) entry = seen;
    return false;
  });
  return found;
}

bool MemoFile::WriteHeader(const MemoEntry& entry) {
  const std::string bytes = Encode(entry);
  return file_->WriteAt(entry.offset, bytes.data(), bytes.size());
}

bool MemoFile::Add(const std::string& name, const std::string& field, int32_t record, const std::string& content) {
  if (content.empty() || content.size() > static_cast<size_t>(kMaxAttachment) || !StartChange()) return false;
  const bool added = AddEntry(name, field, record, content);
  EndChange();
  return added;
}

bool MemoFile::AddEntry(const std::string& name, const std::string& field, int32_t record, const std::string& content) {
  const int64_t length = file_->Size();
  MemoEntry entry{0, length, name, static_cast<int32_t>(content.size()), true, field, record, 0}, last;
  bool reused = false;
  Walk([&](const MemoEntry& seen) {
    last = seen;
    if (seen.live || seen.size < entry.size || !IsWhole(seen, length)) return true;
    entry.offset = seen.offset;
    entry.next = seen.next;
    reused = true;
    return false;
  });
  // Bytes that are fewer than one header begin no chain: the first entry takes their place.
  if (!reused && last.index == 0) entry.offset = 0;
  if (!reused) entry.next = entry.offset + 1 + entry.size + kMemoEntrySize;
  if (length < 0 || entry.next > INT32_MAX) return false;
  // The header last: an entry that breaks off in between is none. A chain that was cut short, or has loose bytes behind it, is led to it.
  bool added = file_->WriteAt(entry.offset + kMemoEntrySize, content.data(), content.size()) && WriteHeader(entry);
  if (added && !reused && last.index > 0 && last.next != entry.offset + 1) {
    last.next = entry.offset + 1;
    added = WriteHeader(last);
  }
  if (!added && !reused) file_->Resize(length);
  return added;
}

bool MemoFile::Remove(int index, const std::string& field, int32_t record) {
  if (!StartChange()) return false;
  MemoEntry entry;
  bool removed = Find(index, field, record, entry);
  if (removed) {
    entry.live = false;
    removed = WriteHeader(entry);
  }
  EndChange();
  return removed;
}

bool MemoFile::Read(const MemoEntry& entry, std::string& content) {
  if (entry.size > kMaxAttachment || !IsWhole(entry, file_->Size())) return false;
  content.resize(static_cast<size_t>(entry.size));
  return file_->ReadAt(entry.offset + kMemoEntrySize, content.data(), content.size()) == static_cast<int64_t>(content.size());
}

bool MemoFile::CopyLive(File& to, int64_t length) {
  int64_t position = 0;
  bool good = true;
  std::string block;
  Walk([&](const MemoEntry& seen) {
    if (!seen.live) return true;
    good = IsWhole(seen, length);
    if (!good) return false;
    MemoEntry moved = seen;
    moved.next = position + 1 + kMemoEntrySize + seen.size;
    const std::string bytes = Encode(moved);
    good = to.WriteAt(position, bytes.data(), bytes.size());
    for (int64_t done = 0; good && done < seen.size; done += static_cast<int64_t>(block.size())) {
      block.resize(static_cast<size_t>(std::min<int64_t>(seen.size - done, static_cast<int64_t>(kCopyBlock))));
      good = file_->ReadAt(seen.offset + kMemoEntrySize + done, block.data(), block.size()) == static_cast<int64_t>(block.size()) &&
             to.WriteAt(position + kMemoEntrySize + done, block.data(), block.size());
    }
    position = moved.next - 1;
    return good;
  });
  return good && to.Resize(position);
}

bool MemoFile::Compress() {
  if (!EnsureNamed() || !file_->Lock(kShareByte, 1, true)) return true;
  const bool done = CompressAlone();
  file_->Lock(kShareByte, 1, false);
  return done;
}

bool MemoFile::CompressAlone() {
  bool any_free = false;
  Walk([&](const MemoEntry& seen) {
    any_free |= !seen.live;
    return !any_free;
  });
  if (!any_free) return true;
  const std::string temporary = path_ + ".temp";
  files_.Remove(temporary);
  std::unique_ptr<File> to = files_.Open(temporary, OpenMode::kNew);
  if (!to) return false;
  if (!CopyLive(*to, file_->Size()) || !to->Flush()) {
    to.reset();
    files_.Remove(temporary);
    return false;
  }
  to.reset();
  if (!files_.Rename(temporary, path_)) return false;
  return Reopen();
}

}  // namespace ostrinka
