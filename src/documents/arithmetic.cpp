#include "documents/arithmetic.h"

#include <algorithm>

#include "base/format.h"
#include "base/text.h"
#include "books/books.h"
#include "books/dictionary_rows.h"
#include "documents/rate_sums.h"

namespace ostrinka {

double VatMultiplier(float rate_percent) {
  const double multiplier = static_cast<double>(rate_percent) * 0.01 + 1.0;
  return multiplier >= 1 ? multiplier : 1;
}

double VatMultiplierOf(Program& program, int32_t rate_record) {
  return VatMultiplier(ReadColumn(program, vat_rate_columns::kPercent, rate_record));
}

int32_t VatRateBySymbol(Program& program, std::string_view symbol, RateRows rows) {
  const std::string wanted = Trim(symbol);
  const int32_t count = Table(program, kStawkiVat).RECORD_COUNT();
  for (int32_t record = 1; record <= count; ++record) {
    if (rows == RateRows::kLive && !IsLive(program, kStawkiVat, record)) continue;
    const auto rate = Read<VatRate>(program, record);
    if (rate && Trim(rate->symbol) == wanted) return record;
  }
  return 0;
}

double HeldDiscount(double percent) {
  if (!(percent >= 0)) return 0;
  return std::min(percent, 99.0);
}

double DiscountFactor(double percent) {
  const double factor = (100 - HeldDiscount(percent)) * 0.01;
  return factor < 0 || factor > 1 ? 1 : factor;
}

std::string EntryPricePattern(Program& program) {
  return PricePattern(program, 0, true);
}

std::string ShownPrice(Program& program, std::string_view text) {
  return FormatNumber(NumberOr0(text), EntryPricePattern(program), program.locale);
}

namespace {

// A price as the dialogs compute it: text and multiplier read at 32 bits. kept: a price of many digits loses some, as in the lines that
// companies have already.
float SinglePrice(std::string_view text) {
  return static_cast<float>(NumberOr0(text));
}

}  // namespace

std::string GrossOfNet(Program& program, std::string_view net, double multiplier) {
  const float gross = SinglePrice(net) * static_cast<float>(multiplier);
  return FormatNumber(gross, EntryPricePattern(program), program.locale);
}

std::string NetOfGross(Program& program, std::string_view gross, double multiplier) {
  const float net = SinglePrice(gross) / static_cast<float>(multiplier);
  return FormatNumber(net, EntryPricePattern(program), program.locale);
}

float CurrencyRate(Program& program, int32_t currency_record) {
  return ReadColumn(program, currency_columns::kRate, currency_record);
}

float RateRatio(float from, float to) {
  const float ratio = from / (to == 0 ? 1.0F : to);
  if (!(ratio >= 0.00001F)) return 0.00001F;
  return std::min(ratio, 1000000.0F);
}

Date PaymentDueDate(Program& program, Date issued, int32_t payment_form) {
  return issued.PlusDays(ReadColumn(program, payment_form_columns::kDays, payment_form));
}

float PaidAtOnceShare(Program& program, int32_t payment_form) {
  return ShareOfPercent(ReadColumn(program, payment_form_columns::kPercent, payment_form));
}

float ShareOfPercent(int32_t percent) {
  return static_cast<float>(percent * 0.01);
}

std::vector<int32_t> LinesOf(Program& program, int32_t document_id) {
  std::vector<int32_t> records;
  for (const StoredLine& line : LinesOfDocument(program, document_id)) records.push_back(line.record);
  return records;
}

DocumentTotals SumLines(Program& program, int32_t document_id, int32_t currency_record) {
  DocumentTotals totals;
  const std::string pattern = AmountPattern(program, currency_record, false);
  for (const StoredLine& line : LinesOfDocument(program, document_id)) {
    totals.net += RoundByPattern(line.row.net, pattern);
    totals.gross += RoundByPattern(line.row.gross, pattern);
  }
  return totals;
}

std::vector<VatTotal> TotalsByVatRate(Program& program, int32_t document_id) {
  const auto amounts_of = [&](const StoredLine& line) {
    return RateAmounts<Currency>{ReadColumn(program, article_columns::kRate, line.row.article), line.row.net, line.row.gross};
  };
  std::vector<VatTotal> totals;
  for (const auto& [rate, net, gross] : SumByRate<Currency>(LinesOfDocument(program, document_id), amounts_of)) {
    VatTotal total{rate, Trim(ReadColumn(program, vat_rate_columns::kSymbol, rate)), net.ToDouble(), gross.ToDouble(), 0};
    if (const auto vat = Subtract(gross, net)) total.vat = vat->ToDouble();
    totals.push_back(std::move(total));
  }
  return totals;
}

}  // namespace ostrinka
