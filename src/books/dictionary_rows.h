// The rows of the company's dictionaries as plain values; see books/rows.h.
#pragma once

#include <string>

#include "books/columns.h"

namespace ostrinka {

struct VatRate {
  static constexpr int kTable = kStawkiVat;
  std::string name, symbol;
  float percent = 0;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace vat_rate_columns;
    visit(kName, self.name);
    visit(kSymbol, self.symbol);
    visit(kPercent, self.percent);
  }
};

struct CurrencyRow {
  static constexpr int kTable = kWaluty;
  std::string name, symbol, code, price_format, amount_format, grammar;  // grammar: the words of the amount in words
  float rate = 0;                                                        // złoty per unit

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace currency_columns;
    visit(kName, self.name);
    visit(kSymbol, self.symbol);
    visit(kCode, self.code);
    visit(kPriceFormat, self.price_format);
    visit(kAmountFormat, self.amount_format);
    visit(kRate, self.rate);
    visit(kGrammar, self.grammar);
  }
};

struct PaymentForm {
  static constexpr int kTable = kFormyPlatn;
  std::string name;
  int16_t days = 0, percent = 0;  // until the payment is due; of the gross value, paid at once
  bool transfer = false, retail = false;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace payment_form_columns;
    visit(kName, self.name);
    visit(kDays, self.days);
    visit(kPercent, self.percent);
    visit(kTransfer, self.transfer);
    visit(kRetail, self.retail);
  }
};

struct DocumentType {
  static constexpr int kTable = kDokumentKat;
  std::string name, print_title, number_format, options;
  int16_t set = 0;  // types of one set share their numbers

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace document_type_columns;
    visit(kName, self.name);
    visit(kPrintTitle, self.print_title);
    visit(kNumberFormat, self.number_format);
    visit(kSet, self.set);
    visit(kOptions, self.options);
  }
};

struct Unit {
  static constexpr int kTable = kJednMiary;
  std::string name, symbol, format;  // format: the pattern of a quantity

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace unit_columns;
    visit(kName, self.name);
    visit(kSymbol, self.symbol);
    visit(kFormat, self.format);
  }
};

struct Region {
  static constexpr int kTable = kRegiony;
  int16_t code = 0;
  std::string name;
  int32_t country = 0;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace region_columns;
    visit(kCode, self.code);
    visit(kName, self.name);
    visit(kCountry, self.country);
  }
};

struct Country {
  static constexpr int kTable = kPanstwa;
  std::string name, abbreviation;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace country_columns;
    visit(kName, self.name);
    visit(kShort, self.abbreviation);
  }
};

struct CustomerGroup {
  static constexpr int kTable = kGrupy;
  std::string name, description;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace group_columns;
    visit(kName, self.name);
    visit(kDescription, self.description);
  }
};

struct Employee {
  static constexpr int kTable = kPracownicy;
  std::string name;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    visit(employee_columns::kName, self.name);
  }
};

}  // namespace ostrinka
