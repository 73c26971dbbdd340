// Arithmetic of documents: VAT, discount, totals, due dates.
//
// An amount is rounded by printing it with a pattern and reading the text back, and only where an operation says so. Unit prices and line
// values are currency values; totals are 64-bit floats.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "base/currency.h"
#include "base/date.h"
#include "books/sale_lines.h"

namespace ostrinka {

// 1.22 for a rate of 22 percent; at least 1.
double VatMultiplier(float rate_percent);
// The multiplier of a record of stawki_vat; 1 when there is none such.
double VatMultiplierOf(Program& program, int32_t rate_record);
// The first record of stawki_vat with this symbol, both trimmed; 0 when none. `kAlsoDeleted` counts the deleted ones too: articles still
// have them.
enum class RateRows { kLive, kAlsoDeleted };
int32_t VatRateBySymbol(Program& program, std::string_view symbol, RateRows rows = RateRows::kLive);

// The discount held within 0 and 99: one of 100% cannot exist.
double HeldDiscount(double percent);
// What remains of a price after a discount in percent: 0.95 for 5.
double DiscountFactor(double percent);

// The pattern of prices in the dialogs: the setting Currency.
std::string EntryPricePattern(Program& program);
// The text of a price in that pattern; a text that is no number counts as 0.
std::string ShownPrice(Program& program, std::string_view text);
// Gross of a net text and net of a gross text, in single precision, in the price pattern.
std::string GrossOfNet(Program& program, std::string_view net, double multiplier);
std::string NetOfGross(Program& program, std::string_view gross, double multiplier);

// Rate of a record of waluty, złoty per unit; 0 when there is no such record.
float CurrencyRate(Program& program, int32_t currency_record);
// `from` / `to` in single precision, held within 0.00001 and 1000000; `to` counts as 1 when 0.
float RateRatio(float from, float to);

// The date of issue plus the days of the payment form; the date itself when there is no such form.
Date PaymentDueDate(Program& program, Date issued, int32_t payment_form);
// Share of the gross value that is paid at once: PROCENT of the payment form x 0.01; 0 when there is no such form.
float PaidAtOnceShare(Program& program, int32_t payment_form);
// The share of that many percent, as it is paid at once.
float ShareOfPercent(int32_t percent);

// The existing lines of a document in the order of their records; empty for an identity below 1.
std::vector<int32_t> LinesOf(Program& program, int32_t document_id);

struct DocumentTotals {
  double net = 0, gross = 0;
};
// Sums of the document's lines, each rounded with the amount pattern of `currency_record`.
DocumentTotals SumLines(Program& program, int32_t document_id, int32_t currency_record);

// Lines of a document summed by the VAT rate of their article, in the order of the table of rates. Nothing is rounded; VAT is gross - net.
struct VatTotal {
  int32_t rate_record = 0;
  std::string symbol;
  double net = 0, gross = 0, vat = 0;
};
std::vector<VatTotal> TotalsByVatRate(Program& program, int32_t document_id);

}  // namespace ostrinka
