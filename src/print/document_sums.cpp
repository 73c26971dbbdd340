#include "print/document_sums.h"

#include "base/format.h"
#include "documents/arithmetic.h"
#include "print/amount_in_words.h"

namespace ostrinka {
namespace {

// The note on the average rate, on a document in another currency.
std::string RateNote(Program& program, const PrintOptions& options, const PrintedDocument& document) {
  if (document.rate_of_exchange <= 0 || document.rate_of_exchange == 1 || !options.rate_note) return "";
  const std::string name = document.currency_code.empty() ? document.currency_symbol : document.currency_code;
  return program.Text("sdoc.info.nbp") + " 1 " + name + " = " + FormatNumber(document.rate_of_exchange, "0.0000") + " PLN";
}

}  // namespace

LineSums SumLines(const std::vector<PrintedLine>& lines) {
  LineSums sums;
  sums.by_rate = SumsByRate(lines);
  for (const RateSum& sum : sums.by_rate) {
    sums.total.net += sum.net;
    sums.total.gross += sum.gross;
  }
  return sums;
}

PaymentTerms PaymentOf(Program& program, const PrintOptions& options, const PrintedDocument& document) {
  PaymentTerms terms;
  terms.to_pay = document.gross;
  terms.form = document.payment_form;
  terms.percent_at_once = document.paid_at_once_percent;
  terms.at_once = RoundByPattern(document.gross * static_cast<double>(ShareOfPercent(terms.percent_at_once)), document.amount_pattern);
  terms.has_due_date = terms.percent_at_once < 100;
  terms.by_transfer = terms.has_due_date ? document.gross - terms.at_once : document.gross;
  terms.due = document.due;
  terms.words = TotalInWords(program, document.gross, document.grammar);
  terms.rate_note = RateNote(program, options, document);
  return terms;
}

}  // namespace ostrinka
