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

  void reload_();  // fills the fields from the settings
  void save_();    // stores them and opens the database; closes the dialog when that succeeds

 private:
  void Store();
  bool OpenDatabase();
  void TestConnection();
  void CreateDatabase();
  void RunWizard();
  void ShowCompany();

  Program& program_;
  DatabasePlaceFields place_;
};

}  // namespace ostrinka
