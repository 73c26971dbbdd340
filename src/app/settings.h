// The settings store: text values addressed by namespace, section and key, one small file each.
//
// A mobile program keeps them in "settings/" of its own folder, any other in the per-user folder that the platform names.
#pragma once

#include <string>
#include <string_view>

#include "base/value.h"
#include "platform/files.h"

namespace ostrinka {

inline constexpr std::string_view kCommon = "Velmora.common";      // settings shared by the maker's programs
inline constexpr std::string_view kOstrinka = "Velmora.Ostrinka";  // settings of this program

class Settings {
 public:
  Settings(FileSystem& files, std::string folder);
  // From now on values live in `folder` (with a closing slash).
  void UseFolder(std::string folder) { folder_ = std::move(folder); }
  const std::string& folder() const { return folder_; }

  // The stored text, or `fallback` unchanged in type. An empty name gives the integer 5 and reads nothing. The first line of the file
  // counts; an empty file gives "".
  Value GetSettingValue(std::string_view space, std::string_view section, std::string_view key, const Value& fallback);
  // False when the value could not be written.
  bool SaveSettingValue(std::string_view space, std::string_view section, std::string_view key, const Value& value);
  bool Exists(std::string_view space, std::string_view section, std::string_view key);

  // Readers of a known type; a stored text that does not convert counts as the fallback.
  std::string Text(std::string_view space, std::string_view section, std::string_view key, std::string_view fallback = "");
  int32_t Integer(std::string_view space, std::string_view section, std::string_view key, int32_t fallback);
  bool Boolean(std::string_view space, std::string_view section, std::string_view key, bool fallback);

  // "namespace\section\key" escaped, with ".ovreg".
  static std::string FileName(std::string_view space, std::string_view section, std::string_view key);

 private:
  FileSystem& files_;
  std::string folder_;
};

}  // namespace ostrinka
