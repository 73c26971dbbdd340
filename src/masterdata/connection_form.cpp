#include "masterdata/connection_form.h"

#include <utility>

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
  Closed += [this] { PutBack(); };
}

frm_Admin_qdb_::Connection frm_Admin_qdb_::Stored() const {
  Settings& settings = program_.settings;
  return {ReadDatabasePlace(program_), settings.Text(kCommon, "dbLogin", "username"), settings.Text(kCommon, "dbLogin", "password"),
          settings.Boolean(kCommon, "dbLogin", "login", false)};
}

void frm_Admin_qdb_::Store(const Connection& connection) {
  SaveDatabasePlace(program_, connection.place);
  SaveDatabaseLogin(program_, connection.user, connection.password);
  program_.settings.SaveSettingValue(kCommon, "dbLogin", "login", Value(connection.ask));
}

void frm_Admin_qdb_::reload_() {
  before_ = Stored();
  was_open_ = program_.database_open;
  login_before_ = program_.login;
  failed_ = false;
  place_.Show(before_.place);
  userName.SetText(before_.user);
  // Who is asked for the password at the start does not get it from here.
  userPassword.SetText(before_.ask ? "" : before_.password);
  dbLogin.SetChecked(before_.ask);
  btnWizard.SetVisible(program_.settings.Boolean(kCommon, "system", "fRun", true));
  SetDirty(false);
}

// Whether what was typed may be stored: the question for the login is taken away by who knows the password.
bool frm_Admin_qdb_::MayStore(const Connection& typed) {
  if (!before_.ask || typed.ask) return true;
  bool known = false;
  OSTEngine engine(program_);
  const std::string folder = typed.place.Folder();
  if (!folder.empty()) engine.test_(folder, typed.user, typed.password, known);
  if (!known) program_.ShowMessage(program_.Text("msg.info.asklogin") + "\r\n\r\n" + engine.reason(), MessageKind::kError);
  return known;
}

void frm_Admin_qdb_::save_() {
  Connection typed{place_.Read(), Trim(userName.Text()), Trim(userPassword.Text()), dbLogin.Checked()};
  if (!MayStore(typed)) return;
  if (before_.ask && typed.ask && typed.password.empty()) typed.password = before_.password;  // it was not shown
  Store(typed);
  if (program_.main_view) program_.main_view->ScrollShow_(false);
  program_.Status(program_.Text("mdi.pleasewait"));
  std::string reason;
  const bool opened = OpenDatabase(nullptr, reason);
  program_.Status("");
  failed_ = !opened;
  if (!opened) {
    program_.ShowMessage(program_.Text("msg.info.cantopendatabase") + "\r\n" + program_.Text("msg.info.pleasecheckuserandpass") +
                             (reason.empty() ? "" : "\r\n\r\n" + reason),
                         MessageKind::kError);
    if (program_.main_view) program_.main_view->ResetXRSC_();
    return;
  }
  CompanyLoad(program_);
  ShowCompany();
}

// Leaving after a try that failed: the connection that worked is the stored one again, and its company open.
void frm_Admin_qdb_::PutBack() {
  if (!std::exchange(failed_, false)) return;
  Store(before_);
  if (!was_open_ || program_.platform.ui.EndWanted()) return;
  std::string reason;
  if (!OpenDatabase(&login_before_, reason)) {
    program_.ShowMessage(program_.Text("msg.info.cantopendatabase") + "\r\n\r\n" + reason, MessageKind::kError);
    return;
  }
  CompanyLoad(program_);
  ShowViews();
}

void frm_Admin_qdb_::ShowViews() {
  if (!program_.main_view) return;
  program_.main_view->ScrollShow_(true);
  program_.main_view->ref_();
  program_.main_view->refresh_tasks_();
}

void frm_Admin_qdb_::ShowCompany() {
  ShowViews();
  SetDirty(false);
  Close();
}

// With `login`, nobody is asked for it.
bool frm_Admin_qdb_::OpenDatabase(const LoginResult* login, std::string& reason) {
  const bool was_open = AnyTableOpen(program_);
  program_.database_open = false;
  bool opened = false;
  OSTEngine engine(program_);
  if (login) {
    if (was_open) engine.close_(false);
    engine.open_as(*login, false, opened);
  } else if (was_open) {
    engine.reopen_(opened);
  } else {
    engine.open_(false, opened);
  }
  reason = engine.reason();
  program_.database_open = opened;
  return opened;
}

void frm_Admin_qdb_::TestConnection() {
  bool answers = false;
  OSTEngine engine(program_);
  const std::string folder = place_.Read().Folder();
  if (!folder.empty()) engine.test_(folder, Trim(userName.Text()), Trim(userPassword.Text()), answers);
  if (answers) {
    program_.Message("msg.info.dbtest.ok", MessageKind::kPlain);
    return;
  }
  const std::string& reason = engine.reason();
  program_.ShowMessage(program_.Text("msg.info.dbtest.error") + (reason.empty() ? "" : "\r\n\r\n" + reason), MessageKind::kError);
}

// Out of an open company the new one is opened at once, and the dialog goes on with it; without one, saving opens it.
void frm_Admin_qdb_::CreateDatabase() {
  frm_Admin_qdbc_ dialog(program_);
  dialog.reload_();
  program_.platform.ui.ShowModal(dialog);
  if (!dialog.created()) return;
  if (was_open_) {
    const Connection made = Stored();
    std::string reason;
    const LoginResult login{made.user, made.password, true};
    if (OpenDatabase(&login, reason)) {
      CompanyLoad(program_);
      ShowViews();
    } else {
      program_.ShowMessage(program_.Text("msg.info.cantopendatabase") + "\r\n\r\n" + reason, MessageKind::kError);
      failed_ = true;
      return;
    }
  }
  reload_();
}

void frm_Admin_qdb_::RunWizard() {
  frm_Admin_bg_ wizard(program_);
  wizard.reload_();
  program_.platform.ui.ShowModal(wizard);
  if (wizard.finished()) ShowCompany();
}

}  // namespace ostrinka
