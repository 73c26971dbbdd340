// A sales document as the layouts read it: the row of dok_sprzed with what its links lead to, and its lines.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/program.h"
#include "base/currency.h"
#include "base/date.h"

namespace ostrinka {

struct PrintedLine {
  bool found = false;  // the article's row could be read, deleted or not
  std::string name, code, unit, unit_format;
  int32_t rate_record = 0;
  std::string rate;  // as printed: "22%", "zw"
  Currency quantity, net_price, gross_price;
  int32_t discount = 0;       // percent
  double net = 0, gross = 0;  // values, rounded as the document's totals round them
  // Whether the two prices can belong together: of one sign, the gross price not below the net one, and neither missing alone.
  bool PricesAgree() const;
};

// Net, VAT and gross of a document's lines of one rate, from the rounded values, so that the printed figures add up.
struct RateSum {
  int32_t rate_record = 0;
  std::string rate;
  double net = 0, gross = 0;
  double vat() const { return gross - net; }
};

struct PrintedDocument {
  int32_t record = 0;
  std::string options, title, number;  // OPCJE, DRUK_TYT, the printed number
  int32_t currency = 0;
  std::string currency_symbol, currency_code, grammar;
  double rate_of_exchange = 1;
  Date issued, sold_from, sold_to, due;
  bool sold_over_range = false;
  int32_t customer = 0, payer = 0;
  std::string issuer, receiver, notes;
  std::string payment_form;
  int32_t payment_days = 0, paid_at_once_percent = 0;
  double net = 0, gross = 0;  // WARTOSC_NETTO, WARTOSC_BRUTTO
  std::vector<PrintedLine> lines;
  std::string price_pattern;        // with the currency's sign
  std::string plain_price_pattern;  // the same without letters and sign
  std::string amount_pattern;       // without sign; what values are rounded with
  std::string date_pattern;

  bool AnyDiscount() const;
  std::string DateText(Date date) const;
  // A line's value and a total, without the currency's sign.
  std::string Amount(double amount) const;
  // A unit price without the sign; with up to four decimals where the pattern would print another price than the one that was multiplied.
  std::string Price(Currency price) const;
  // A total with the currency's sign.
  std::string Money(double amount) const;
};

// The printed title and number: "Faktura VAT NR 17 / 2008".
std::string DocumentTitle(const PrintedDocument& document);

// One sum a rate, in the order of the table of rates.
std::vector<RateSum> SumsByRate(const std::vector<PrintedLine>& lines);

// The document in record `record`; positions of the tables are kept. Missing rows leave their texts empty.
PrintedDocument ReadPrintedDocument(Program& program, int32_t record);

}  // namespace ostrinka
