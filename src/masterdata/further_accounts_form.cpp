#include "masterdata/further_accounts_form.h"

#include "base/text.h"
#include "company/tables.h"

namespace ostrinka {
namespace {

constexpr size_t kAccountLength = 250, kTextLength = 500;  // where no company is open

}  // namespace

frm_Admin_usr_kdod_::frm_Admin_usr_kdod_(Program& program)
    : Form("frm_Admin_usr_kdod_", "usr.aex.title"),
      program_(program),
      accounts_{&txtKonto_d1_, &txtKonto_d2_, &txtKonto_d3_, &txtKonto_d4_},
      texts_{&txtKontoOpis1_, &txtKontoOpis2_, &txtKontoOpis3_, &txtKontoOpis4_} {
  Register("txtKonto", txtKonto);
  for (size_t i = 0; i < accounts_.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    Register("txtKonto_d" + number + "_", *accounts_[i]);
    Register("txtKontoOpis" + number + "_", *texts_[i]);
  }
  Register("txtWybKontoOp_", txtWybKontoOp_);
  Register("btnSave", btnSave);
  Register("btnCancel", btnCancel);
  btnSave.icon = "btnsave.ico";
  btnCancel.icon = "btncancel.ico";
  Page("STD", "usr.aex.tab.std")
      .Row({{"usr.aex.lbl.account", txtKonto, 12}})
      .Row({{"usr.aex.lbl.account1", txtKonto_d1_, 12}})
      .Row({{"usr.aex.lbl.account2", txtKonto_d2_, 12}})
      .Row({{"usr.aex.lbl.account3", txtKonto_d3_, 12}})
      .Row({{"usr.aex.lbl.account4", txtKonto_d4_, 12}});
  Page("EXC", "usr.aex.tab.exc")
      .Row({{"usr.aex.lbl.desc1", txtKontoOpis1_, 12}})
      .Row({{"usr.aex.lbl.desc2", txtKontoOpis2_, 12}})
      .Row({{"usr.aex.lbl.desc3", txtKontoOpis3_, 12}})
      .Row({{"usr.aex.lbl.desc4", txtKontoOpis4_, 12}})
      .Row({{"usr.aex.lbl.spec", txtWybKontoOp_, 12}});
  Buttons({{"usr.aex.btn.ok", btnSave, kDefault}, {"usr.aex.btn.cancel", btnCancel, kCancel}});
  btnSave.Clicked += [this] { Save(); };
  btnCancel.Clicked += [this] { Close(); };
}

void frm_Admin_usr_kdod_::reload_(const CompanyRecord& record) {
  record_ = record;
  accepted_ = false;
  LimitToField(program_, company_columns::kAccount, txtKonto, kAccountLength);
  txtKonto.SetText(record.B_KONTO);
  txtWybKontoOp_.Clear();
  for (size_t i = 0; i < accounts_.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    LimitToField(program_, company_columns::kFurtherAccounts[i], *accounts_[i], kAccountLength);
    LimitToField(program_, company_columns::kAccountTexts[i], *texts_[i], kTextLength);
    accounts_[i]->SetText(record.B_KONTO_D[i]);
    texts_[i]->SetText(record.B_KONTO_OPIS[i]);
    txtWybKontoOp_.AddItem(program_.Text("usr.aex.acountspec." + number), static_cast<int32_t>(i + 1));
  }
  txtWybKontoOp_.SelectValue(record.chosen_account_text);
  ShowPage("STD");
  SetFocus(txtKonto);
  SetDirty(false);
}

void frm_Admin_usr_kdod_::Save() {
  record_.B_KONTO = Trim(txtKonto.Text());
  for (size_t i = 0; i < accounts_.size(); ++i) {
    record_.B_KONTO_D[i] = Trim(accounts_[i]->Text());
    record_.B_KONTO_OPIS[i] = Trim(texts_[i]->Text());
  }
  record_.chosen_account_text = txtWybKontoOp_.Value();
  accepted_ = true;
  SetDirty(false);
  Close();
}

}  // namespace ostrinka
