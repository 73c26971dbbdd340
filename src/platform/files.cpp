#include "platform/files.h"

namespace ostrinka {

bool FileSystem::ReadAll(const std::string& path, std::string& content, int64_t limit) {
  content.clear();
  const std::unique_ptr<File> file = Open(path, OpenMode::kRead);
  if (!file) return false;
  const int64_t size = file->Size();
  if (size < 0 || size > limit) return false;
  content.resize(static_cast<size_t>(size));
  const int64_t read = file->ReadAt(0, content.data(), content.size());
  if (read < 0) content.clear();
  if (read >= 0) content.resize(static_cast<size_t>(read));
  return read >= 0;
}

bool FileSystem::WriteAll(const std::string& path, std::string_view content, bool flush) {
  const std::string neighbour = path + "~";
  {
    const std::unique_ptr<File> file = Open(neighbour, OpenMode::kCreate);
    if (!file) return false;
    if (!file->Resize(0) || !file->WriteAt(0, content.data(), content.size()) || (flush && !file->Flush())) {
      Remove(neighbour);
      return false;
    }
  }
  if (Rename(neighbour, path)) return true;
  Remove(neighbour);
  return false;
}

}  // namespace ostrinka
