#include "masterdata/company_boxes.h"

namespace ostrinka {

const std::array<CompanyBox, kCompanyBoxCount>& CompanyBoxList() {
  static constexpr std::array<CompanyBox, kCompanyBoxCount> kBoxes{{
      {&CompanyBoxes::txtMiejsceWystDok, "txtMiejsceWystDok", &CompanyRecord::M_WYST_DOK, company_columns::kPlaceOfIssue, 200},
      {&CompanyBoxes::txtNazwaFirmy, "txtNazwaFirmy", &CompanyRecord::S_NAZWA, company_columns::kName, 250},
      {&CompanyBoxes::txtUlica, "txtUlica", &CompanyRecord::S_ULICA, company_columns::kStreet, 250},
      {&CompanyBoxes::txtNrDomu, "txtNrDomu", &CompanyRecord::S_NRDOM, company_columns::kHouse, 250},
      {&CompanyBoxes::txtNrLokalu, "txtNrLokalu", &CompanyRecord::S_NRLOK, company_columns::kFlat, 250},
      {&CompanyBoxes::txtKodPocztowy, "txtKodPocztowy", &CompanyRecord::S_KPOCZ, company_columns::kPostalCode, 250},
      {&CompanyBoxes::txtMiejscowość, "txtMiejscowość", &CompanyRecord::S_MIAST, company_columns::kTown, 250},
      {&CompanyBoxes::txtKraj, "txtKraj", &CompanyRecord::S_KRAJS, company_columns::kCountry, 250},
      {&CompanyBoxes::txtTelefon, "txtTelefon", &CompanyRecord::K_TSTAC, company_columns::kPhone, 250},
      {&CompanyBoxes::txtFaks, "txtFaks", &CompanyRecord::K_TFAKS, company_columns::kFax, 250},
      {&CompanyBoxes::txtEMail, "txtEMail", &CompanyRecord::K_EMAIL, company_columns::kEmail, 250},
      {&CompanyBoxes::txtWWW, "txtWWW", &CompanyRecord::K_STWWW, company_columns::kWeb, 250},
      {&CompanyBoxes::txtKRS, "txtKRS", &CompanyRecord::F_NRKRS, company_columns::kRegister, 250},
      {&CompanyBoxes::TxtNIP, "TxtNIP", &CompanyRecord::F_NRNIP, company_columns::kTaxNumber, 250},
      {&CompanyBoxes::txtNIPEU, "txtNIPEU", &CompanyRecord::F_NIPEU, company_columns::kEuTaxNumber, 250},
      {&CompanyBoxes::txtRegon, "txtRegon", &CompanyRecord::F_REGON, company_columns::kStatistical, 250},
      {&CompanyBoxes::txtBank, "txtBank", &CompanyRecord::B_NAZWA, company_columns::kBank, 250},
      {&CompanyBoxes::txtSWIFT, "txtSWIFT", &CompanyRecord::B_SWIFT, company_columns::kSwift, 250},
      {&CompanyBoxes::txtKonto, "txtKonto", &CompanyRecord::B_KONTO, company_columns::kAccount, 250},
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
