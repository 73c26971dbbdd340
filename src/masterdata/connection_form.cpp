#include "masterdata/connection_form.h"

#include <algorithm>

#include "base/text.h"
#include "company/ost_engine.h"
#include "company/tables.h"
#include "masterdata/company_data.h"
#include "masterdata/create_database_form.h"
#include "masterdata/wizard_form.h"

namespace ostrinka {

frm_Admin_qdb_::frm_Admin_qdb_(Program& program)
    : Form("frm_Admin_qdb_", "qdb.title"), program_(program), place_(program, dbLocal, txtDbPath, btnBrowse, "qdb.lbl.path") {
  Register("dbLocal", dbLocal);
  Register("txtDbPath", txtDbPath);
  Register("btnBrowse", btnBrowse);
  Register("userName", userName);
  Register("userPassword", userPassword);
  Register("dbLogin", dbLogin);
  Register("btnSave", btnSave);
  Register("btnCancel", btnCancel);
  Register("btnCreate", btnCreate);
  Register("btnConnectionTest", btnConnectionTest);
  Register("btnWizard", btnWizard);
  dbLocal[0].caption_key = "qdb.defdataloc";
  dbLocal[1].caption_key = "qdb.remotedataloc";
  dbLogin.caption_key = "qdb.reqpass";
  btnBrowse.caption_key = "qdb.btn.browse";
  btnBrowse.icon = "btnbrowse.ico";
  btnSave.icon = "btnsave.ico";
  btnCancel.icon = "btncancel.ico";
  userPassword.PasswordChar = U'*';
  Page("STD", "qdb.title")
      .Side({GroupLayout("qdb.grp.place")
                 .Row({{"", dbLocal[0], 12}})
                 .Row({{"", dbLocal[1], 12}})
                 .Row({{"qdb.lbl.path", txtDbPath, 9}, {"", btnBrowse, 3}})})
      .Side({GroupLayout("qdb.grp.login")
                 .Row({{"qdb.lbl.user", userName, 6}, {"qdb.lbl.password", userPassword, 6}})
                 .Row({{"", dbLogin, 12}})});
  Buttons({{"qdb.btn.wizard", btnWizard},
           {"qdb.btn.create", btnCreate},
           {"qdb.btn.test", btnConnectionTest},
           {"qdb.btn.ok", btnSave, kDefault},
           {"qdb.btn.cancel", btnCancel, kCancel}});
  btnSave.Clicked += [this] { save_(); };
  btnCancel.Clicked += [this] { Close(); };
  btnCreate.Clicked += [this] { CreateDatabase(); };
  btnConnectionTest.Clicked += [this] { TestConnection(); };
  btnWizard.Clicked += [this] { RunWizard(); };
}

void frm_Admin_qdb_::reload_() {
  place_.Show(ReadDatabasePlace(program_));
  userName.SetText(program_.settings.Text(kCommon, "dbLogin", "username"));
  userPassword.SetText(program_.settings.Text(kCommon, "dbLogin", "password"));
  dbLogin.SetChecked(program_.settings.Boolean(kCommon, "dbLogin", "login", false));
  btnWizard.SetVisible(program_.settings.Boolean(kCommon, "system", "fRun", true));
  SetDirty(false);
}

void frm_Admin_qdb_::Store() {
  SaveDatabasePlace(program_, place_.Read());
  SaveDatabaseLogin(program_, Trim(userName.Text()), Trim(userPassword.Text()));
  program_.settings.SaveSettingValue(kCommon, "dbLogin", "login", Value(dbLogin.Checked()));
}

void frm_Admin_qdb_::save_() {
  Store();
  if (program_.main_view) program_.main_view->ScrollShow_(false);
  program_.Status(program_.Text("mdi.pleasewait"));
  const bool opened = OpenDatabase();
  program_.Status("");
  if (!opened) {
    program_.ShowMessage(program_.Text("msg.info.cantopendatabase") + "\r\n" + program_.Text("msg.info.pleasecheckuserandpass"),
                         MessageKind::kError);
    if (program_.main_view) program_.main_view->ResetXRSC_();
    return;
  }
  CompanyLoad(program_);
  ShowCompany();
}

void frm_Admin_qdb_::ShowCompany() {
  if (program_.main_view) {
    program_.main_view->ScrollShow_(true);
    program_.main_view->ref_();
    program_.main_view->refresh_tasks_();
  }
  SetDirty(false);
  Close();
}

bool frm_Admin_qdb_::OpenDatabase() {
  const bool was_open = AnyTableOpen(program_);
  program_.database_open = false;
  bool opened = false;
  OSTEngine engine(program_);
  if (was_open) {
    engine.reopen_(opened);
  } else {
    engine.open_(false, opened);
  }
  program_.database_open = opened;
  return opened;
}

void frm_Admin_qdb_::TestConnection() {
  bool answers = false;
  const std::string folder = place_.Read().Folder();
  if (!folder.empty()) OSTEngine(program_).test_(folder, Trim(userName.Text()), Trim(userPassword.Text()), answers);
  if (answers) {
    program_.Message("msg.info.dbtest.ok", MessageKind::kPlain);
  } else {
    program_.Message("msg.info.dbtest.error", MessageKind::kError);
  }
}

void frm_Admin_qdb_::CreateDatabase() {
  frm_Admin_qdbc_ dialog(program_);
  dialog.reload_();
  program_.platform.ui.ShowModal(dialog);
  if (dialog.created()) reload_();
}

void frm_Admin_qdb_::RunWizard() {
  frm_Admin_bg_ wizard(program_);
  wizard.reload_();
  program_.platform.ui.ShowModal(wizard);
  if (wizard.finished()) ShowCompany();
}

}  // namespace ostrinka
