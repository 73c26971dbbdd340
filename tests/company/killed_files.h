// A file system on which something happens after a number of changes: the program is killed there, the disk is full from there on, or
// nothing is changed any more. Nothing waits for the disk.
#pragma once

#include <signal.h>

#include <algorithm>
#include <functional>

#include "platform/posix/posix_files.h"

namespace ostrinka {

class KilledFileSystem : public PosixFileSystem {
 public:
  enum class End { kNoMoreChanges, kKill, kFullDisk };
  End end = End::kNoMoreChanges;
  std::string watched;  // changes of files whose path holds this are counted
  int left = -1;        // changes until the end; -1 for none
  std::function<void(const std::string& path)> before_change;

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode, std::string* error = nullptr) override {
    if (MayMake(mode) && !FileExists(path) && !Change(path, true)) {
      if (error) *error = "No space left on device";
      return nullptr;
    }
    auto file = PosixFileSystem::Open(path, mode, error);
    return file ? std::make_unique<Watched>(*this, path, std::move(file)) : nullptr;
  }
  bool Remove(const std::string& path) override { return Change(path, false) && PosixFileSystem::Remove(path); }
  bool Rename(const std::string& from, const std::string& to) override { return Change(from, false) && PosixFileSystem::Rename(from, to); }
  bool RenameAside(const std::string& from, const std::string& to) override {
    return Change(from, false) && PosixFileSystem::RenameAside(from, to);
  }

 private:
  // Whether the change is made; one that `grows` needs room.
  bool Change(const std::string& path, bool grows) {
    const bool counted = path.find(watched) != path.npos;
    if (counted && before_change) before_change(path);
    if (counted && left > 0) --left;
    if (left != 0) return true;
    if (end == End::kKill) raise(SIGKILL);
    return end == End::kFullDisk && !grows;
  }

  class Watched : public File {
   public:
    Watched(KilledFileSystem& files, std::string path, std::unique_ptr<File> file)
        : files_(files), path_(std::move(path)), file_(std::move(file)) {}
    int64_t Size() override { return file_->Size(); }
    int64_t ReadAt(int64_t position, void* to, size_t length) override { return file_->ReadAt(position, to, length); }
    bool WriteAt(int64_t position, const void* from, size_t length) override {
      const bool grows = position + static_cast<int64_t>(length) > file_->Size();
      if (files_.Change(path_, grows)) return file_->WriteAt(position, from, length);
      // A disk that runs full takes a part.
      if (files_.end == End::kFullDisk) file_->WriteAt(position, from, length / 2);
      return false;
    }
    bool Resize(int64_t length) override { return files_.Change(path_, length > file_->Size()) && file_->Resize(length); }
    bool Flush() override { return true; }
    bool Lock(int64_t position, int64_t length, bool exclusive) override { return file_->Lock(position, length, exclusive); }
    bool Unlock(int64_t position, int64_t length) override { return file_->Unlock(position, length); }
    bool StillNamed() override { return file_->StillNamed(); }
    void Renamed(const std::string& path) override {
      path_ = path;
      file_->Renamed(path);
    }
    std::string LastError() const override { return files_.left == 0 ? "No space left on device" : file_->LastError(); }

   private:
    KilledFileSystem& files_;
    std::string path_;
    std::unique_ptr<File> file_;
  };
};

}  // namespace ostrinka
