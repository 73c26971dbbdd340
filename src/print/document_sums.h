// What a document comes to, as data: sums of its lines and what is to be paid. Filled once from the document, set by any layout.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "print/print_options.h"
#include "print/printed_document.h"

namespace ostrinka {

struct LineSums {
  RateSum total;
  std::vector<RateSum> by_rate;  // in the order of the table of rates
};
LineSums SumLines(const std::vector<PrintedLine>& lines);

// Amounts in the document's currency, rounded as its totals are.
struct PaymentTerms {
  double to_pay = 0;            // the document's gross value
  std::string form;             // as the table of forms names it
  int32_t percent_at_once = 0;  // of the value, paid when the document is handed over
  double at_once = 0;
  double by_transfer = 0;  // the value less the share paid at once; the whole where all is paid at once, so that the sum paid is told
  bool has_due_date = true;
  Date due;
  std::string words;      // `to_pay` in words
  std::string rate_note;  // on a document in another currency; "" for none
};
PaymentTerms PaymentOf(Program& program, const PrintOptions& options, const PrintedDocument& document);

}  // namespace ostrinka
