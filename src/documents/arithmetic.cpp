#include "documents/arithmetic.h"

#include <algorithm>
#include <map>

#include "base/format.h"
#include "base/text.h"
#include "company/tables.h"
#include "documents/private_table.h"

namespace ostrinka {

double VatMultiplier(float rate_percent) {
  const double multiplier = static_cast<double>(rate_percent) * 0.01 + 1.0;
  return multiplier >= 1 ? multiplier : 1;
}

double VatMultiplierOf(Program& program, int32_t rate_record) {
  ClassQDBASE& rates = Table(program, kStawkiVat);
  if (rate_record < 1 || !rates.RECORD_LOAD(rate_record)) return 1;
  return VatMultiplier(FloatOr0(rates.FIELD("WARTOSC")));
}

int32_t VatRateBySymbol(Program& program, std::string_view symbol) {
  ClassQDBASE& rates = Table(program, kStawkiVat);
  const std::string wanted = Trim(symbol);
  const int32_t count = rates.RECORD_COUNT();
  for (int32_t record = 1; record <= count; ++record) {
    if (rates.RECORD_EXIST(record) && rates.RECORD_LOAD(record) && Trim(rates.Text("SYMBOL")) == wanted) return record;
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

// A price as the dialogs compute it: text and multiplier read at 32 bits.
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
  ClassQDBASE& currencies = Table(program, kWaluty);
  if (currency_record < 1 || !currencies.RECORD_LOAD(currency_record)) return 0;
  return FloatOr0(currencies.FIELD("KURS"));
}

float RateRatio(float from, float to) {
  const float ratio = from / (to == 0 ? 1.0F : to);
  if (!(ratio >= 0.00001F)) return 0.00001F;
  return std::min(ratio, 1000000.0F);
}

Date PaymentDueDate(Program& program, Date issued, int32_t payment_form) {
  ClassQDBASE& forms = Table(program, kFormyPlatn);
  if (payment_form < 1 || !forms.RECORD_LOAD(payment_form)) return issued;
  return issued.PlusDays(forms.Int("TERMIN"));
}

float PaidAtOnceShare(Program& program, int32_t payment_form) {
  ClassQDBASE& forms = Table(program, kFormyPlatn);
  if (payment_form < 1 || !forms.RECORD_LOAD(payment_form)) return 0;
  return static_cast<float>(forms.Int("PROCENT") * 0.01);
}

std::vector<int32_t> LinesOf(Program& program, int32_t document_id) {
  if (document_id < 1) return {};
  PrivateTable lines(program, kSprzedane);
  if (!lines.IsOpen()) return {};
  lines.table().SELECTION("!", "ID_DOK=" + std::to_string(document_id), "", ordAsc);
  return lines.table().selection();
}

DocumentTotals SumLines(Program& program, int32_t document_id, int32_t currency_record) {
  DocumentTotals totals;
  const std::string pattern = AmountPattern(program, currency_record, false);
  KeepPositions keep(program, {kSprzedane});
  ClassQDBASE& lines = Table(program, kSprzedane);
  for (const int32_t line : LinesOf(program, document_id)) {
    if (!lines.RECORD_LOAD(line)) continue;
    totals.net += RoundByPattern(lines.Money("WARTOSC_NETTO"), pattern);
    totals.gross += RoundByPattern(lines.Money("WARTOSC_BRUTTO"), pattern);
  }
  return totals;
}

std::vector<VatTotal> TotalsByVatRate(Program& program, int32_t document_id) {
  struct Sum {
    Currency net, gross;
  };
  std::map<int32_t, Sum> sums;
  KeepPositions keep(program, {kSprzedane, kTowaryUslugi, kStawkiVat});
  ClassQDBASE& lines = Table(program, kSprzedane);
  ClassQDBASE& articles = Table(program, kTowaryUslugi);
  for (const int32_t line : LinesOf(program, document_id)) {
    if (!lines.RECORD_LOAD(line)) continue;
    const int32_t article = lines.Int(".NAZWA_T_U");
    const int32_t rate = article >= 1 && articles.RECORD_LOAD(article) ? articles.Int(".STAWKA_VAT") : 0;
    Sum& sum = sums[rate];
    sum.net = Add(sum.net, lines.Money("WARTOSC_NETTO")).value_or(sum.net);
    sum.gross = Add(sum.gross, lines.Money("WARTOSC_BRUTTO")).value_or(sum.gross);
  }
  std::vector<VatTotal> totals;
  ClassQDBASE& rates = Table(program, kStawkiVat);
  for (const auto& [rate, sum] : sums) {
    VatTotal total{rate, {}, sum.net.ToDouble(), sum.gross.ToDouble(), 0};
    if (const auto vat = Subtract(sum.gross, sum.net)) total.vat = vat->ToDouble();
    if (rate >= 1 && rates.RECORD_LOAD(rate)) total.symbol = Trim(rates.Text("SYMBOL"));
    totals.push_back(std::move(total));
  }
  return totals;
}

}  // namespace ostrinka
