#include "platform/files.h"

#include <algorithm>

namespace ostrinka {
namespace {

constexpr int kNeighbours = 50;  // two programs at one file, and what killed ones left
constexpr size_t kLongestName = 255;

// "name~n" beside the file; a long name is cut, between letters.
std::string Neighbour(const std::string& path, int n) {
  const std::string suffix = "~" + std::to_string(n);
  const size_t name = path.find_last_of("/\\") + 1;
  size_t end = std::min(path.size(), name + kLongestName - suffix.size());
  while (end < path.size() && end > name && (static_cast<unsigned char>(path[end]) & 0xC0) == 0x80) --end;
  return path.substr(0, end) + suffix;
}

}  // namespace

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

bool FileSystem::WriteAll(const std::string& path, std::string_view content, WriteOptions options) {
  const OpenMode mode = options.for_user_alone ? OpenMode::kNewPrivate : OpenMode::kNew;
  std::string neighbour;
  std::unique_ptr<File> file;
  for (int n = 1; !file && n <= kNeighbours; ++n) {
    neighbour = Neighbour(path, n);
    file = Open(neighbour, mode);
  }
  if (!file) return false;
  const bool written = file->WriteAt(0, content.data(), content.size()) && (!options.flush || file->Flush());
  file.reset();
  if (written && Rename(neighbour, path)) return true;
  Remove(neighbour);
  return false;
}

}  // namespace ostrinka
