#include "company/login_form.h"

#include <utility>

namespace ostrinka {

LoginForm::LoginForm(Program& program) : Form("LoginForm", "login.title"), program_(program) {
  Register("txtUser", txtUser);
  Register("txtPassword", txtPassword);
  Register("btnLogin", btnLogin);
  Register("btnCancel", btnCancel);
  txtPassword.PasswordChar = U'*';
  txtUser.Limit = txtPassword.Limit = 16;
  btnLogin.caption_key = "login.btn.ok";
  btnLogin.icon = "btnsave.ico";
  btnCancel.caption_key = "login.btn.cancel";
  btnCancel.icon = "btncancel.ico";
  Page("login.title").Row({{"login.lbl.user", txtUser}}).Row({{"login.lbl.password", txtPassword}});
  Buttons({{"login.btn.ok", btnLogin, kDefault}, {"login.btn.cancel", btnCancel, kCancel}});
  btnLogin.Clicked += [this] { Finish({txtUser.Text(), txtPassword.Text(), true}); };
  btnCancel.Clicked += [this] { Finish({}); };
  SetFocus(txtUser);
}

void LoginForm::Finish(LoginResult result) {
  program_.login = std::move(result);
  Close();
}

}  // namespace ostrinka
