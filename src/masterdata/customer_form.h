// The customer editor: one record of kontrahenci, with warnings for doubtful numbers and the postal look-up.
#pragma once

#include "forms/record_editor.h"

namespace ostrinka {

class frm_Kontrahenci_ : public RecordEditor {
 public:
  TextBoxControl txtSymbol, txtUlica, txtNrDomu, txtNrLokalu, txtKodPocztowy, txtMiejscowość, txtBank, txtSWIFT, txtNrKonta, txtTelefon,
      txtTelKom, txtFaks, TxtNIP, txtNIPEU, txtKRS, txtRegon, txtEMail, txtUwagi;
  ComboControl txtGrupa, txtPaństwo, txtWojewództwo, txtFormaPłat;
  ButtonControl btnFindCity, btnMAILgo;
  int LastCityField = 0;  // 1 the postal code was touched last, 2 the town; 0 neither

  explicit frm_Kontrahenci_(Program& program);
  ~frm_Kontrahenci_() override { Unbind(); }

  // Fills the form for a new record, or from record `record`.
  void reload_(EditMode mode, int32_t record = 0);
  // A new record filled from `record`.
  void clone_(int32_t record);
  ColumnValues save_() override;

 private:
  void RegisterControls();
  void LayOut();
  void Connect();
  void Fill(EditMode mode, int32_t record);
  void FillLists();
  void ClearFields();
  void StartLists();
  void ShowRecord(int32_t record);
  void CheckNumbers();
  void FindCity();
  void ShowRegionOf(const std::string& postal_code);
  void RegionChosen();
};

}  // namespace ostrinka
