// Reads the picture files that people have (bmp, png, jpg, gif) alike in every front end, told apart by their content.
#pragma once

#include <optional>
#include <string>

#include "platform/platform.h"

namespace ostrinka {

// A file may be damaged or made to harm: what cannot be read to its end gives nothing.
class FilePictureDecoder : public PictureDecoder {
 public:
  explicit FilePictureDecoder(FileSystem& files) : files_(files) {}
  std::optional<Picture> Decode(const std::string& path) override;

 private:
  FileSystem& files_;
};

}  // namespace ostrinka
