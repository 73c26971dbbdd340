#include "exchange/import_columns.h"

#include <algorithm>
#include <map>

#include "base/text.h"
#include "books/columns.h"

namespace ostrinka {
namespace {

constexpr size_t kShownHeading = 40;  // characters

// A plain "cena" is no alias: it does not say whether it is net or gross.
constexpr ColumnAlias kCustomerAliases[] = {
    {"Nazwa firmy", customer_columns::kName.name},
    {"Nazwa kontrahenta", customer_columns::kName.name},
    {"Kontrahent", customer_columns::kName.name},
    {"Firma", customer_columns::kName.name},
    {"Skrót", customer_columns::kSymbol.name},
    {"Kod kontrahenta", customer_columns::kSymbol.name},
    {"Grupa kontrahentów", customer_columns::kGroup.name},
    {"Adres", customer_columns::kStreet.name},
    {"Ulica i numer", customer_columns::kStreet.name},
    {"Numer domu", customer_columns::kHouse.name},
    {"Nr budynku", customer_columns::kHouse.name},
    {"Numer lokalu", customer_columns::kFlat.name},
    {"Nr mieszkania", customer_columns::kFlat.name},
    {"Lokal", customer_columns::kFlat.name},
    {"Kod", customer_columns::kPostalCode.name},
    {"Kod poczt.", customer_columns::kPostalCode.name},
    {"Miasto", customer_columns::kTown.name},
    {"Region", customer_columns::kRegion.name},
    {"Kraj", customer_columns::kCountry.name},
    {"Tel.", customer_columns::kPhone.name},
    {"Nr telefonu", customer_columns::kPhone.name},
    {"Numer telefonu", customer_columns::kPhone.name},
    {"Telefon stacjonarny", customer_columns::kPhone.name},
    {"Komórka", customer_columns::kMobile.name},
    {"Telefon kom.", customer_columns::kMobile.name},
    {"Telefon komórkowy", customer_columns::kMobile.name},
    {"Fax", customer_columns::kFax.name},
    {"Nr KRS", customer_columns::kRegister.name},
    {"Nr NIP", customer_columns::kTaxNumber.name},
    {"Numer NIP", customer_columns::kTaxNumber.name},
    {"NIP UE", customer_columns::kEuTaxNumber.name},
    {"VAT UE", customer_columns::kEuTaxNumber.name},
    {"Nr REGON", customer_columns::kStatistical.name},
    {"WWW", customer_columns::kWeb.name},
    {"Strona WWW", customer_columns::kWeb.name},
    {"Strona internetowa", customer_columns::kWeb.name},
    {"E-mail", customer_columns::kEmail.name},
    {"Mail", customer_columns::kEmail.name},
    {"Poczta elektroniczna", customer_columns::kEmail.name},
    {"Osoba kontaktowa", customer_columns::kContact.name},
    {"Osoba do kontaktu", customer_columns::kContact.name},
    {"Bank", customer_columns::kBank.name},
    {"Nazwa banku", customer_columns::kBank.name},
    {"SWIFT", customer_columns::kSwift.name},
    {"BIC", customer_columns::kSwift.name},
    {"Konto", customer_columns::kAccount.name},
    {"Nr konta", customer_columns::kAccount.name},
    {"Numer konta", customer_columns::kAccount.name},
    {"Rachunek", customer_columns::kAccount.name},
    {"Nr rachunku", customer_columns::kAccount.name},
    {"Numer rachunku", customer_columns::kAccount.name},
    {"Rachunek bankowy", customer_columns::kAccount.name},
    {"Konto bankowe", customer_columns::kAccount.name},
    {"Konto indywidualne", customer_columns::kOwnAccount.name},
    {"Numer konta indywidualnego", customer_columns::kOwnAccount.name},
    {"Forma płatności", customer_columns::kPaymentForm.name},
    {"Sposób płatności", customer_columns::kPaymentForm.name},
    {"Notatki", customer_columns::kNotes.name},
    {"Komentarz", customer_columns::kNotes.name},
};

constexpr ColumnAlias kArticleAliases[] = {
    {"Nazwa towaru", article_columns::kName.name},
    {"Nazwa usługi", article_columns::kName.name},
    {"Nazwa towaru lub usługi", article_columns::kName.name},
    {"Towar", article_columns::kName.name},
    {"Artykuł", article_columns::kName.name},
    {"Produkt", article_columns::kName.name},
    {"Kod", article_columns::kSymbol.name},
    {"Kod towaru", article_columns::kSymbol.name},
    {"Indeks", article_columns::kSymbol.name},
    {"Nr katalogowy", article_columns::kSymbol.name},
    {"Rodzaj", article_columns::kService.name},
    {"Typ", article_columns::kService.name},
    {"Grupa towarów", article_columns::kGroup.name},
    {"Grupa towarowa", article_columns::kGroup.name},
    {"Kategoria", article_columns::kGroup.name},
    {"VAT", article_columns::kRate.name},
    {"Stawka", article_columns::kRate.name},
    {"Stawka podatku", article_columns::kRate.name},
    {"Jednostka", article_columns::kUnit.name},
    {"Jedn.", article_columns::kUnit.name},
    {"J.m.", article_columns::kUnit.name},
    {"Cena netto", article_columns::kPriceSets[0].net.name},
    {"Netto", article_columns::kPriceSets[0].net.name},
    {"Cena sprzedaży netto", article_columns::kPriceSets[0].net.name},
    {"Cena detaliczna netto", article_columns::kPriceSets[0].net.name},
    {"Cena brutto", article_columns::kPriceSets[0].gross.name},
    {"Brutto", article_columns::kPriceSets[0].gross.name},
    {"Cena sprzedaży brutto", article_columns::kPriceSets[0].gross.name},
    {"Cena detaliczna brutto", article_columns::kPriceSets[0].gross.name},
    {"Cena hurtowa netto", article_columns::kPriceSets[1].net.name},
    {"Cena hurtowa brutto", article_columns::kPriceSets[1].gross.name},
    {"Cena specjalna netto", article_columns::kPriceSets[2].net.name},
    {"Cena specjalna brutto", article_columns::kPriceSets[2].gross.name},
    {"Cena zakupu netto", article_columns::kPurchasePrice.name},
    {"EAN", article_columns::kBarcode.name},
    {"Kod EAN", article_columns::kBarcode.name},
    {"WWW", article_columns::kWeb.name},
    {"Strona WWW", article_columns::kWeb.name},
    {"Notatki", article_columns::kNotes.name},
    {"Komentarz", article_columns::kNotes.name},
};

// The letters and digits of a heading, folded: "Kod poczt." and "kod_poczt" are one.
std::string HeadingKey(std::string_view heading) {
  std::string key;
  for (const char letter : FoldPolish(heading)) {
    if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9')) key += letter;
  }
  return key;
}

}  // namespace

std::span<const ColumnAlias> CustomerAliases() {
  return kCustomerAliases;
}

std::span<const ColumnAlias> ArticleAliases() {
  return kArticleAliases;
}

bool HeadingNames(std::string_view heading, std::string_view field, std::span<const ColumnAlias> aliases) {
  const std::string key = HeadingKey(heading);
  return key == HeadingKey(field) || std::any_of(aliases.begin(), aliases.end(), [&](const ColumnAlias& alias) {
           return field == alias.field && key == HeadingKey(alias.heading);
         });
}

std::vector<ImportColumn> MatchColumns(ClassQDBASE& table, std::span<const ColumnAlias> aliases, const std::vector<std::string>& headings,
                                       std::vector<std::string>& ignored) {
  std::map<std::string, int> fields;
  for (int n = 1; n <= table.FIELD_COUNT(); ++n) fields.emplace(HeadingKey(table.FIELD_NAME(n)), n);
  for (const ColumnAlias& alias : aliases) {
    if (const auto named = fields.find(HeadingKey(alias.field)); named != fields.end())
      fields.emplace(HeadingKey(alias.heading), named->second);
  }
  std::vector<ImportColumn> columns;
  for (size_t cell = 0; cell < headings.size(); ++cell) {
    const std::string heading = LeftCharacters(TrimWhite(headings[cell]), kShownHeading);
    const auto found = fields.find(HeadingKey(headings[cell]));
    const bool taken = found != fields.end() && std::any_of(columns.begin(), columns.end(),
                                                            [&](const ImportColumn& column) { return column.field == found->second; });
    if (found != fields.end() && !taken) {
      columns.push_back({cell, found->second, heading});
    } else if (!heading.empty()) {
      ignored.push_back(heading);
    }
  }
  return columns;
}

}  // namespace ostrinka
