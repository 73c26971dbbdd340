// The rows of the company's tables as plain values.
//
// Each row names its table and ties its members to columns in Each, which reading, adding and storing walk. What a row leaves out stays in
// the table as it is. A member that is a link holds the number of a record of another table, also of a deleted one, and 0 for none.
#pragma once

#include <array>
#include <string>

#include "books/columns.h"

namespace ostrinka {

struct SalesDocument {
  static constexpr int kTable = kDokSprzed;
  int32_t type = 0, number = 0, identity = 0;
  int32_t corrects = 0, correction = 0;  // the document that this one corrects, and the one that corrects it: records of this table
  Date issued, sold, sold_to, due, paid_on;
  bool sold_over_range = false, paid = false, fiscalised = false;
  int32_t customer = 0, payer = 0, issuer = 0, payment_form = 0, currency = 0;
  std::string receiver, notes, address;
  double net = 0, gross = 0;
  float rate = 0;  // złoty per unit of the currency
  int16_t address_kind = 0;
  bool task_hidden = false, subscription_ends = false;
  Date subscription_end;
  int32_t reminder_days = 0;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace document_columns;
    visit(kType, self.type);
    visit(kNumber, self.number);
    visit(kIdentity, self.identity);
    visit(kCorrects, self.corrects);
    visit(kCorrection, self.correction);
    visit(kIssued, self.issued);
    visit(kSold, self.sold);
    visit(kSoldOverRange, self.sold_over_range);
    visit(kSoldTo, self.sold_to);
    visit(kDue, self.due);
    visit(kPayer, self.payer);
    visit(kCustomer, self.customer);
    visit(kIssuer, self.issuer);
    visit(kReceiver, self.receiver);
    visit(kPaymentForm, self.payment_form);
    visit(kNet, self.net);
    visit(kGross, self.gross);
    visit(kCurrencyLink, self.currency);
    visit(kRate, self.rate);
    visit(kPaid, self.paid);
    visit(kPaidOn, self.paid_on);
    visit(kFiscalised, self.fiscalised);
    visit(kNotes, self.notes);
    visit(kAddressKind, self.address_kind);
    visit(kAddress, self.address);
    visit(kTaskHidden, self.task_hidden);
    visit(kSubscriptionEnds, self.subscription_ends);
    visit(kSubscriptionEnd, self.subscription_end);
    visit(kReminderDays, self.reminder_days);
  }
};

struct SalesLine {
  static constexpr int kTable = kSprzedane;
  int32_t document = 0;  // identity of its document
  int32_t article = 0;
  Currency quantity, net_price, gross_price, net, gross;
  int16_t discount = 0;  // percent
  std::string origin;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace line_columns;
    visit(kDocument, self.document);
    visit(kArticle, self.article);
    visit(kQuantity, self.quantity);
    visit(kNetPrice, self.net_price);
    visit(kGrossPrice, self.gross_price);
    visit(kNet, self.net);
    visit(kGross, self.gross);
    visit(kDiscount, self.discount);
    visit(kOrigin, self.origin);
  }
};

struct Purchase {
  static constexpr int kTable = kDokZakupu;
  struct RateRow {
    int32_t rate = 0;
    double net = 0, gross = 0, vat = 0;
  };
  int32_t type = 0, supplier = 0;
  std::string number, subject;  // the number is the supplier's own
  Date issued, received, bought;
  std::array<RateRow, 10> rates;
  double net = 0, vat = 0, gross = 0;
  bool service = false;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace purchase_columns;
    visit(kType, self.type);
    visit(kNumber, self.number);
    visit(kIssued, self.issued);
    visit(kReceived, self.received);
    visit(kBought, self.bought);
    visit(kSupplier, self.supplier);
    visit(kSubject, self.subject);
    for (size_t i = 0; i < kRateRows.size(); ++i) {
      visit(kRateRows[i].rate, self.rates[i].rate);
      visit(kRateRows[i].net, self.rates[i].net);
      visit(kRateRows[i].gross, self.rates[i].gross);
      visit(kRateRows[i].vat, self.rates[i].vat);
    }
    visit(kNet, self.net);
    visit(kVat, self.vat);
    visit(kGross, self.gross);
    visit(kService, self.service);
  }
};

struct Customer {
  static constexpr int kTable = kKontrahenci;
  std::string symbol, name, street, house, flat, postal_code, town, phone, mobile, fax, register_number, tax_number, eu_tax_number,
      statistical_number, web, email, contact, bank, swift, account, notes;
  int32_t group = 0, region = 0, country = 0, payment_form = 0;
  bool has_own_account = false;  // pays to an account of his own: own_account
  std::string own_account;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace customer_columns;
    visit(kSymbol, self.symbol);
    visit(kGroup, self.group);
    visit(kName, self.name);
    visit(kStreet, self.street);
    visit(kHouse, self.house);
    visit(kFlat, self.flat);
    visit(kPostalCode, self.postal_code);
    visit(kTown, self.town);
    visit(kRegion, self.region);
    visit(kCountry, self.country);
    visit(kPhone, self.phone);
    visit(kMobile, self.mobile);
    visit(kFax, self.fax);
    visit(kRegister, self.register_number);
    visit(kTaxNumber, self.tax_number);
    visit(kEuTaxNumber, self.eu_tax_number);
    visit(kStatistical, self.statistical_number);
    visit(kWeb, self.web);
    visit(kEmail, self.email);
    visit(kContact, self.contact);
    visit(kBank, self.bank);
    visit(kSwift, self.swift);
    visit(kAccount, self.account);
    visit(kHasOwnAccount, self.has_own_account);
    visit(kOwnAccount, self.own_account);
    visit(kPaymentForm, self.payment_form);
    visit(kNotes, self.notes);
  }
};

struct Article {
  static constexpr int kTable = kTowaryUslugi;
  struct PriceSet {
    double net = 0, gross = 0, markup = 0, margin = 0, profit = 0;
  };
  static constexpr size_t kRetail = 0, kWholesale = 1, kSpecial = 2;  // of prices
  bool service = false, subscription = false;
  std::string symbol, name, description, code, sww, web, notes;  // code: PKWiU
  int32_t group = 0, rate = 0, unit = 0, currency = 0;
  double purchase_price = 0;  // prices are in the article's currency
  std::array<PriceSet, 3> prices;
  int16_t subscription_days = 0, reminder_days = 0;

  template <typename Self, typename Visit>
  static void Each(Self& self, Visit visit) {
    using namespace article_columns;
    visit(kService, self.service);
    visit(kSymbol, self.symbol);
    visit(kGroup, self.group);
    visit(kName, self.name);
    visit(kDescription, self.description);
    visit(kRate, self.rate);
    visit(kUnit, self.unit);
    visit(kCurrencyLink, self.currency);
    visit(kPurchasePrice, self.purchase_price);
    for (size_t i = 0; i < kPriceSets.size(); ++i) {
      visit(kPriceSets[i].net, self.prices[i].net);
      visit(kPriceSets[i].gross, self.prices[i].gross);
      visit(kPriceSets[i].markup, self.prices[i].markup);
      visit(kPriceSets[i].margin, self.prices[i].margin);
      visit(kPriceSets[i].profit, self.prices[i].profit);
    }
    visit(kCode, self.code);
    visit(kSww, self.sww);
    visit(kWeb, self.web);
    visit(kNotes, self.notes);
    visit(kSubscription, self.subscription);
    visit(kSubscriptionDays, self.subscription_days);
    visit(kReminderDays, self.reminder_days);
  }
};

}  // namespace ostrinka
