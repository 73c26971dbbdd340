// The companion of a table that holds the files attached to its records: a chain of entries from offset 0.
//
//   offset  size  content of an entry
//        0   256  file name without folder, blank padded
//      256     4  size of the data
//      260     2  -1 live, 0 free
//      262    16  field name, upper case, blank padded
//      278     4  record number
//      282     4  position of the next entry, counted from 1; past the end of the file or below 1 ends the chain
//      286        the bytes
//
// Far behind any entry lie two bytes for locks: an open file holds the first one shared, a compression needs it exclusively; adding and
// removing hold the second one for as long as they read the chain and change it.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/platform.h"

namespace ostrinka {

constexpr int64_t kMemoEntrySize = 286;
constexpr int64_t kMaxAttachment = 10'000'000;

struct MemoEntry {
  int index = 0;       // ordinal in the chain, from 1
  int64_t offset = 0;  // of the entry in the file
  std::string name;    // UTF-8, as stored
  int32_t size = 0;
  bool live = false;
  std::string field;  // UTF-8, trimmed
  int32_t record = 0;
  int64_t next = 0;  // from 1
};

class MemoFile {
 public:
  // Opens the file, making it when it is missing; null on failure, also while another object compresses it.
  static std::unique_ptr<MemoFile> Open(Platform& platform, const std::string& path);
  const std::string& path() const { return path_; }

  // Visits the chain until it ends or `visit` returns false. An entry that points backwards or into itself ends it.
  void Walk(const std::function<bool(const MemoEntry&)>& visit);
  // The live entry of that ordinal when it belongs to the field and the record.
  bool Find(int index, const std::string& field, int32_t record, MemoEntry& entry);
  // Stores `content`, 1 to 10,000,000 bytes, in the first free entry that is large enough, or at the end.
  bool Add(const std::string& name, const std::string& field, int32_t record, const std::string& content);
  // Frees what Find finds.
  bool Remove(int index, const std::string& field, int32_t record);
  // False when the entry is larger than an attachment can be, or not whole.
  bool Read(const MemoEntry& entry, std::string& content);
  // Writes the live entries to "<file>.temp" and puts it in the file's place. True as well when no entry is free, or when another object
  // has the file open: then it stays as it is. False when an entry is damaged, which leaves the file too.
  bool Compress();

 private:
  MemoFile(Platform& platform, std::string path) : files_(platform.files), waiter_(platform.waiter), path_(std::move(path)) {}
  bool Reopen();
  bool EnsureNamed();
  // The lock for a change, on the file that the path names now; waits a while for another object's change to end.
  bool StartChange();
  void EndChange();
  bool AddEntry(const std::string& name, const std::string& field, int32_t record, const std::string& content);
  bool CompressAlone();
  bool WriteHeader(const MemoEntry& entry);
  bool CopyLive(File& to, int64_t length);

  FileSystem& files_;
  Waiter& waiter_;
  std::string path_;
  std::unique_ptr<File> file_;
};

}  // namespace ostrinka
