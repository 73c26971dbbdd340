// Where a company lies and who logs in to it, as the database dialogs share it: a choice of two places, a path, the settings behind them.
#pragma once

#include <array>
#include <string>

#include "forms/form_helpers.h"

namespace ostrinka {

// The data folder of the program as the settings write it.
inline constexpr const char* kDefaultDatabasePath = "<APP>\\data\\";

struct DatabasePlace {
  bool remote = false;  // a folder of the user's own instead of the default one
  std::string path;     // that folder as typed; may hold the markers
  // The folder with a closing separator, markers unresolved; "" when an own folder was chosen and none typed.
  std::string Folder() const;
};

DatabasePlace ReadDatabasePlace(Program& program);
bool SaveDatabasePlace(Program& program, const DatabasePlace& place);
bool SaveDatabaseLogin(Program& program, const std::string& user, const std::string& password);

// The two option boxes, the path and its browse button: typing a path or browsing for one chooses the own folder.
class DatabasePlaceFields {
 public:
  std::array<OptionBoxControl, 2>& options;  // 0 the default folder, 1 an own one
  TextBoxControl& path;

  // `browse` asks for a folder under the title `title_key`.
  DatabasePlaceFields(Program& program, std::array<OptionBoxControl, 2>& boxes, TextBoxControl& box, ButtonControl& browse,
                      std::string title_key);
  void Show(const DatabasePlace& place);
  DatabasePlace Read() const;

 private:
  void Browse();
  Program& program_;
  std::string title_key_;
};

}  // namespace ostrinka
