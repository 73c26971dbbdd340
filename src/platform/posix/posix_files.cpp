#include "platform/posix/posix_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace ostrinka {
namespace {

std::string PlatformPath(const std::string& path) {
  std::string result = path;
  std::replace(result.begin(), result.end(), '\\', '/');
  return result;
}

int OpenFlags(OpenMode mode) {
  switch (mode) {
    case OpenMode::kRead:
      return O_RDONLY;
    case OpenMode::kReadWrite:
      return O_RDWR;
    case OpenMode::kCreate:
      return O_RDWR | O_CREAT;
    case OpenMode::kCompanion:
      return O_RDWR | O_CREAT | O_NOFOLLOW;
    default:
      return O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;
  }
}

class PosixFile : public File {
 public:
  PosixFile(int descriptor, std::string path, std::shared_ptr<FileView> view)
      : descriptor_(descriptor), path_(std::move(path)), view_(std::move(view)) {}
  ~PosixFile() override { close(descriptor_); }

  int64_t Size() override {
    struct stat status;
    return Check(fstat(descriptor_, &status)) ? static_cast<int64_t>(status.st_size) : -1;
  }

  int64_t ReadAt(int64_t position, void* to, size_t length) override {
    size_t done = 0;
    while (done < length) {
      const ssize_t got = pread(descriptor_, static_cast<char*>(to) + done, length - done, position + static_cast<int64_t>(done));
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) {
        error_ = errno;
        return -1;
      }
      if (got == 0) break;
      done += static_cast<size_t>(got);
    }
    return static_cast<int64_t>(done);
  }

  std::shared_ptr<const char> View(int64_t position, size_t length) override {
    return view_ ? view_->Bytes(descriptor_, position, length) : nullptr;
  }

  bool WriteAt(int64_t position, const void* from, size_t length) override {
    size_t done = 0;
    while (done < length) {
      const ssize_t put = pwrite(descriptor_, static_cast<const char*>(from) + done, length - done, position + static_cast<int64_t>(done));
      if (put < 0 && errno == EINTR) continue;
      if (put <= 0) {
        // A file that may not grow is told as a disk that has no more room.
        error_ = put < 0 && errno != EFBIG ? errno : ENOSPC;
        return false;
      }
      done += static_cast<size_t>(put);
    }
    if (hastens_) sync_file_range(descriptor_, position, static_cast<off_t>(length), SYNC_FILE_RANGE_WRITE);
    return true;
  }

  bool Resize(int64_t length) override {
    if (view_) view_->Drop();
    return Check(ftruncate(descriptor_, length));
  }

  void WillFlush() override { hastens_ = true; }

  bool Flush() override {
    hastens_ = false;
    return Check(fdatasync(descriptor_));
  }

  bool Lock(int64_t position, int64_t length, bool exclusive) override {
    return SetLock(position, length, static_cast<short>(exclusive ? F_WRLCK : F_RDLCK));
  }
  bool Unlock(int64_t position, int64_t length) override { return SetLock(position, length, F_UNLCK); }

  bool StillNamed() override {
    struct stat own, named;
    return fstat(descriptor_, &own) == 0 && stat(path_.c_str(), &named) == 0 && own.st_dev == named.st_dev && own.st_ino == named.st_ino;
  }

  void Renamed(const std::string& path) override { path_ = PlatformPath(path); }

  std::string LastError() const override { return std::strerror(error_); }

 private:
  bool Check(int result) {
    if (result != 0) error_ = errno;
    return result == 0;
  }

  bool SetLock(int64_t position, int64_t length, short type) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = position;
    lock.l_len = length;
    return Check(fcntl(descriptor_, F_OFD_SETLK, &lock));
  }

  int descriptor_;
  std::string path_;
  bool hastens_ = false;
  std::shared_ptr<FileView> view_;
  int error_ = 0;
};

}  // namespace

PosixFileSystem::PosixFileSystem() {
  // A write beyond the size that a file may have fails as one on a full disk does, instead of ending the program.
  signal(SIGXFSZ, SIG_IGN);
}

PosixFileSystem::~PosixFileSystem() {
  RemoveTemporaryFolder();
}

std::unique_ptr<File> PosixFileSystem::Open(const std::string& path, OpenMode mode, std::string* error) {
  const std::string name = PlatformPath(path);
  int descriptor = open(name.c_str(), OpenFlags(mode) | O_CLOEXEC | O_NONBLOCK, mode == OpenMode::kNewPrivate ? 0600 : 0660);
  struct stat status;
  if (descriptor >= 0 && (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))) {
    close(descriptor);
    descriptor = -1;
    errno = EISDIR;
  }
  if (descriptor < 0) {
    if (error) *error = std::strerror(errno);
    return nullptr;
  }
  return std::make_unique<PosixFile>(descriptor, name, views_.Of(descriptor, status.st_dev, status.st_ino));
}

bool PosixFileSystem::FileExists(const std::string& path) {
  struct stat status;
  return stat(PlatformPath(path).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool PosixFileSystem::FolderExists(const std::string& path) {
  struct stat status;
  return stat(PlatformPath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

int64_t PosixFileSystem::FileSize(const std::string& path) {
  struct stat status;
  if (stat(PlatformPath(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return -1;
  return static_cast<int64_t>(status.st_size);
}

bool PosixFileSystem::Remove(const std::string& path) {
  return unlink(PlatformPath(path).c_str()) == 0;
}

bool PosixFileSystem::Rename(const std::string& from, const std::string& to) {
  return rename(PlatformPath(from).c_str(), PlatformPath(to).c_str()) == 0;
}

bool PosixFileSystem::RenameAside(const std::string& from, const std::string& to) {
  const std::string source = PlatformPath(from), target = PlatformPath(to);
  if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // A file system that knows no such renaming; a link is refused in the same way.
  if (link(source.c_str(), target.c_str()) == 0) return unlink(source.c_str()) == 0;
  struct stat status;
  return errno != EEXIST && lstat(target.c_str(), &status) != 0 && rename(source.c_str(), target.c_str()) == 0;
}

bool PosixFileSystem::MakeFolder(const std::string& path) {
  return mkdir(PlatformPath(path).c_str(), 0770) == 0 || FolderExists(path);
}

bool PosixFileSystem::MakeFolders(const std::string& path) {
  const std::string name = PlatformPath(path);
  for (size_t at = name.find('/', 1); at != std::string::npos; at = name.find('/', at + 1)) {
    if (!MakeFolder(name.substr(0, at))) return false;
  }
  return name.empty() || MakeFolder(name);
}

std::vector<std::string> PosixFileSystem::ListFiles(const std::string& folder) {
  std::vector<std::string> names;
  const std::string name = PlatformPath(folder);
  DIR* directory = opendir(name.c_str());
  if (!directory) return names;
  while (const dirent* entry = readdir(directory)) {
    if (FileExists(name + "/" + entry->d_name)) names.emplace_back(entry->d_name);
  }
  closedir(directory);
  std::sort(names.begin(), names.end());
  return names;
}

void PosixFileSystem::DropViews() {
  views_.Drop();
}

bool PosixFileSystem::KeepForUser(const std::string& folder) {
  const std::string name = PlatformPath(folder);
  struct stat status;
  if (stat(name.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != geteuid()) return false;
  return (status.st_mode & 0777) == 0700 || chmod(name.c_str(), 0700) == 0;
}

std::string PosixFileSystem::TemporaryFolder() {
  struct stat status;
  const bool stands = !temporary_.empty() && lstat(temporary_.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
                      status.st_uid == geteuid() && (status.st_mode & 0077) == 0;
  if (stands && maker_ == getpid()) return temporary_ + "/";
  const char* named = std::getenv("TMPDIR");
  std::string pattern = named && *named ? named : "/tmp";
  if (pattern.back() != '/') pattern += '/';
  pattern += "ostrinka-XXXXXX";
  // One that cannot be made is named all the same: nothing can be written there.
  maker_ = mkdtemp(pattern.data()) ? getpid() : 0;
  temporary_ = pattern;
  return temporary_ + "/";
}

void PosixFileSystem::RemoveTemporaryFolder() {
  std::error_code ignored;
  if (maker_ == getpid()) std::filesystem::remove_all(temporary_, ignored);
  temporary_.clear();
  maker_ = 0;
}

}  // namespace ostrinka
