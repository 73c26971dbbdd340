// Files seen through memory: what a table's repeated scans read without a copy.
//
// Only files of local file systems are mapped, and only from the second request on, since the first pass through fresh memory costs more
// than a copy. A file that another program cuts off under a mapping raises a bus error: the pages in question are replaced by zeros.
#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace ostrinka {

// One mapping of a file from its beginning.
class FileMapping {
 public:
  // Null when the system has no room for it.
  static std::shared_ptr<FileMapping> Of(int descriptor, size_t length);
  ~FileMapping();
  FileMapping(const FileMapping&) = delete;

  const char* begin() const { return begin_; }
  size_t length() const { return length_; }
  bool torn() const;  // pages were lost

 private:
  FileMapping(char* begin, size_t length, int slot) : begin_(begin), length_(length), slot_(slot) {}
  char* begin_;
  size_t length_;
  int slot_;  // place in the list that the bus error's handler searches
};

// The view of one file, shared by all who have it open.
class FileView {
 public:
  // Null when the file is shorter or nothing is mapped yet.
  std::shared_ptr<const char> Bytes(int descriptor, int64_t position, size_t length);
  void Drop();

 private:
  bool asked_ = false;
  std::shared_ptr<FileMapping> mapping_;
};

class FileViews {
 public:
  // The view of an open file; null when its file system is not a local one.
  std::shared_ptr<FileView> Of(int descriptor, dev_t device, ino_t file);
  void Drop();

 private:
  std::map<std::pair<dev_t, ino_t>, std::weak_ptr<FileView>> views_;
};

}  // namespace ostrinka
