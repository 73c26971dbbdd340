#include "app/program.h"

#include "base/text.h"

namespace ostrinka {

Program::Program(Platform& surroundings)
    : platform(surroundings), settings(platform.files, platform.user_settings), catalogue(platform.files, platform.application_folder) {
  mobile = platform.files.FileExists(platform.application_folder + "mobile");
  if (!mobile) return;
  platform.files.MakeFolder(platform.application_folder + "settings");
  settings.UseFolder(platform.application_folder + "settings/");
}

Program::~Program() = default;

std::string Program::ResolveFolder(std::string_view path) const {
  const std::string application = Trim(platform.application_folder);
  std::string resolved = ReplaceAll(path, "<APP>", application);
  resolved = ReplaceAll(resolved, "<USB>", LeftCharacters(application, 2));
  resolved = ReplaceAll(resolved, "\\", "/");
  // "<APP>\data" would double the separator that the application folder already ends with.
  while (Contains(resolved, "//")) resolved = ReplaceAll(resolved, "//", "/");
  return resolved;
}

std::string Program::DatabaseFolder() {
  if (!settings.Boolean(kCommon, "dbPath", "Remote", false)) return ResolveFolder(platform.application_folder + "/data/");
  std::string path = Trim(settings.Text(kCommon, "dbPath", "Path"));
  if (path.empty() || (path.back() != '\\' && path.back() != '/')) path += '/';
  return ResolveFolder(path);
}

Answer Program::Message(std::string_view key, MessageKind kind, std::initializer_list<std::string_view> arguments) {
  return ShowMessage(Text(key, arguments), kind);
}

Answer Program::ShowMessage(const std::string& text, MessageKind kind) {
  return platform.ui.ShowMessage(text, kind);
}

void Program::Status(const std::string& text) {
  platform.ui.ShowStatus(text);
}

}  // namespace ostrinka
