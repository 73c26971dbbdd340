#include "books/columns.h"

#include <vector>

namespace ostrinka {
namespace {

template <typename... T>
void Note(std::vector<ColumnFact>& facts, const Column<T>&... columns) {
  (facts.push_back({columns.table, columns.name, kFieldTypeOf<T>}), ...);
}

std::vector<ColumnFact> Gather() {
  std::vector<ColumnFact> facts;
  {
    using namespace document_columns;
    Note(facts, kType, kNumber, kIdentity, kCorrects, kCorrection, kIssued, kSold, kSoldOverRange, kSoldTo, kDue, kPayer, kCustomer,
         kIssuer, kReceiver, kPaymentForm, kNet, kGross, kCurrencyLink, kRate, kPaid, kPaidOn, kFiscalised, kNotes, kFiles, kAddressKind,
         kAddress, kTaskHidden, kSubscriptionEnds, kSubscriptionEnd, kReminderDays);
  }
  {
    using namespace line_columns;
    Note(facts, kDocument, kArticle, kQuantity, kNetPrice, kGrossPrice, kNet, kGross, kDiscount, kOrigin);
  }
  {
    using namespace purchase_columns;
    Note(facts, kType, kNumber, kIssued, kReceived, kBought, kSupplier, kSubject, kNet, kVat, kGross, kService, kFiles);
    for (const RateRow& row : kRateRows) Note(facts, row.rate, row.net, row.gross, row.vat);
  }
  {
    using namespace payment_form_columns;
    Note(facts, kName, kDays, kPercent, kTransfer, kRetail);
  }
  {
    using namespace article_group_columns;
    Note(facts, kName);
  }
  {
    using namespace group_columns;
    Note(facts, kName, kDescription);
  }
  {
    using namespace unit_columns;
    Note(facts, kName, kSymbol, kFormat);
  }
  {
    using namespace cash_register_columns;
    Note(facts, kName, kModel, kSymbol);
  }
  {
    using namespace customer_columns;
    Note(facts, kSymbol, kGroup, kName, kStreet, kHouse, kFlat, kPostalCode, kTown, kRegion, kCountry, kPhone, kMobile, kFax, kRegister,
         kTaxNumber, kEuTaxNumber, kStatistical, kWeb, kEmail, kContact, kBank, kSwift, kAccount, kHasOwnAccount, kOwnAccount,
         kOwnAccountText, kPaymentForm, kNotes, kFiles);
  }
  {
    using namespace employee_columns;
    Note(facts, kName);
  }
  {
    using namespace vat_rate_columns;
    Note(facts, kName, kSymbol, kPercent);
  }
  {
    using namespace article_columns;
    Note(facts, kService, kSymbol, kGroup, kName, kDescription, kRate, kUnit, kCurrencyLink, kPurchasePrice, kCode, kSww, kCashRegister,
         kBarcode, kWeb, kNotes, kFiles, kSubscription, kSubscriptionDays, kReminderDays);
    for (const PriceSet& set : kPriceSets) Note(facts, set.net, set.gross, set.markup, set.margin, set.profit);
  }
  {
    using namespace country_columns;
    Note(facts, kName, kShort);
  }
  {
    using namespace region_columns;
    Note(facts, kCode, kName, kCountry);
  }
  {
    using namespace document_type_columns;
    Note(facts, kName, kPrintTitle, kNumberFormat, kSet, kOptions);
  }
  {
    using namespace currency_columns;
    Note(facts, kName, kSymbol, kCode, kPriceFormat, kAmountFormat, kRate, kGrammar);
  }
  {
    using namespace company_columns;
    Note(facts, kPlaceOfIssue, kName, kStreet, kHouse, kFlat, kPostalCode, kTown, kCountry, kPhone, kFax, kEmail, kWeb, kRegister,
         kTaxNumber, kEuTaxNumber, kStatistical, kBank, kSwift, kAccount, kScreenDate, kPrintDate, kPercentages);
    for (const auto& column : kFurtherAccounts) Note(facts, column);
    for (const auto& column : kAccountTexts) Note(facts, column);
  }
  return facts;
}

}  // namespace

std::span<const ColumnFact> AllColumns() {
  static const std::vector<ColumnFact> kFacts = Gather();
  return kFacts;
}

}  // namespace ostrinka
