// Files and folders of a POSIX system, with open-file-description locks.
#pragma once

#include "platform/files.h"
#include "platform/posix/file_views.h"

namespace ostrinka {

class PosixFileSystem : public FileSystem {
 public:
  PosixFileSystem();
  ~PosixFileSystem() override;  // removes the temporary folder
  PosixFileSystem(const PosixFileSystem&) = delete;
  PosixFileSystem& operator=(const PosixFileSystem&) = delete;

  std::unique_ptr<File> Open(const std::string& path, OpenMode mode, std::string* error = nullptr) override;
  bool FileExists(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  int64_t FileSize(const std::string& path) override;
  bool Remove(const std::string& path) override;
  bool Rename(const std::string& from, const std::string& to) override;
  bool RenameAside(const std::string& from, const std::string& to) override;
  bool MakeFolder(const std::string& path) override;
  bool MakeFolders(const std::string& path) override;
  std::vector<std::string> ListFiles(const std::string& folder) override;
  bool KeepForUser(const std::string& folder) override;
  std::string TemporaryFolder() override;
  void RemoveTemporaryFolder() override;
  void DropViews() override;

 private:
  FileViews views_;
  std::string temporary_;
  pid_t maker_ = 0;  // of the temporary folder: a forked process leaves it alone
};

}  // namespace ostrinka
