#include "masterdata/company_form.h"

#include "base/text.h"
#include "company/tables.h"
#include "masterdata/company_data.h"
#include "masterdata/further_accounts_form.h"
#include "masterdata/individual_accounts_form.h"

namespace ostrinka {
frm_Admin_usr_::frm_Admin_usr_(Program& program) : Form("frm_Admin_usr_", "usr.title"), program_(program) {
  RegisterControls();
  LayOut();
  for (TextBoxControl* box : {&TxtNIP, &txtNIPEU, &txtKonto, &txtRegon}) box->Changed += [this] { CheckNumbers(); };
  btnSave.Clicked += [this] { save_(); };
  btnCancel.Clicked += [this] { Close(); };
  btnKdod_.Clicked += [this] { EditFurtherAccounts(); };
  btnKonta.Clicked += [this] { EditIndividualAccounts(); };
  btnLogo.Clicked += [this] { SelectLogo(); };
  btnClrLogo.Clicked += [this] { ClearLogo(); };
}

void frm_Admin_usr_::RegisterControls() {
  for (const CompanyBox& entry : CompanyBoxList()) Register(entry.name, this->*entry.box);
  Register("lblLogo", lblLogo);
  Register("btnKonta", btnKonta);
  Register("btnKdod_", btnKdod_);
  Register("btnLogo", btnLogo);
  Register("btnClrLogo", btnClrLogo);
  Register("btnSave", btnSave);
  Register("btnCancel", btnCancel);
  btnKonta.caption_key = "usr.btn.editacounts";
  btnKdod_.caption_key = "usr.btn.moreacounts";
  btnLogo.caption_key = "usr.btn.selectlogo";
  btnClrLogo.caption_key = "usr.btn.clearlogo";
  btnKdod_.icon = "btnaccounts.ico";
  btnLogo.icon = "btnlogo.ico";
  btnSave.icon = "btnsave.ico";
  btnCancel.icon = "btncancel.ico";
}

void frm_Admin_usr_::LayOut() {
  Page("STD", "usr.tab.std")
      .Row({{"usr.lbl.name", txtNazwaFirmy, 8}, {"usr.lbl.place", txtMiejsceWystDok, 4}})
      .Side(AddressAndNumbers())
      .Side({GroupLayout("usr.grp.bank", 7)
                 .Row({{"usr.lbl.bank", txtBank, 8}, {"usr.lbl.swift", txtSWIFT, 4}})
                 .Row({{"usr.lbl.account", txtKonto, 12}})
                 .Row({{"", btnKdod_, 6}, {"", btnKonta, 6}}),
             GroupLayout("usr.grp.contact", 5)
                 .Row({{"usr.lbl.phone", txtTelefon, 6}, {"usr.lbl.fax", txtFaks, 6}})
                 .Row({{"usr.lbl.email", txtEMail, 6}, {"usr.lbl.www", txtWWW, 6}})})
      .Row({{"usr.lbl.logo", lblLogo, 6}, {"", btnLogo, 3}, {"", btnClrLogo, 3}});
  btnSave.SetToolTip(program_.Text("usr.btn.ok") + " (Ctrl+Enter)");
  Buttons({{"usr.btn.ok", btnSave}, {"usr.btn.cancel", btnCancel}});
}

void frm_Admin_usr_::reload_() {
  CompanyLoad(program_);
  edited_ = program_.company;
  for (const CompanyBox& entry : CompanyBoxList()) {
    LimitToField(program_, entry.column, this->*entry.box, entry.length);
    (this->*entry.box).SetText(edited_.*entry.member);
  }
  CheckNumbers();
  ShowLogoState();
  SetFocus(txtNazwaFirmy);
  SetDirty(false);
}

void frm_Admin_usr_::save_() {
  for (const CompanyBox& entry : CompanyBoxList()) edited_.*entry.member = (this->*entry.box).Text();
  if (!CompanySave(program_, edited_)) {
    program_.Message("msg.info.error", MessageKind::kError);
    return;
  }
  SetDirty(false);
  Close();
}

bool frm_Admin_usr_::UserKey(int code, bool ctrl) {
  if (code != kKeyEnter || !ctrl) return false;
  if (focus()) focus()->UserLeave();
  btnSave.UserPress();
  return true;
}

void frm_Admin_usr_::CheckNumbers() {
  MarkNumbers(program_, txtKonto, TxtNIP, txtRegon);
}

void frm_Admin_usr_::EditFurtherAccounts() {
  frm_Admin_usr_kdod_ dialog(program_);
  CompanyRecord record = edited_;
  record.B_KONTO = txtKonto.Text();
  dialog.reload_(record);
  program_.platform.ui.ShowModal(dialog);
  if (!dialog.accepted()) return;
  edited_ = dialog.record();
  txtKonto.SetText(edited_.B_KONTO);
  CheckNumbers();
  SetDirty(true);
}

void frm_Admin_usr_::EditIndividualAccounts() {
  if (!TableIsOpen(program_, kKontrahenci)) {
    program_.Message("msg.info.dbnotopen", MessageKind::kWarning);
    return;
  }
  frm_Admin_usr_konta_ dialog(program_);
  dialog.reload_();
  program_.platform.ui.ShowModal(dialog);
}

void frm_Admin_usr_::SelectLogo() {
  const std::optional<std::string> file =
      program_.platform.ui.AskOpenFile({{"Grafika (*.bmp; *.jpg; *.gif)", {"*.bmp", "*.jpg", "*.gif"}}});
  if (!file || file->empty()) return;
  if (!CopyLogo(program_, *file)) program_.Message("msg.info.error", MessageKind::kError);
  ShowLogoState();
}

void frm_Admin_usr_::ClearLogo() {
  if (!DeleteLogo(program_)) program_.Message("msg.info.error", MessageKind::kError);
  ShowLogoState();
}

void frm_Admin_usr_::ShowLogoState() {
  lblLogo.SetText(program_.Text(LogoExists(program_) ? "usr.logo.yes" : "usr.logo.no"));
}

}  // namespace ostrinka
