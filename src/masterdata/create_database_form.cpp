#include "masterdata/create_database_form.h"

#include "base/text.h"
#include "company/ost_engine.h"

namespace ostrinka {

frm_Admin_qdbc_::frm_Admin_qdbc_(Program& program)
    : Form("frm_Admin_qdbc_", "qdbc.title"), program_(program), place_(program, dbLocal, txtDbPath, btnBrowse, "qdbc.lbl.path") {
  Register("dbLocal", dbLocal);
  Register("txtDbPath", txtDbPath);
  Register("btnBrowse", btnBrowse);
  Register("userName", userName);
  Register("userPassword1", userPassword1);
  Register("userPassword2", userPassword2);
  Register("btnCreateDatabase", btnCreateDatabase);
  Register("btnCancel", btnCancel);
  dbLocal[0].caption_key = "qdbc.dbloc.default";
  dbLocal[1].caption_key = "qdbc.dbloc.remote";
  btnBrowse.caption_key = "qdbc.btn.browse";
  btnBrowse.icon = "btnbrowse.ico";
  btnCreateDatabase.icon = "btnsave.ico";
  btnCancel.icon = "btncancel.ico";
  userPassword1.PasswordChar = userPassword2.PasswordChar = U'*';
  Page("STD", "qdbc.title")
      .Side({GroupLayout("qdbc.grp.place")
                 .Row({{"", dbLocal[0], 12}})
                 .Row({{"", dbLocal[1], 12}})
                 .Row({{"qdbc.lbl.path", txtDbPath, 9}, {"", btnBrowse, 3}})})
      .Side({GroupLayout("qdbc.grp.login")
                 .Row({{"qdbc.lbl.user", userName, 12}})
                 .Row({{"qdbc.lbl.password1", userPassword1, 6}, {"qdbc.lbl.password2", userPassword2, 6}})});
  Buttons({{"qdbc.btn.create", btnCreateDatabase, kDefault}, {"qdbc.btn.cancel", btnCancel, kCancel}});
  btnCreateDatabase.Clicked += [this] { Create(); };
  btnCancel.Clicked += [this] { Close(); };
}

void frm_Admin_qdbc_::reload_() {
  created_ = false;
  place_.Show(DatabasePlace());
  for (TextBoxControl* box : {&userName, &userPassword1, &userPassword2}) box->SetText("");
  SetFocus(userName);
  SetDirty(false);
}

void frm_Admin_qdbc_::Create() {
  const std::string user = Trim(userName.Text()), password = Trim(userPassword1.Text()), again = Trim(userPassword2.Text());
  if (user.empty() || password.empty() || again.empty()) {
    program_.Message("msg.info.dbcreatetypeuserandpass", MessageKind::kInformation);
    return;
  }
  if (password != again) {
    program_.Message("msg.info.dbcreatepass", MessageKind::kInformation);
    return;
  }
  const DatabasePlace place = place_.Read();
  const std::string folder = place.Folder();
  bool done = false;
  if (!folder.empty() && program_.platform.files.MakeFolders(program_.ResolveFolder(folder))) {
    OSTEngine(program_).create_(folder, user, password, false, done);
    program_.Status("");
  }
  if (!done) {
    program_.Message("msg.info.dbcreateerror", MessageKind::kError);
    return;
  }
  program_.Message("msg.info.dbcreateok", MessageKind::kPlain);
  SaveDatabasePlace(program_, place);
  SaveDatabaseLogin(program_, user, password);
  created_ = true;
  SetDirty(false);
  Close();
}

}  // namespace ostrinka
