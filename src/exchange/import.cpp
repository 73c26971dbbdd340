#include "exchange/import.h"

#include <optional>

#include "base/check_digits.h"
#include "base/text.h"
#include "books/rows.h"
#include "documents/goods_prices.h"
#include "exchange/table_import.h"

namespace ostrinka {
namespace {

constexpr char kCountry[] = "PL";
constexpr size_t kNipDigits = 10;

std::string Plain(const Value& value) {
  return FoldPolish(TrimWhite(ToText(value)));
}

// A tax number without what people write between its parts; "" where no digit stands in it.
std::string NipKey(const Value& value) {
  const std::string text = ToText(value), digits = DigitsOnly(text);
  return digits.size() == kNipDigits || digits.empty() ? digits : AlnumOnly(text);
}

class CustomerImport : public TableImport {
 public:
  explicit CustomerImport(Program& program) : TableImport(program, customer_columns::kName, CustomerAliases()) {}

 private:
  std::string Complete() override {
    if (!HasColumn(customer_columns::kHasOwnAccount) && !ToText(At(customer_columns::kOwnAccount)).empty())
      Put(customer_columns::kHasOwnAccount, true);
    return "";
  }

  void Doubts() override {
    const std::string nip = ToText(At(customer_columns::kTaxNumber)), regon = ToText(At(customer_columns::kStatistical)),
                      account = ToText(At(customer_columns::kAccount));
    if (!nip.empty() && !CheckNIP(nip)) Doubt(customer_columns::kTaxNumber, "imp.doubt.number");
    if (!regon.empty() && !CheckREGON(regon)) Doubt(customer_columns::kStatistical, "imp.doubt.number");
    if (!account.empty() && !CheckIBAN(account, kCountry)) Doubt(customer_columns::kAccount, "imp.doubt.number");
  }

  std::vector<FieldId> IdentityFields() const override {
    using namespace customer_columns;
    return {kTaxNumber.name, kSymbol.name, kName.name, kStreet.name, kHouse.name, kFlat.name, kTown.name};
  }

  // By the tax number and the symbol; where neither stands, by name and address.
  std::vector<RecordIdentity> Identities(const std::vector<Value>& values) const override {
    std::vector<RecordIdentity> identities;
    if (const std::string nip = NipKey(values[0]); !nip.empty()) identities.push_back({"N" + nip, "imp.dup.nip"});
    if (const std::string symbol = Plain(values[1]); !symbol.empty()) identities.push_back({"S" + symbol, "imp.dup.symbol"});
    if (!identities.empty()) return identities;
    std::string same = "A";
    for (size_t i = 2; i <= 6; ++i) same += Plain(values[i]) + '\n';
    return {{same, "imp.dup.customer"}};
  }
};

class ArticleImport : public TableImport {
 public:
  explicit ArticleImport(Program& program)
      : TableImport(program, article_columns::kName, ArticleAliases()), pattern_(PricePattern(program, 0, false)) {}

 private:
  using PriceSet = article_columns::PriceSet;

  std::string Complete() override {
    if (IsEmpty(At(article_columns::kCurrencyLink))) Put(article_columns::kCurrencyLink, dictionaries_.First(kWaluty));
    for (const PriceSet& set : article_columns::kPriceSets) {
      if (!CompletePrices(set)) return program_.Text("imp.row.norate");
      CompleteProfit(set);
    }
    return "";
  }

  // Net from gross or gross from net, where one of them is missing. False when that takes a VAT rate and there is none.
  bool CompletePrices(const PriceSet& set) {
    const Value net = At(set.net), gross = At(set.gross);
    if (IsEmpty(net) == IsEmpty(gross)) return true;
    const int32_t rate_record = Int32Or0(At(article_columns::kRate));
    if (rate_record == 0) return false;
    const double rate = dictionaries_.Rate(rate_record);
    if (IsEmpty(gross)) PutRounded(set.gross, GrossFromNet(DoubleOr0(net), rate));
    if (IsEmpty(net)) PutRounded(set.net, NetFromGross(DoubleOr0(gross), rate));
    return true;
  }

  void CompleteProfit(const PriceSet& set) {
    const double net = DoubleOr0(At(set.net)), purchase = DoubleOr0(At(article_columns::kPurchasePrice));
    if (net == 0) return;
    if (IsEmpty(At(set.profit))) PutRounded(set.profit, ProfitOf(net, purchase));
    const double profit = DoubleOr0(At(set.profit));
    if (IsEmpty(At(set.margin))) PutRounded(set.margin, MarginOf(profit, net));
    if (IsEmpty(At(set.markup))) PutRounded(set.markup, MarkupOf(profit, purchase));
  }

  // As the editor of articles rounds what it writes.
  void PutRounded(const Column<double>& column, double amount) { Put(column, RoundByPattern(Value(amount), pattern_)); }

  std::vector<FieldId> IdentityFields() const override {
    return {article_columns::kSymbol.name, article_columns::kName.name, article_columns::kPriceSets[Article::kRetail].net.name};
  }

  // By the symbol; where there is none, by name and price.
  std::vector<RecordIdentity> Identities(const std::vector<Value>& values) const override {
    if (const std::string symbol = Plain(values[0]); !symbol.empty()) return {{"S" + symbol, "imp.dup.symbol"}};
    return {{"A" + Plain(values[1]) + '\n' + ToText(Value(DoubleOr0(values[2]))), "imp.dup.article"}};
  }

  const std::string pattern_;
};

}  // namespace

ImportResult ImportCustomers(Program& program, const std::string& path) {
  return CustomerImport(program).Run(path);
}

ImportResult ImportArticles(Program& program, const std::string& path) {
  return ArticleImport(program).Run(path);
}

}  // namespace ostrinka
