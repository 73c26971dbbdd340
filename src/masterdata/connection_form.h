// The database connection dialog: where the company lies and how the program logs in to it.
#pragma once

#include "masterdata/database_place.h"

namespace ostrinka {

class frm_Admin_qdb_ : public Form {
 public:
  std::array<OptionBoxControl, 2> dbLocal;  // 0 the default folder, 1 an own one
  TextBoxControl txtDbPath, userName, userPassword;
  CheckBoxControl dbLogin;  // ask for the login at start
  ButtonControl btnBrowse, btnSave, btnCancel, btnCreate, btnConnectionTest;
  ButtonControl btnWizard;  // only before the first company

  explicit frm_Admin_qdb_(Program& program);

  // Fills the fields from the settings; the password stays out while the login is asked for at the start.
  void reload_();
  // Stores them and opens the database; closes the dialog when that succeeds. After a try that failed, leaving the dialog brings the former
  // connection back.
  void save_();

 private:
  struct Connection {
    DatabasePlace place;
    std::string user, password;
    bool ask = false;  // for the login at start
  };
  Connection Stored() const;
  void Store(const Connection& connection);
  bool MayStore(const Connection& typed);
  void PutBack();
  void ShowViews();
  bool OpenDatabase(const LoginResult* login, std::string& reason);
  void TestConnection();
  void CreateDatabase();
  void RunWizard();
  void ShowCompany();

  Program& program_;
  DatabasePlaceFields place_;
  Connection before_;         // the one that works, as far as is known
  LoginResult login_before_;  // by which its company was opened
  bool was_open_ = false;
  bool failed_ = false;  // the last try
};

}  // namespace ostrinka
