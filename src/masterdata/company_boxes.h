// The fields of the company's details, as the company dialog and the first-run wizard have them.
#pragma once

#include <array>
#include <vector>

#include "app/company_record.h"
#include "books/columns.h"
#include "controls/form.h"

namespace ostrinka {

struct CompanyBoxes {
  TextBoxControl txtMiejsceWystDok, txtNazwaFirmy, txtUlica, txtNrDomu, txtNrLokalu, txtKodPocztowy, txtMiejscowość, txtKraj, txtTelefon,
      txtFaks, txtEMail, txtWWW, txtKRS, TxtNIP, txtNIPEU, txtRegon, txtBank, txtSWIFT, txtKonto;

  // Address and registered numbers side by side, as a layout shows them.
  std::vector<GroupLayout> AddressAndNumbers();
};

// One field: its control, its text in the company record, its field of the table firma.
struct CompanyBox {
  TextBoxControl CompanyBoxes::*box;
  const char* name;
  std::string CompanyRecord::*member;
  Column<std::string> column;
  size_t length;  // of the field, for as long as no company is open
};
inline constexpr size_t kCompanyBoxCount = 19;
const std::array<CompanyBox, kCompanyBoxCount>& CompanyBoxList();  // in the order of saving

}  // namespace ostrinka
