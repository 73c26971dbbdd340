#include "exchange/import.h"

#include <optional>

#include "base/check_digits.h"
#include "base/text.h"
#include "company/tables.h"
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
  explicit CustomerImport(Program& program) : TableImport(program, kKontrahenci, CustomerAliases()) {}

 private:
  std::string Complete() override {
    if (!HasColumn("KONTO_INDYW_OK") && !ToText(At("KONTO_INDYW_RACH")).empty()) Put("KONTO_INDYW_OK", true);
    return "";
  }

  void Doubts() override {
    const std::string nip = ToText(At("NIP")), regon = ToText(At("REGON")), account = ToText(At("BANK_RACHUNEK"));
    if (!nip.empty() && !CheckNIP(nip)) Doubt("NIP", "imp.doubt.number");
    if (!regon.empty() && !CheckREGON(regon)) Doubt("REGON", "imp.doubt.number");
    if (!account.empty() && !CheckIBAN(account, kCountry)) Doubt("BANK_RACHUNEK", "imp.doubt.number");
  }

  std::vector<FieldId> IdentityFields() const override {
    return {"NIP", "SYMBOL", "NAZWA", "ULICA", "NR_DOMU", "NR_LOKALU", "MIEJSCOWOSC"};
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
      : TableImport(program, kTowaryUslugi, ArticleAliases()), pattern_(PricePattern(program, 0, false)) {}

 private:
  std::string Complete() override {
    if (IsEmpty(At("WALUTA"))) Put("WALUTA", dictionaries_.First(kWaluty));
    for (const std::string set : {"DETAL", "HURT", "SPEC"}) {
      if (!CompletePrices(set)) return program_.Text("imp.row.norate");
      CompleteProfit(set);
    }
    return "";
  }

  // Net from gross or gross from net, where one of them is missing. False when that takes a VAT rate and there is none.
  bool CompletePrices(const std::string& set) {
    const Value net = At(set + "_NETTO"), gross = At(set + "_BRUTTO");
    if (IsEmpty(net) == IsEmpty(gross)) return true;
    const int32_t rate_record = Int32Or0(At("STAWKA_VAT"));
    if (rate_record == 0) return false;
    const double rate = dictionaries_.Rate(rate_record);
    if (IsEmpty(gross)) PutRounded(set + "_BRUTTO", GrossFromNet(DoubleOr0(net), rate));
    if (IsEmpty(net)) PutRounded(set + "_NETTO", NetFromGross(DoubleOr0(gross), rate));
    return true;
  }

  void CompleteProfit(const std::string& set) {
    const double net = DoubleOr0(At(set + "_NETTO")), purchase = DoubleOr0(At("CENA_ZAKUPU"));
    if (net == 0) return;
    if (IsEmpty(At(set + "_ZYSK"))) PutRounded(set + "_ZYSK", ProfitOf(net, purchase));
    const double profit = DoubleOr0(At(set + "_ZYSK"));
    if (IsEmpty(At(set + "_MARZA"))) PutRounded(set + "_MARZA", MarginOf(profit, net));
    if (IsEmpty(At(set + "_NARZUT"))) PutRounded(set + "_NARZUT", MarkupOf(profit, purchase));
  }

  // As the editor of articles rounds what it writes.
  void PutRounded(const std::string& field, double amount) { Put(field, RoundByPattern(Value(amount), pattern_)); }

  std::vector<FieldId> IdentityFields() const override { return {"SYMBOL", "NAZWA", "DETAL_NETTO"}; }

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
