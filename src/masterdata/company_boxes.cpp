#include "masterdata/company_boxes.h"

namespace ostrinka {

const std::array<CompanyBox, kCompanyBoxCount>& CompanyBoxList() {
  static constexpr std::array<CompanyBox, kCompanyBoxCount> kBoxes{{
      {&CompanyBoxes::txtMiejsceWystDok, "txtMiejsceWystDok", &CompanyRecord::M_WYST_DOK, "M_WYST_DOK", 200},
      {&CompanyBoxes::txtNazwaFirmy, "txtNazwaFirmy", &CompanyRecord::S_NAZWA, "S_NAZWA", 250},
      {&CompanyBoxes::txtUlica, "txtUlica", &CompanyRecord::S_ULICA, "S_ULICA", 250},
      {&CompanyBoxes::txtNrDomu, "txtNrDomu", &CompanyRecord::S_NRDOM, "S_NRDOM", 250},
      {&CompanyBoxes::txtNrLokalu, "txtNrLokalu", &CompanyRecord::S_NRLOK, "S_NRLOK", 250},
      {&CompanyBoxes::txtKodPocztowy, "txtKodPocztowy", &CompanyRecord::S_KPOCZ, "S_KPOCZ", 250},
      {&CompanyBoxes::txtMiejscowość, "txtMiejscowość", &CompanyRecord::S_MIAST, "S_MIAST", 250},
      {&CompanyBoxes::txtKraj, "txtKraj", &CompanyRecord::S_KRAJS, "S_KRAJS", 250},
      {&CompanyBoxes::txtTelefon, "txtTelefon", &CompanyRecord::K_TSTAC, "K_TSTAC", 250},
      {&CompanyBoxes::txtFaks, "txtFaks", &CompanyRecord::K_TFAKS, "K_TFAKS", 250},
      {&CompanyBoxes::txtEMail, "txtEMail", &CompanyRecord::K_EMAIL, "K_EMAIL", 250},
      {&CompanyBoxes::txtWWW, "txtWWW", &CompanyRecord::K_STWWW, "K_STWWW", 250},
      {&CompanyBoxes::txtKRS, "txtKRS", &CompanyRecord::F_NRKRS, "F_NRKRS", 250},
      {&CompanyBoxes::TxtNIP, "TxtNIP", &CompanyRecord::F_NRNIP, "F_NRNIP", 250},
      {&CompanyBoxes::txtNIPEU, "txtNIPEU", &CompanyRecord::F_NIPEU, "F_NIPEU", 250},
      {&CompanyBoxes::txtRegon, "txtRegon", &CompanyRecord::F_REGON, "F_REGON", 250},
      {&CompanyBoxes::txtBank, "txtBank", &CompanyRecord::B_NAZWA, "B_NAZWA", 250},
      {&CompanyBoxes::txtSWIFT, "txtSWIFT", &CompanyRecord::B_SWIFT, "B_SWIFT", 250},
      {&CompanyBoxes::txtKonto, "txtKonto", &CompanyRecord::B_KONTO, "B_KONTO", 250},
  }};
  return kBoxes;
}

std::vector<GroupLayout> CompanyBoxes::AddressAndNumbers() {
  return {GroupLayout("usr.grp.address", 7)
              .Row({{"usr.lbl.street", txtUlica, 6}, {"usr.lbl.house", txtNrDomu, 3}, {"usr.lbl.local", txtNrLokalu, 3}})
              .Row({{"usr.lbl.postcode", txtKodPocztowy, 3}, {"usr.lbl.city", txtMiejscowość, 5}, {"usr.lbl.country", txtKraj, 4}}),
          GroupLayout("usr.grp.numbers", 5)
              .Row({{"usr.lbl.nip", TxtNIP, 6}, {"usr.lbl.nipeu", txtNIPEU, 6}})
              .Row({{"usr.lbl.regon", txtRegon, 6}, {"usr.lbl.krs", txtKRS, 6}})};
}

}  // namespace ostrinka
