#include "platform/posix/picture_decoder.h"

#include <new>

#include "platform/posix/picture_formats.h"

namespace ostrinka {
namespace {

constexpr int64_t kLongestFile = int64_t{300} << 20;  // a bitmap of the most pixels, with room to spare

constexpr struct {
  std::string_view start;
  std::optional<Picture> (*read)(std::string_view file);
} kFormats[] = {{"BM", ReadBitmap}, {"\x89PNG", ReadPng}, {"\xFF\xD8\xFF", ReadJpeg}, {"GIF8", ReadGif}};

}  // namespace

std::optional<Picture> FilePictureDecoder::Decode(const std::string& path) try {
  std::string file;
  if (!files_.ReadAll(path, file, kLongestFile)) return std::nullopt;
  for (const auto& format : kFormats) {
    if (file.starts_with(format.start)) return format.read(file);
  }
  return std::nullopt;
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

}  // namespace ostrinka
