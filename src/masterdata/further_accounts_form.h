// The dialog of further bank accounts: edits a copy of the company record and hands it back.
#pragma once

#include <array>

#include "forms/form_helpers.h"

namespace ostrinka {

class frm_Admin_usr_kdod_ : public Form {
 public:
  TextBoxControl txtKonto, txtKonto_d1_, txtKonto_d2_, txtKonto_d3_, txtKonto_d4_, txtKontoOpis1_, txtKontoOpis2_, txtKontoOpis3_,
      txtKontoOpis4_;
  ComboControl txtWybKontoOp_;
  ButtonControl btnSave, btnCancel;

  explicit frm_Admin_usr_kdod_(Program& program);

  void reload_(const CompanyRecord& record);
  bool AsksBeforeClosing() const override { return true; }
  // Whether the dialog was left by its save button, and what it then holds.
  bool accepted() const { return accepted_; }
  const CompanyRecord& record() const { return record_; }

 private:
  void Save();

  Program& program_;
  const std::array<TextBoxControl*, 4> accounts_, texts_;
  CompanyRecord record_;
  bool accepted_ = false;
};

}  // namespace ostrinka
