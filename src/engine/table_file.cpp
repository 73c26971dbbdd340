#include "engine/table_file.h"

#include <algorithm>

#include "engine/field_layout.h"

namespace ostrinka {
namespace {

constexpr int64_t kShareByte = int64_t{1} << 62;
constexpr char kAside[] = ".try";
constexpr char kMade[] = ".new";
constexpr char kBefore[] = ".temp";
constexpr int64_t kWholeFileLimit = 10 * 1024 * 1024;
constexpr int64_t kBlock = 1024 * 1024;

bool HasHeader(File& file, TableHeader& header) {
  return file.ReadAt(0, header.data(), static_cast<size_t>(kHeaderSize)) == kHeaderSize && header.IsValid();
}
bool HasHeader(File& file) {
  TableHeader header;
  return HasHeader(file, header);
}

// Whether the file is a table with every record that its header counts: the count stands there before the first record is written.
bool IsWhole(File& file) {
  TableHeader header;
  FieldLayout layout;
  int32_t count = -1;
  if (!HasHeader(file, header) || header.user_count() < 1 || !layout.Build(header) || layout.count() < 1) return false;
  if (file.ReadAt(kCountOffset, &count, sizeof count) != static_cast<int64_t>(sizeof count) || count < 0) return false;
  return file.Size() == kRecordsOffset + int64_t{count} * layout.record_length();
}

}  // namespace

// A small file in one block, a large one in blocks of 1 MiB.
bool CopyBytes(File& from, File& to, int64_t length, std::string& error) {
  std::string block(static_cast<size_t>(length > kWholeFileLimit ? kBlock : std::max<int64_t>(length, 1)), '\0');
  for (int64_t done = 0; done < length;) {
    const size_t part = static_cast<size_t>(std::min(length - done, static_cast<int64_t>(block.size())));
    if (from.ReadAt(done, block.data(), part) != static_cast<int64_t>(part)) {
      error = from.LastError();
      return false;
    }
    if (!to.WriteAt(done, block.data(), part)) {
      error = to.LastError();
      return false;
    }
    done += static_cast<int64_t>(part);
  }
  if (to.Resize(length)) return true;
  error = to.LastError();
  return false;
}

std::unique_ptr<File> MakeAnew(FileSystem& files, const std::string& path, std::string* error) {
  files.Remove(path);
  return files.Open(path, OpenMode::kNew, error);
}

bool TableFile::Open(const std::string& path, OpenMode mode, std::string* error) {
  Close();
  path_ = path;
  file_ = files_.Open(path, mode, error);
  if (!file_) return false;
  if (file_->Lock(kShareByte, 1, false)) return true;
  if (error) *error = file_->LastError();
  Close();
  return false;
}

TableFile::Named TableFile::EnsureNamed() {
  if (!file_) return Named::kLost;
  if (file_->StillNamed()) return Named::kYes;
  std::unique_ptr<File> other = files_.Open(path_, OpenMode::kReadWrite);
  if (!other || !other->Lock(kShareByte, 1, IsHeld())) return Named::kLost;
  file_ = std::move(other);
  return Named::kReopened;
}

bool TableFile::ReadHeader(TableHeader& header) {
  return ReadBytes(0, header.data(), static_cast<size_t>(kHeaderSize));
}

bool TableFile::WriteHeader(const TableHeader& header) {
  return WriteBytes(0, header.data(), static_cast<size_t>(kHeaderSize));
}

int32_t TableFile::StoredCount() {
  int32_t count = -1;
  return ReadBytes(kCountOffset, &count, sizeof count) ? count : -1;
}

bool TableFile::WriteCount(int32_t count) {
  return WriteBytes(kCountOffset, &count, sizeof count);
}

int32_t TableFile::CountRecords(int32_t record_length) {
  const int64_t bytes = Size() - kRecordsOffset;
  return bytes <= 0 ? 0 : static_cast<int32_t>(std::min<int64_t>(bytes / record_length, INT32_MAX));
}

bool TableFile::ReadBytes(int64_t position, void* to, size_t length) {
  return file_ && file_->ReadAt(position, to, length) == static_cast<int64_t>(length);
}

bool TableFile::WriteBytes(int64_t position, const void* from, size_t length) {
  return file_ && file_->WriteAt(position, from, length);
}

bool TableFile::LockRecord(int32_t n, int32_t record_length) {
  return file_ && file_->Lock(RecordAt(n, record_length), record_length, true);
}

bool TableFile::UnlockRecord(int32_t n, int32_t record_length) {
  return file_ && file_->Unlock(RecordAt(n, record_length), record_length);
}

bool TableFile::LockAlone() {
  return file_ && file_->Lock(kShareByte, 1, true);
}

bool TableFile::Hold() {
  if (held_ == 0 && !LockAlone()) return false;
  ++held_;
  return true;
}

void TableFile::LetGo() {
  if (held_ > 0 && --held_ == 0) LeaveSoleUse();
}

bool TableFile::TakeSoleUse(bool& lost) {
  lost = false;
  if (!LockAlone()) return false;
  const std::string aside = path_ + kAside;
  if (files_.FileExists(aside) || !files_.Rename(path_, aside)) {
    LeaveSoleUse();
    return false;
  }
  if (files_.Rename(aside, path_) && file_->StillNamed()) return true;
  lost = true;
  return false;
}

void TableFile::LeaveSoleUse() {
  if (file_ && !IsHeld()) file_->Lock(kShareByte, 1, false);
}

bool TableFile::Replace(std::unique_ptr<File> made, const std::string& name, std::string* error) {
  // Locked before it has the table's name: whoever opens it from then on finds it in use, as the old one was.
  if (!made->Lock(kShareByte, 1, true) || !files_.Rename(name, path_)) {
    if (error) *error = "The table file cannot be replaced";
    return false;
  }
  file_ = std::move(made);
  file_->Renamed(path_);
  return true;
}

void TableFile::PutBack(FileSystem& files, const std::string& path) {
  if (files.FileExists(path)) return;
  const std::unique_ptr<File> aside = files.Open(path + kAside, OpenMode::kReadWrite);
  if (!aside || !aside->Lock(kShareByte, 1, true) || !aside->StillNamed() || files.FileExists(path)) return;
  files.Rename(path + kAside, path);
}

bool TableFile::FinishChange(FileSystem& files, const std::string& path) {
  if (!files.FileExists(path + kMade)) return false;
  // Both are kept from all others while they are looked at and renamed.
  const std::unique_ptr<File> table = files.Open(path, OpenMode::kReadWrite), made = files.Open(path + kMade, OpenMode::kReadWrite);
  if (!made || !made->Lock(kShareByte, 1, true) || !IsWhole(*made)) return false;
  if (table ? !table->Lock(kShareByte, 1, true) || HasHeader(*table) : files.FileExists(path)) return false;
  if (!files.Rename(path + kMade, path)) return false;
  files.Remove(path + kBefore);
  return true;
}

}  // namespace ostrinka
