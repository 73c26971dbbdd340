#include "masterdata/database_place.h"

#include "base/text.h"

namespace ostrinka {

std::string DatabasePlace::Folder() const {
  if (!remote) return kDefaultDatabasePath;
  if (path.empty() || path.back() == '\\' || path.back() == '/') return path;
  return path + "\\";
}

DatabasePlace ReadDatabasePlace(Program& program) {
  return {program.settings.Boolean(kCommon, "dbPath", "Remote", false), Trim(program.settings.Text(kCommon, "dbPath", "Path"))};
}

bool SaveDatabasePlace(Program& program, const DatabasePlace& place) {
  // The own folder is remembered while the default one is in use.
  const std::string path = !place.remote && place.path.empty() ? kDefaultDatabasePath : place.path;
  const bool flag = program.settings.SaveSettingValue(kCommon, "dbPath", "Remote", Value(place.remote));
  return program.settings.SaveSettingValue(kCommon, "dbPath", "Path", Value(path)) && flag;
}

bool SaveDatabaseLogin(Program& program, const std::string& user, const std::string& password) {
  const bool name = program.settings.SaveSettingValue(kCommon, "dbLogin", "username", Value(user));
  return program.settings.SaveSettingValue(kCommon, "dbLogin", "password", Value(password)) && name;
}

DatabasePlaceFields::DatabasePlaceFields(Program& program, std::array<OptionBoxControl, 2>& boxes, TextBoxControl& box,
                                         ButtonControl& browse, std::string title_key)
    : options(boxes), path(box), program_(program), title_key_(std::move(title_key)) {
  options[0].JoinGroup({&options[1]});
  options[1].JoinGroup({&options[0]});
  path.Changed += [this] { options[1].SetValue(true); };
  browse.Clicked += [this] { Browse(); };
}

void DatabasePlaceFields::Show(const DatabasePlace& place) {
  options[place.remote ? 1 : 0].SetValue(true);
  path.SetText(place.path);
}

DatabasePlace DatabasePlaceFields::Read() const {
  return {options[1].Value(), Trim(path.Text())};
}

void DatabasePlaceFields::Browse() {
  const std::optional<std::string> folder = program_.platform.ui.AskFolder(program_.Text(title_key_));
  if (!folder || folder->empty()) return;
  if (FromCp1250(ToCp1250(*folder)) != *folder) {
    program_.Message("msg.info.dbpathletters", MessageKind::kWarning);  // the settings could not name it
    return;
  }
  path.SetText(*folder);
  options[1].SetValue(true);
}

}  // namespace ostrinka
