// A file system that stops changing anything after a number of changes, as if the program had been killed there; nothing waits for the
// disk.
#pragma once

#include <functional>

#include "platform/posix/posix_files.h"

namespace ostrinka {

class KilledFileSystem : public PosixFileSystem {
 public:
  std::string watched;  // changes of files whose path holds this are counted
  int left = -1;        // changes still made; -1 all
  std::function<void(const std::string& path)> before_change;

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode, std::string* error = nullptr) override {
    if (mode == OpenMode::kCreate && !FileExists(path) && !Change(path)) return nullptr;
    auto file = PosixFileSystem::Open(path, mode, error);
    return file ? std::make_unique<Watched>(*this, path, std::move(file)) : nullptr;
  }
  bool Remove(const std::string& path) override { return Change(path) && PosixFileSystem::Remove(path); }
  bool Rename(const std::string& from, const std::string& to) override { return Change(from) && PosixFileSystem::Rename(from, to); }

 private:
  bool Change(const std::string& path) {
    if (path.find(watched) == path.npos) return left != 0;
    if (before_change) before_change(path);
    if (left > 0) --left;
    return left != 0;
  }

  class Watched : public File {
   public:
    Watched(KilledFileSystem& files, std::string path, std::unique_ptr<File> file)
        : files_(files), path_(std::move(path)), file_(std::move(file)) {}
    int64_t Size() override { return file_->Size(); }
    int64_t ReadAt(int64_t position, void* to, size_t length) override { return file_->ReadAt(position, to, length); }
    bool WriteAt(int64_t position, const void* from, size_t length) override {
      return files_.Change(path_) && file_->WriteAt(position, from, length);
    }
    bool Resize(int64_t length) override { return files_.Change(path_) && file_->Resize(length); }
    bool Flush() override { return true; }
    bool Lock(int64_t position, int64_t length, bool exclusive) override { return file_->Lock(position, length, exclusive); }
    bool Unlock(int64_t position, int64_t length) override { return file_->Unlock(position, length); }
    bool StillNamed() override { return file_->StillNamed(); }
    std::string LastError() const override { return file_->LastError(); }

   private:
    KilledFileSystem& files_;
    std::string path_;
    std::unique_ptr<File> file_;
  };
};

}  // namespace ostrinka
