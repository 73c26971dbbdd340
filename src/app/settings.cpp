#include "app/settings.h"

#include "base/text.h"

namespace ostrinka {

Settings::Settings(FileSystem& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

std::string Settings::FileName(std::string_view space, std::string_view section, std::string_view key) {
  constexpr std::pair<const char*, const char*> kEscapes[] = {{"\\", "%5C"}, {"/", "%2F"}, {":", "%3A"}, {"*", "%2A"}, {"?", "%3F"},
                                                              {"<", "%3C"},  {">", "%3E"}, {"|", "%7C"}, {"\"", "%22"}};
  std::string name = Trim(space) + "\\" + Trim(section) + "\\" + Trim(key);
  for (const auto& [letter, escape] : kEscapes) name = ReplaceAll(name, letter, escape);
  return name + ".ovreg";
}

Value Settings::GetSettingValue(std::string_view space, std::string_view section, std::string_view key, const Value& fallback) {
  // Kept: a wrong name reads as the number of that error, not as the fallback.
  if (Trim(space).empty() || Trim(section).empty() || Trim(key).empty()) return int32_t{5};
  const std::string path = folder_ + FileName(space, section, key);
  if (files_.FileSize(path) < 0) return fallback;
  std::string content;
  if (!files_.ReadAll(path, content, int64_t{1} << 20)) return fallback;
  return FromCp1250(content.substr(0, content.find_first_of("\r\n")));
}

bool Settings::SaveSettingValue(std::string_view space, std::string_view section, std::string_view key, const Value& value) {
  if (Trim(space).empty() || Trim(section).empty() || Trim(key).empty()) return false;
  if (!files_.FolderExists(folder_) && files_.MakeFolders(folder_)) files_.KeepForUser(folder_);
  // Without waiting for the disk: a window that closes writes more than a hundred of them.
  return files_.WriteAll(folder_ + FileName(space, section, key), ToCp1250(ToText(value)) + "\r\n",
                         {.flush = false, .for_user_alone = true});
}

bool Settings::Exists(std::string_view space, std::string_view section, std::string_view key) {
  return files_.FileSize(folder_ + FileName(space, section, key)) >= 0;
}

std::string Settings::Text(std::string_view space, std::string_view section, std::string_view key, std::string_view fallback) {
  return ToText(GetSettingValue(space, section, key, std::string(fallback)));
}

int32_t Settings::Integer(std::string_view space, std::string_view section, std::string_view key, int32_t fallback) {
  const Value value = GetSettingValue(space, section, key, fallback);
  return ToInt32(value).value_or(fallback);
}

bool Settings::Boolean(std::string_view space, std::string_view section, std::string_view key, bool fallback) {
  const Value value = GetSettingValue(space, section, key, fallback);
  return ToBoolean(value).value_or(fallback);
}

}  // namespace ostrinka
