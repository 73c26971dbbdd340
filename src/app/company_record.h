// The company's own details as the documents print them: a copy of the settings of section "user".
#pragma once

#include <array>
#include <string>

namespace ostrinka {

struct CompanyRecord {
  std::string M_WYST_DOK, S_NAZWA, S_ULICA, S_NRDOM, S_NRLOK, S_KPOCZ, S_MIAST, S_KRAJS, K_TSTAC, K_TFAKS, K_EMAIL, K_STWWW, F_NRKRS,
      F_NRNIP, F_NIPEU, F_REGON, B_NAZWA, B_SWIFT, B_KONTO;
  std::array<std::string, 4> B_KONTO_D, B_KONTO_OPIS;
  int chosen_account_text = 0;  // 1 to 4: which further account's description is the chosen one; 0 none
};

}  // namespace ostrinka
