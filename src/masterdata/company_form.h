// The dialog of company data: the details that documents print, and the logo.
#pragma once

#include "forms/form_helpers.h"
#include "masterdata/company_boxes.h"

namespace ostrinka {

class frm_Admin_usr_ : public Form, public CompanyBoxes {
 public:
  LabelControl lblLogo;
  ButtonControl btnSave, btnCancel, btnKonta, btnKdod_, btnLogo, btnClrLogo;

  explicit frm_Admin_usr_(Program& program);

  void reload_();  // reads the company record and fills the fields from it
  void save_();    // writes them to the settings and the open company; the dialog stays open when that fails

  bool UserKey(int code, bool ctrl) override;
  bool AsksBeforeClosing() const override { return true; }

 private:
  void RegisterControls();
  void LayOut();
  void CheckNumbers();
  void EditFurtherAccounts();
  void EditIndividualAccounts();
  void SelectLogo();
  void ClearLogo();
  void ShowLogoState();

  Program& program_;
  CompanyRecord edited_;  // holds what has no field here: the further accounts
};

}  // namespace ostrinka
