#include "print/printed_document.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "base/text.h"
#include "books/books.h"
#include "books/dictionary_rows.h"
#include "books/sale_lines.h"
#include "documents/numbering.h"
#include "documents/rate_sums.h"

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
  const auto article = Read<Article>(program, record);
  line.found = article.has_value();
  if (!article) return;
  line.name = article->name;
  line.code = article->code;
  line.rate_record = article->rate;
  if (const auto unit = Read<Unit>(program, article->unit)) {
    line.unit = unit->symbol;
    line.unit_format = unit->format;
  }
  if (const auto rate = Read<VatRate>(program, article->rate)) line.rate = RateText(rate->symbol, rate->percent);
}

PrintedLine PrintLine(Program& program, const SalesLine& row, const std::string& amount_pattern) {
  PrintedLine line;
  line.quantity = row.quantity;
  line.net_price = row.net_price;
  line.gross_price = row.gross_price;
  line.discount = row.discount;
  line.net = RoundByPattern(row.net, amount_pattern);
  line.gross = RoundByPattern(row.gross, amount_pattern);
  ReadArticle(program, row.article, line);
  return line;
}

void ReadCurrency(Program& program, PrintedDocument& document) {
  if (const auto currency = Read<CurrencyRow>(program, document.currency)) {
    document.currency_symbol = currency->symbol;
    document.currency_code = currency->code;
    document.grammar = currency->grammar;
  }
  document.price_pattern = PricePattern(program, document.currency, true);
  document.amount_pattern = AmountPattern(program, document.currency, false);
  document.plain_price_pattern = PricePattern(program, document.currency, false);
  for (const std::string_view sign : {"€", "$", "£", "¥", "¤"}) {
    document.plain_price_pattern = Trim(ReplaceAll(document.plain_price_pattern, sign, ""));
  }
}

void ReadPaymentForm(Program& program, int32_t record, PrintedDocument& document) {
  const auto form = Read<PaymentForm>(program, record);
  if (!form) return;
  document.payment_form = form->name;
  document.payment_days = form->days;
  document.paid_at_once_percent = form->percent;
}

void ReadRow(Program& program, const SalesDocument& row, PrintedDocument& document) {
  document.currency = row.currency;
  document.rate_of_exchange = row.rate;
  document.issued = row.issued;
  document.sold_from = row.sold;
  document.sold_over_range = row.sold_over_range;
  document.sold_to = row.sold_to.days() == 0 ? row.sold : row.sold_to;
  document.due = row.due;
  document.customer = row.customer;
  document.payer = row.payer;
  document.issuer = LinkText(program, document_columns::kIssuer, document.record);
  document.receiver = row.receiver;
  document.notes = row.notes;
  document.net = row.net;
  document.gross = row.gross;
  ReadPaymentForm(program, row.payment_form, document);
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
  const auto amounts_of = [](const PrintedLine& line) { return RateAmounts<double>{line.rate_record, line.net, line.gross}; };
  std::vector<RateSum> sums;
  for (const auto& [rate, net, gross] : SumByRate<double>(lines, amounts_of)) {
    const auto first =
        std::find_if(lines.begin(), lines.end(), [rate = rate](const PrintedLine& line) { return line.rate_record == rate; });
    sums.push_back({rate, first->rate, net, gross});
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
  PrintedDocument document;
  document.record = record;
  document.options = doc_options(program, record);
  document.title = doc_print_title(program, record);
  document.number = doc_number_text(program, record);
  document.date_pattern = PrintDatePattern(program);
  const auto row = Read<SalesDocument>(program, record);
  if (row) ReadRow(program, *row, document);
  ReadCurrency(program, document);
  for (const StoredLine& line : LinesOfDocument(program, row ? row->identity : 0)) {
    document.lines.push_back(PrintLine(program, line.row, document.amount_pattern));
  }
  return document;
}

}  // namespace ostrinka
