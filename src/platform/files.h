// Files and folders as the system uses them. Paths are UTF-8; both slashes separate.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ostrinka {

// One open file with positional access. Positions count from 0.
class File {
 public:
  virtual ~File() = default;
  virtual int64_t Size() = 0;  // -1 on error
  // Bytes read, fewer only at the end of the file; -1 on error.
  virtual int64_t ReadAt(int64_t position, void* to, size_t length) = 0;
  // The bytes where the platform holds them, without a copy, as long as the pointer is kept. They follow later writes to the file; bytes
  // that the file loses meanwhile read as 0. Null when the file is shorter, or when copying by ReadAt is the better way.
  virtual std::shared_ptr<const char> View(int64_t position, size_t length) {
    (void)position, (void)length;
    return nullptr;
  }
  // All or nothing is promised to the caller only in the result: false when any byte was not written.
  virtual bool WriteAt(int64_t position, const void* from, size_t length) = 0;
  virtual bool Resize(int64_t length) = 0;
  // A Flush will follow: until then what is written starts on its way at once, so that there is less to wait for.
  virtual void WillFlush() {}
  // Returns when what was written stands on the disk.
  virtual bool Flush() = 0;
  // Locks of this open file (not of the process) on a range of bytes. Never waits: false when another open file holds a lock in the way.
  virtual bool Lock(int64_t position, int64_t length, bool exclusive) = 0;
  virtual bool Unlock(int64_t position, int64_t length) = 0;
  // Whether the path it was opened by still names this file.
  virtual bool StillNamed() = 0;
  // The file was given another name: StillNamed asks for that one from now on.
  virtual void Renamed(const std::string& path) = 0;
  // The platform's text of the last failure.
  virtual std::string LastError() const = 0;
};

// How a file is opened. All but kRead read and write; what they make is for user and group only.
enum class OpenMode {
  kRead,
  kReadWrite,
  kCreate,     // made when missing
  kCompanion,  // the same for a file that the program keeps beside another: a link of that name is refused
  kNew,        // made here and now: refused when anything stands there, be it a link
  kNewPrivate  // the same for the user alone
};
constexpr bool MayMake(OpenMode mode) {
  return mode != OpenMode::kRead && mode != OpenMode::kReadWrite;
}

// How WriteAll writes: whether it waits for the disk, and whether the file is for the user alone.
struct WriteOptions {
  bool flush = true;
  bool for_user_alone = false;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;
  // Null on failure, with the platform's text in `error` when given. A folder is a failure.
  virtual std::unique_ptr<File> Open(const std::string& path, OpenMode mode, std::string* error = nullptr) = 0;
  virtual bool FileExists(const std::string& path) = 0;  // a plain file
  virtual bool FolderExists(const std::string& path) = 0;
  virtual int64_t FileSize(const std::string& path) = 0;  // -1 when absent
  virtual bool Remove(const std::string& path) = 0;       // a file
  virtual bool Rename(const std::string& from, const std::string& to) = 0;
  virtual bool RenameAside(const std::string& from, const std::string& to) = 0;  // refused when anything has the name `to`
  virtual bool MakeFolder(const std::string& path) = 0;                          // one level; true as well when it is there
  virtual bool MakeFolders(const std::string& path) = 0;                         // each level in turn
  virtual std::vector<std::string> ListFiles(const std::string& folder) = 0;     // bare names of plain files, sorted
  virtual bool KeepForUser(const std::string& folder) = 0;                       // the user's own folder is closed to all others
  // A folder for this program and this user alone below the system's one, with a closing slash; made when it is first asked for.
  virtual std::string TemporaryFolder() = 0;
  // Removes it with all that lies in it; the next question makes another one.
  virtual void RemoveTemporaryFolder() = 0;
  // Gives back the memory that views of files occupy; those in use stay.
  virtual void DropViews() {}

  // Whole files. Read gives false when absent, unreadable or above `limit` bytes; Write replaces the file through a neighbour of a name of
  // its own and a rename, and waits for the disk before the rename when told to: a crash then leaves the former content or the new one.
  bool ReadAll(const std::string& path, std::string& content, int64_t limit = int64_t{1} << 30);
  bool WriteAll(const std::string& path, std::string_view content, WriteOptions options = {});
};

}  // namespace ostrinka
