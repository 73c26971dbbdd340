// The login dialog: asks who opens the company when the settings say so.
#pragma once

#include "app/program.h"
#include "controls/form.h"

namespace ostrinka {

class LoginForm : public Form {
 public:
  TextBoxControl txtUser, txtPassword;
  ButtonControl btnLogin, btnCancel;

  // What the person typed, or two empty texts, goes to Program::login when the form closes by a button.
  explicit LoginForm(Program& program);

 private:
  void Finish(LoginResult result);

  Program& program_;
};

}  // namespace ostrinka
