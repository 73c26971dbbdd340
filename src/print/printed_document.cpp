#include "print/printed_document.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "base/text.h"
#include "company/tables.h"
#include "documents/arithmetic.h"
#include "documents/numbering.h"

namespace ostrinka {
namespace {

constexpr std::string_view kPercentMask = "0\\%";

// A rate with the percent sign is its number in the mask; a fraction of a percent, which the mask would round, stays as its symbol tells
// it.
std::string RateText(const std::string& symbol, double percent) {
  if (!Contains(symbol, "%") || percent != std::floor(percent)) return symbol;
  return FormatNumber(percent, kPercentMask);
}

void ReadArticle(Program& program, int32_t record, PrintedLine& line) {
  ClassQDBASE& articles = Table(program, kTowaryUslugi);
  line.found = record > 0 && articles.RECORD_LOAD(record);
  if (!line.found) return;
  line.name = articles.Text("NAZWA");
  line.code = articles.Text("PKWIU");
  line.rate_record = articles.Int("STAWKA_VAT");
  ClassQDBASE& units = Table(program, kJednMiary);
  const int32_t unit = articles.Int("JEDNOSTKA_MIARY");
  if (unit > 0 && units.RECORD_LOAD(unit)) {
    line.unit = units.Text("SYMBOL");
    line.unit_format = units.Text("FORMAT");
  }
  ClassQDBASE& rates = Table(program, kStawkiVat);
  if (line.rate_record > 0 && rates.RECORD_LOAD(line.rate_record)) line.rate = RateText(rates.Text("SYMBOL"), rates.Real("WARTOSC"));
}

PrintedLine ReadLine(Program& program, int32_t record, const std::string& amount_pattern) {
  PrintedLine line;
  ClassQDBASE& sold = Table(program, kSprzedane);
  if (!sold.RECORD_LOAD(record)) return line;
  line.quantity = sold.Money("ILOSC");
  line.net_price = sold.Money("CENA_NETTO");
  line.gross_price = sold.Money("CENA_BRUTTO");
  line.discount = sold.Int("RABAT");
  line.net = RoundByPattern(sold.Money("WARTOSC_NETTO"), amount_pattern);
  line.gross = RoundByPattern(sold.Money("WARTOSC_BRUTTO"), amount_pattern);
  ReadArticle(program, sold.Int("NAZWA_T_U"), line);
  return line;
}

void ReadCurrency(Program& program, PrintedDocument& document) {
  ClassQDBASE& currencies = Table(program, kWaluty);
  if (document.currency > 0 && currencies.RECORD_LOAD(document.currency)) {
    document.currency_symbol = currencies.Text("SYMBOL");
    document.currency_code = currencies.Text("KODWAL");
    document.grammar = currencies.Text("ODM");
  }
  document.price_pattern = PricePattern(program, document.currency, true);
  document.amount_pattern = AmountPattern(program, document.currency, false);
  document.plain_price_pattern = PricePattern(program, document.currency, false);
  for (const std::string_view sign : {"€", "$", "£", "¥", "¤"}) {
    document.plain_price_pattern = Trim(ReplaceAll(document.plain_price_pattern, sign, ""));
  }
}

void ReadPaymentForm(Program& program, int32_t record, PrintedDocument& document) {
  ClassQDBASE& forms = Table(program, kFormyPlatn);
  if (record < 1 || !forms.RECORD_LOAD(record)) return;
  document.payment_form = forms.Text("NAZWA");
  document.payment_days = forms.Int("TERMIN");
  document.paid_at_once_percent = forms.Int("PROCENT");
}

int32_t ReadRow(Program& program, PrintedDocument& document) {
  ClassQDBASE& table = Table(program, kDokSprzed);
  if (document.record < 1 || !table.RECORD_LOAD(document.record)) return 0;
  document.currency = table.Int("WALUTA");
  document.rate_of_exchange = table.Real("KURS");
  document.issued = table.Day("DATA_WYSTAWIENIA");
  document.sold_from = table.Day("DATA_SPRZEDAZY");
  document.sold_over_range = table.Flag("DATA_SPRZED_CK");
  document.sold_to = table.Day("DATA_SPRZED_DO");
  if (document.sold_to.days() == 0) document.sold_to = document.sold_from;
  document.due = table.Day("TERMIN_ZAPLATY");
  document.customer = table.Int("KONTRAHENT");
  document.payer = table.Int("PLATNIK");
  document.issuer = table.Text("@WYSTAWIL");
  document.receiver = table.Text("ODEBRAL");
  document.notes = table.Text("UWAGI");
  document.net = table.Real("WARTOSC_NETTO");
  document.gross = table.Real("WARTOSC_BRUTTO");
  const int32_t identity = table.Int("ID_DOK");
  ReadPaymentForm(program, table.Int("FORMA_PLATNOSCI"), document);
  return identity;
}

}  // namespace

bool PrintedLine::PricesAgree() const {
  const int64_t net_raw = net_price.raw(), gross_raw = gross_price.raw();
  if (net_raw == 0 || gross_raw == 0) return net_raw == gross_raw;
  // A price counted from the other one is right to single precision.
  const double difference = std::fabs(static_cast<double>(gross_raw) - static_cast<double>(net_raw));
  if (difference <= 1e-6 * std::fabs(static_cast<double>(net_raw))) return true;
  return (net_raw < 0) == (gross_raw < 0) && (net_raw < 0 ? gross_raw <= net_raw : gross_raw >= net_raw);
}

bool PrintedDocument::AnyDiscount() const {
  return std::any_of(lines.begin(), lines.end(), [](const PrintedLine& line) { return line.discount != 0; });
}

std::string DocumentTitle(const PrintedDocument& document) {
  return Trim(Trim(document.title) + " " + Trim(document.number));
}

std::vector<RateSum> SumsByRate(const std::vector<PrintedLine>& lines) {
  std::vector<RateSum> sums;
  for (const PrintedLine& line : lines) {
    auto at = std::find_if(sums.begin(), sums.end(), [&](const RateSum& sum) { return sum.rate_record >= line.rate_record; });
    if (at == sums.end() || at->rate_record != line.rate_record) at = sums.insert(at, {line.rate_record, line.rate, 0, 0});
    at->net += line.net;
    at->gross += line.gross;
  }
  return sums;
}

std::string PrintedDocument::DateText(Date date) const {
  return FormatDate(date, date_pattern);
}
std::string PrintedDocument::Amount(double amount) const {
  return FormatNumber(amount, amount_pattern);
}
std::string PrintedDocument::Money(double amount) const {
  return FormatNumber(amount, price_pattern);
}

std::string PrintedDocument::Price(Currency price) const {
  const std::string text = FormatNumber(price, plain_price_pattern);
  return ReadCurrency(text) == price ? text : FormatNumber(price, "0.00##");
}

PrintedDocument ReadPrintedDocument(Program& program, int32_t record) {
  const KeepPositions keep(program, {kDokSprzed, kSprzedane, kTowaryUslugi, kJednMiary, kStawkiVat, kWaluty, kFormyPlatn});
  PrintedDocument document;
  document.record = record;
  document.options = doc_options(program, record);
  document.title = doc_print_title(program, record);
  document.number = doc_number_text(program, record);
  document.date_pattern = PrintDatePattern(program);
  const int32_t identity = ReadRow(program, document);
  ReadCurrency(program, document);
  for (const int32_t line : LinesOf(program, identity)) document.lines.push_back(ReadLine(program, line, document.amount_pattern));
  return document;
}

}  // namespace ostrinka
