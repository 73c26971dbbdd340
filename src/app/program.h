// The state of the running program, and the only one: passed by reference, so that a test can hold two programs at once.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <typeindex>
#include <vector>

#include "app/catalogue.h"
#include "app/company_record.h"
#include "app/main_view.h"
#include "app/settings.h"
#include "base/format.h"
#include "platform/platform.h"

namespace ostrinka {

struct LoginResult {
  std::string user, password;
  bool accepted = false;
};

struct ProgramVersion {
  int16_t major, minor, revision;
};
inline constexpr ProgramVersion kProgramVersion{1, 0, 0};
inline constexpr int kTableSlots = 32;

class Program {
 public:
  // Runs the mobile test: a file "mobile" in the application folder moves the settings there.
  explicit Program(Platform& surroundings);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  Platform& platform;
  Locale locale = Locale::Polish();
  bool mobile = false;
  Settings settings;
  Catalogue catalogue;
  std::string skin_path;
  bool database_open = false;
  std::vector<std::string> TempPageFiles;
  LoginResult login;
  CompanyRecord company;
  MainView* main_view = nullptr;  // null until the main window stands
  int32_t current_customer = 0;   // record handed from an editor to the line dialog and the picker
  int32_t current_advance = 0;    // record of the advance invoice picked in the line dialog

  // What a folder above this one keeps for the life of the program: one object of a type, made when it is first asked for.
  template <typename T>
  T& Part() const {
    std::shared_ptr<void>& part = parts_[typeid(T)];
    if (!part) part = std::make_shared<T>();
    return *static_cast<T*>(part.get());
  }

  std::string ApplicationFolder() const { return platform.application_folder; }  // exactly one closing slash
  std::string IconsFolder() const { return platform.application_folder + "Icons/"; }
  // Folder of the company database, from the settings, with a closing slash.
  std::string DatabaseFolder();
  // The markers <APP> and <USB> resolved, backslashes as slashes.
  std::string ResolveFolder(std::string_view path) const;

  std::string Text(std::string_view key, std::initializer_list<std::string_view> arguments = {}) const {
    return catalogue.Text(key, arguments);
  }
  // The program's own message box with the text of `key`.
  Answer Message(std::string_view key, MessageKind kind, std::initializer_list<std::string_view> arguments = {});
  Answer ShowMessage(const std::string& text, MessageKind kind);
  void Status(const std::string& text);  // the status line of the main window

 private:
  mutable std::map<std::type_index, std::shared_ptr<void>> parts_;
};

}  // namespace ostrinka
