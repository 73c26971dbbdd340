// The company of the tests with the lines of its documents.
#pragma once

#include "base/format.h"
#include "documents/arithmetic.h"
#include "documents/lines.h"
#include "documents/numbering.h"
#include "support/company.h"

namespace ostrinka {

class Trade : public CompanyTest {
 protected:
  int32_t AddStoredLine(int32_t id, int32_t article, const std::string& quantity, const std::string& net, const std::string& gross,
                        int16_t discount = 0) {
    const int32_t line = Add(kSprzedane, {{"ID_DOK", id},
                                          {"NAZWA_T_U", article},
                                          {"ILOSC", *ReadCurrency(quantity)},
                                          {"CENA_NETTO", *ReadCurrency(net)},
                                          {"CENA_BRUTTO", *ReadCurrency(gross)},
                                          {"RABAT", discount}});
    EXPECT_EQ(RecalculateLine(program, line), LineOutcome::kDone);
    return line;
  }
  LineEntry Entry(int32_t article, const std::string& quantity, const std::string& net, const std::string& gross,
                  const std::string& discount = "0") {
    return {article, *ReadCurrency(quantity), *ReadCurrency(net), *ReadCurrency(gross), *ReadCurrency(discount)};
  }
};

}  // namespace ostrinka
