#include "company/company_fields.h"

namespace ostrinka {

#define OSTRINKA_FIELD(key, name)                                       \
  {                                                                     \
    key, #name, [](CompanyRecord& r) -> std::string& { return r.name; } \
  }

const std::array<CompanyField, kCompanyFieldCount>& CompanyFields() {
  static const std::array<CompanyField, kCompanyFieldCount> fields{{
      OSTRINKA_FIELD("mwdok", M_WYST_DOK),
      OSTRINKA_FIELD("nazwa", S_NAZWA),
      OSTRINKA_FIELD("ulica", S_ULICA),
      OSTRINKA_FIELD("nrdomu", S_NRDOM),
      OSTRINKA_FIELD("nrlokalu", S_NRLOK),
      OSTRINKA_FIELD("kod", S_KPOCZ),
      OSTRINKA_FIELD("miasto", S_MIAST),
      OSTRINKA_FIELD("kraj", S_KRAJS),
      OSTRINKA_FIELD("telefon", K_TSTAC),
      OSTRINKA_FIELD("faks", K_TFAKS),
      OSTRINKA_FIELD("email", K_EMAIL),
      OSTRINKA_FIELD("stwww", K_STWWW),
      OSTRINKA_FIELD("krs", F_NRKRS),
      OSTRINKA_FIELD("nip", F_NRNIP),
      OSTRINKA_FIELD("nipue", F_NIPEU),
      OSTRINKA_FIELD("regon", F_REGON),
      OSTRINKA_FIELD("bank", B_NAZWA),
      OSTRINKA_FIELD("swift", B_SWIFT),
      OSTRINKA_FIELD("konto", B_KONTO),
      {"konto_d1", "B_KONTO_D1", [](CompanyRecord& r) -> std::string& { return r.B_KONTO_D[0]; }},
      {"konto_d2", "B_KONTO_D2", [](CompanyRecord& r) -> std::string& { return r.B_KONTO_D[1]; }},
      {"konto_d3", "B_KONTO_D3", [](CompanyRecord& r) -> std::string& { return r.B_KONTO_D[2]; }},
      {"konto_d4", "B_KONTO_D4", [](CompanyRecord& r) -> std::string& { return r.B_KONTO_D[3]; }},
      {"konto_opis_1", "B_KONTO_OPIS_1", [](CompanyRecord& r) -> std::string& { return r.B_KONTO_OPIS[0]; }},
      {"konto_opis_2", "B_KONTO_OPIS_2", [](CompanyRecord& r) -> std::string& { return r.B_KONTO_OPIS[1]; }},
      {"konto_opis_3", "B_KONTO_OPIS_3", [](CompanyRecord& r) -> std::string& { return r.B_KONTO_OPIS[2]; }},
      {"konto_opis_4", "B_KONTO_OPIS_4", [](CompanyRecord& r) -> std::string& { return r.B_KONTO_OPIS[3]; }},
  }};
  return fields;
}

}  // namespace ostrinka
