#include "engine/table_file.h"

#include <algorithm>

namespace ostrinka {
namespace {

constexpr int64_t kShareByte = int64_t{1} << 62;

}  // namespace

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
  if (!other || !other->Lock(kShareByte, 1, false)) return Named::kLost;
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

bool TableFile::TakeSoleUse(bool& lost) {
  lost = false;
  if (!LockAlone()) return false;
  const std::string aside = path_ + ".try";
  if (!files_.Rename(path_, aside)) {
    LeaveSoleUse();
    return false;
  }
  if (files_.Rename(aside, path_) && file_->StillNamed()) return true;
  lost = true;
  return false;
}

void TableFile::LeaveSoleUse() {
  if (file_) file_->Lock(kShareByte, 1, false);
}

bool TableFile::Recreate(std::string* error) {
  if (!files_.Remove(path_)) {
    if (error) *error = "The table file cannot be deleted";
    return false;
  }
  file_ = files_.Open(path_, OpenMode::kCreate, error);
  if (!file_) return false;
  // Whoever opened the new name in this very moment saw an empty file and gave up.
  LockAlone();
  return true;
}

}  // namespace ostrinka
