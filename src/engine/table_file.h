// The file of one table: opening and sharing, header block, record count, records by number.
//
// Every open file holds a shared lock on one byte far behind any record; sole use is that lock held exclusively.
#pragma once

#include <memory>
#include <string>

#include "engine/table_header.h"
#include "platform/files.h"

namespace ostrinka {

// Makes `to` a copy of the first `length` bytes of `from`. `error` says why it failed.
bool CopyBytes(File& from, File& to, int64_t length, std::string& error);

// The program's own file `path`, made anew: what an earlier run left of it goes, be it a link. Null on failure.
std::unique_ptr<File> MakeAnew(FileSystem& files, const std::string& path, std::string* error);

class TableFile {
 public:
  explicit TableFile(FileSystem& files) : files_(files) {}

  // Opens and takes the shared lock. False, with the platform's text in `error`, when either fails.
  bool Open(const std::string& path, OpenMode mode, std::string* error);
  void Close() {
    file_.reset();
    held_ = 0;
  }
  bool IsOpen() const { return file_ != nullptr; }
  FileSystem& files() { return files_; }
  File* raw() { return file_.get(); }
  const std::string& path() const { return path_; }
  int64_t Size() { return file_ ? file_->Size() : 0; }
  std::string LastError() const { return file_ ? file_->LastError() : std::string(); }

  enum class Named { kYes, kReopened, kLost };
  // Before a write: whether the path still names this file. A file that was put in its place is opened instead.
  Named EnsureNamed();

  bool ReadHeader(TableHeader& header);
  bool WriteHeader(const TableHeader& header);
  // Record count as it stands in the header, -1 when it cannot be read.
  int32_t StoredCount();
  bool WriteCount(int32_t count);
  // Whole records that the file's length holds, 0 for a length of none.
  int32_t CountRecords(int32_t record_length);

  static int64_t RecordAt(int32_t n, int32_t record_length) { return kRecordsOffset + (int64_t{n} - 1) * record_length; }
  bool ReadBytes(int64_t position, void* to, size_t length);
  // Bytes read, fewer at the end of the file, -1 on error.
  int64_t ReadSome(int64_t position, void* to, size_t length) { return file_ ? file_->ReadAt(position, to, length) : -1; }
  std::shared_ptr<const char> View(int64_t position, size_t length) { return file_ ? file_->View(position, length) : nullptr; }
  bool WriteBytes(int64_t position, const void* from, size_t length);
  bool Resize(int64_t length) { return file_ && file_->Resize(length); }
  bool Flush() { return file_ && file_->Flush(); }

  bool LockRecord(int32_t n, int32_t record_length);
  bool UnlockRecord(int32_t n, int32_t record_length);

  // The lock alone, without the renames: false when another object has the file open.
  bool LockAlone();
  // Keeps the lock over several changes: until as many LetGo as Hold, LeaveSoleUse leaves it in place.
  bool Hold();
  void LetGo();
  bool IsHeld() const { return held_ > 0; }
  // Sole use: takes the lock exclusively, then renames the file to ".try" and back. A false result leaves the shared lock in place, unless
  // the file could not get its name back: then `lost` is set. Refused while a file of the name ".try" stands there: it may be all that a
  // crash between the two renames left.
  bool TakeSoleUse(bool& lost);
  void LeaveSoleUse();
  // Puts the finished file `made`, which has the name `name`, in the place of this table and holds it instead, for this object alone.
  bool Replace(std::unique_ptr<File> made, const std::string& name, std::string* error);

  // Gives a table that a crash left under the name ".try" its own name back. Does nothing when a file has that name, or when another object
  // has the file open, for it is that one's test of sole use.
  static void PutBack(FileSystem& files, const std::string& path);
  // Goes on with a structure change that was broken off when the table was gone or had no header any more: a whole ".new" becomes the
  // table. False when there was nothing to finish, or when another object has one of the files open.
  static bool FinishChange(FileSystem& files, const std::string& path);

 private:
  FileSystem& files_;
  std::unique_ptr<File> file_;
  std::string path_;
  int held_ = 0;
};

}  // namespace ostrinka
