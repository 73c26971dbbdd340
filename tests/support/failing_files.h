// Real files of which a test lets any call fail: by its kind and file, for want of room, or because nothing may be changed.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/posix/posix_files.h"

namespace ostrinka {

enum class FileCall { kOpen, kMake, kRead, kOverwrite, kGrow, kResize, kFlush, kLock, kRename, kRemove };

class FailingFileSystem : public PosixFileSystem {
 public:
  int64_t room = -1;  // bytes by which files may still grow; -1 no limit
  bool read_only = false;
  bool waits = true;  // for the disk
  // Asked before each call; one that is refused does nothing and fails.
  std::function<bool(FileCall call, const std::string& path)> refuses;
  std::vector<std::string> removed;
  std::vector<std::string> steps;  // what was brought to the disk and what was removed, in its order

  // Refuses one call of that kind on a file whose path ends with `file`, once `after` of them went well.
  void Refuse(FileCall refused, std::string file, int after = 0) {
    refuses = [refused, file = std::move(file), after](FileCall call, const std::string& path) mutable {
      return call == refused && path.ends_with(file) && after-- == 0;
    };
  }

  enum class Call { kOpen, kWrite, kResize, kFlush, kLock, kRename, kRemove };
  // The `n`-th call of the kind from now fails, and so do those behind it up to the `times`-th. A write that fails puts half its bytes.
  void Fail(Call call, int n = 1, int times = 1) { planned_[call] = {n, times}; }
  // How many failures that were planned have not come about.
  int Due() const {
    int due = 0;
    for (const auto& [call, plan] : planned_) due += plan.times;
    return due;
  }

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode, std::string* error = nullptr) override {
    const FileCall call = mode == OpenMode::kCreate && !FileExists(path) ? FileCall::kMake : FileCall::kOpen;
    if ((read_only && mode != OpenMode::kRead) || Refused(call, path)) {
      if (error) *error = "Permission denied";
      return nullptr;
    }
    if (Fails(Call::kOpen)) {
      if (error) *error = kFailure;
      return nullptr;
    }
    auto file = PosixFileSystem::Open(path, mode, error);
    return file ? std::make_unique<Failing>(*this, path, std::move(file)) : nullptr;
  }
  bool Remove(const std::string& path) override {
    removed.push_back(path);
    steps.push_back("remove " + path);
    return !read_only && !Refused(FileCall::kRemove, path) && !Fails(Call::kRemove) && PosixFileSystem::Remove(path);
  }
  bool Rename(const std::string& from, const std::string& to) override {
    steps.push_back("rename " + from);
    return !Refused(FileCall::kRename, from) && !Fails(Call::kRename) && PosixFileSystem::Rename(from, to);
  }

 private:
  static constexpr char kFailure[] = "Input/output error";
  struct Plan {
    int ahead = 0, times = 0;  // calls up to the first that fails; failures that are due
  };

  bool Refused(FileCall call, const std::string& path) { return refuses && refuses(call, path); }
  bool Fails(Call call) {
    const auto found = planned_.find(call);
    if (found == planned_.end() || found->second.times == 0) return false;
    Plan& plan = found->second;
    if (plan.ahead > 1) {
      --plan.ahead;
      return false;
    }
    --plan.times;
    return true;
  }

  class Failing : public File {
   public:
    Failing(FailingFileSystem& files, std::string path, std::unique_ptr<File> file)
        : files_(files), path_(std::move(path)), file_(std::move(file)) {}
    int64_t Size() override { return file_->Size(); }
    int64_t ReadAt(int64_t position, void* to, size_t length) override {
      return Refused(FileCall::kRead) ? -1 : file_->ReadAt(position, to, length);
    }
    std::shared_ptr<const char> View(int64_t position, size_t length) override { return file_->View(position, length); }
    bool WriteAt(int64_t position, const void* from, size_t length) override {
      if (Fails(Call::kWrite)) {
        file_->WriteAt(position, from, length / 2);
        return false;
      }
      const int64_t growth = std::max<int64_t>(position + static_cast<int64_t>(length) - file_->Size(), 0);
      if (Refused(growth > 0 ? FileCall::kGrow : FileCall::kOverwrite)) return false;
      if (files_.room < 0) return file_->WriteAt(position, from, length);
      const int64_t possible = std::min(growth, files_.room);
      files_.room -= possible;
      const bool written = file_->WriteAt(position, from, length - static_cast<size_t>(growth - possible));
      if (possible < growth) error_ = "No space left on device";
      return written && possible == growth;
    }
    bool Resize(int64_t length) override { return !Refused(FileCall::kResize) && !Fails(Call::kResize) && file_->Resize(length); }
    void WillFlush() override { file_->WillFlush(); }
    bool Flush() override {
      files_.steps.push_back("flush " + path_);
      return !Refused(FileCall::kFlush) && !Fails(Call::kFlush) && (!files_.waits || file_->Flush());
    }
    bool Lock(int64_t position, int64_t length, bool exclusive) override {
      return !Refused(FileCall::kLock) && !Fails(Call::kLock) && file_->Lock(position, length, exclusive);
    }
    bool Unlock(int64_t position, int64_t length) override { return file_->Unlock(position, length); }
    bool StillNamed() override { return file_->StillNamed(); }
    void Renamed(const std::string& path) override {
      path_ = path;
      file_->Renamed(path);
    }
    std::string LastError() const override { return error_.empty() ? file_->LastError() : error_; }

   private:
    bool Refused(FileCall call) const { return files_.Refused(call, path_); }
    bool Fails(Call call) {
      error_ = files_.Fails(call) ? kFailure : "";
      return !error_.empty();
    }

    FailingFileSystem& files_;
    std::string path_, error_;
    std::unique_ptr<File> file_;
  };

  std::map<Call, Plan> planned_;
};

}  // namespace ostrinka
