#include "company/version_file.h"

#include "base/bytes.h"

namespace ostrinka {
namespace {
constexpr const char* kVersionFile = "db.info";
constexpr size_t kVersionSize = 6;  // major, minor, revision: signed 16-bit each, little-endian
constexpr int64_t kUpgradeByte = int64_t{1} << 62;
}  // namespace

ProgramVersion ReadFolderVersion(FileSystem& files, const std::string& folder) {
  const std::unique_ptr<File> file = files.Open(folder + kVersionFile, OpenMode::kRead);
  char bytes[kVersionSize];
  if (!file || file->ReadAt(0, bytes, kVersionSize) != static_cast<int64_t>(kVersionSize)) return {0, 0, 0};
  return {LoadLe<int16_t>(bytes), LoadLe<int16_t>(bytes + 2), LoadLe<int16_t>(bytes + 4)};
}

bool WriteFolderVersion(FileSystem& files, const std::string& folder, ProgramVersion version) {
  std::string bytes;
  AppendLe(bytes, version.major);
  AppendLe(bytes, version.minor);
  AppendLe(bytes, version.revision);
  const std::unique_ptr<File> file = files.Open(folder + kVersionFile, OpenMode::kCompanion);
  return file && file->WriteAt(0, bytes.data(), bytes.size()) && file->Resize(static_cast<int64_t>(bytes.size())) && file->Flush();
}

bool HasFolderVersion(FileSystem& files, const std::string& folder) {
  return files.FileExists(folder + kVersionFile);
}

bool IsBeingUpgraded(FileSystem& files, const std::string& folder) {
  const std::unique_ptr<File> file = files.Open(folder + kVersionFile, OpenMode::kRead);
  return file && !file->Lock(kUpgradeByte, 1, false);
}

UpgradeLock::UpgradeLock(FileSystem& files, const std::string& folder) : file_(files.Open(folder + kVersionFile, OpenMode::kCompanion)) {
  refused_ = file_ && !file_->Lock(kUpgradeByte, 1, true);
}

}  // namespace ostrinka
