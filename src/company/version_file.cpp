#include "company/version_file.h"

#include "base/bytes.h"

namespace ostrinka {
namespace {
constexpr const char* kVersionFile = "db.info";
constexpr size_t kVersionSize = 6;  // major, minor, revision: signed 16-bit each, little-endian
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
  const std::unique_ptr<File> file = files.Open(folder + kVersionFile, OpenMode::kCreate);
  return file && file->WriteAt(0, bytes.data(), bytes.size()) && file->Resize(static_cast<int64_t>(bytes.size()));
}

}  // namespace ostrinka
