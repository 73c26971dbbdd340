// A file system with a limited amount of room, or one that lets nothing be changed.
#pragma once

#include "platform/posix/posix_files.h"

namespace ostrinka {

class FailingFileSystem : public PosixFileSystem {
 public:
  int64_t room = -1;  // bytes by which files may still grow; -1 no limit
  bool read_only = false;
  std::vector<std::string> removed;
  std::vector<std::string> steps;  // what was brought to the disk and what was removed, in its order

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode, std::string* error = nullptr) override {
    if (read_only && mode != OpenMode::kRead) {
      if (error) *error = "Permission denied";
      return nullptr;
    }
    auto file = PosixFileSystem::Open(path, mode, error);
    return file ? std::make_unique<Limited>(*this, path, std::move(file)) : nullptr;
  }
  bool Remove(const std::string& path) override {
    removed.push_back(path);
    steps.push_back("remove " + path);
    return !read_only && PosixFileSystem::Remove(path);
  }
  bool Rename(const std::string& from, const std::string& to) override {
    steps.push_back("rename " + from);
    return PosixFileSystem::Rename(from, to);
  }

 private:
  class Limited : public File {
   public:
    Limited(FailingFileSystem& files, std::string path, std::unique_ptr<File> file)
        : files_(files), path_(std::move(path)), file_(std::move(file)) {}
    int64_t Size() override { return file_->Size(); }
    int64_t ReadAt(int64_t position, void* to, size_t length) override { return file_->ReadAt(position, to, length); }
    bool WriteAt(int64_t position, const void* from, size_t length) override {
      const int64_t growth = std::max<int64_t>(position + static_cast<int64_t>(length) - file_->Size(), 0);
      if (files_.room < 0) return file_->WriteAt(position, from, length);
      const int64_t possible = std::min(growth, files_.room);
      files_.room -= possible;
      const bool written = file_->WriteAt(position, from, length - static_cast<size_t>(growth - possible));
      full_ = possible < growth;
      return written && !full_;
    }
    bool Resize(int64_t length) override { return file_->Resize(length); }
    bool Flush() override {
      files_.steps.push_back("flush " + path_);
      return file_->Flush();
    }
    bool Lock(int64_t position, int64_t length, bool exclusive) override { return file_->Lock(position, length, exclusive); }
    bool Unlock(int64_t position, int64_t length) override { return file_->Unlock(position, length); }
    bool StillNamed() override { return file_->StillNamed(); }
    void Renamed(const std::string& path) override { file_->Renamed(path); }
    std::string LastError() const override { return full_ ? "No space left on device" : file_->LastError(); }

   private:
    FailingFileSystem& files_;
    std::string path_;
    std::unique_ptr<File> file_;
    bool full_ = false;
  };
};

}  // namespace ostrinka
