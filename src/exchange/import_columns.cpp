#include "exchange/import_columns.h"

#include <algorithm>
#include <map>

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr size_t kShownHeading = 40;  // characters

// A plain "cena" is no alias: it does not say whether it is net or gross.
constexpr ColumnAlias kCustomerAliases[] = {
    {"Nazwa firmy", "NAZWA"},
    {"Nazwa kontrahenta", "NAZWA"},
    {"Kontrahent", "NAZWA"},
    {"Firma", "NAZWA"},
    {"Skrót", "SYMBOL"},
    {"Kod kontrahenta", "SYMBOL"},
    {"Grupa kontrahentów", "GRUPA"},
    {"Adres", "ULICA"},
    {"Ulica i numer", "ULICA"},
    {"Numer domu", "NR_DOMU"},
    {"Nr budynku", "NR_DOMU"},
    {"Numer lokalu", "NR_LOKALU"},
    {"Nr mieszkania", "NR_LOKALU"},
    {"Lokal", "NR_LOKALU"},
    {"Kod", "KOD_POCZTOWY"},
    {"Kod poczt.", "KOD_POCZTOWY"},
    {"Miasto", "MIEJSCOWOSC"},
    {"Region", "WOJEWODZTWO"},
    {"Kraj", "PANSTWO"},
    {"Tel.", "TELEFON"},
    {"Nr telefonu", "TELEFON"},
    {"Numer telefonu", "TELEFON"},
    {"Telefon stacjonarny", "TELEFON"},
    {"Komórka", "TEL_KOM"},
    {"Telefon kom.", "TEL_KOM"},
    {"Telefon komórkowy", "TEL_KOM"},
    {"Fax", "FAKS"},
    {"Nr KRS", "KRS"},
    {"Nr NIP", "NIP"},
    {"Numer NIP", "NIP"},
    {"NIP UE", "NIP_EU"},
    {"VAT UE", "NIP_EU"},
    {"Nr REGON", "REGON"},
    {"WWW", "ADRES_WWW"},
    {"Strona WWW", "ADRES_WWW"},
    {"Strona internetowa", "ADRES_WWW"},
    {"E-mail", "ADRES_EMAIL"},
    {"Mail", "ADRES_EMAIL"},
    {"Poczta elektroniczna", "ADRES_EMAIL"},
    {"Osoba kontaktowa", "PRACOWNIK"},
    {"Osoba do kontaktu", "PRACOWNIK"},
    {"Bank", "BANK_NAZWA"},
    {"Nazwa banku", "BANK_NAZWA"},
    {"SWIFT", "BANK_SWIFT"},
    {"BIC", "BANK_SWIFT"},
    {"Konto", "BANK_RACHUNEK"},
    {"Nr konta", "BANK_RACHUNEK"},
    {"Numer konta", "BANK_RACHUNEK"},
    {"Rachunek", "BANK_RACHUNEK"},
    {"Nr rachunku", "BANK_RACHUNEK"},
    {"Numer rachunku", "BANK_RACHUNEK"},
    {"Rachunek bankowy", "BANK_RACHUNEK"},
    {"Konto bankowe", "BANK_RACHUNEK"},
    {"Konto indywidualne", "KONTO_INDYW_RACH"},
    {"Numer konta indywidualnego", "KONTO_INDYW_RACH"},
    {"Forma płatności", "D_FORMA_PLAT"},
    {"Sposób płatności", "D_FORMA_PLAT"},
    {"Notatki", "UWAGI"},
    {"Komentarz", "UWAGI"},
};

constexpr ColumnAlias kArticleAliases[] = {
    {"Nazwa towaru", "NAZWA"},
    {"Nazwa usługi", "NAZWA"},
    {"Nazwa towaru lub usługi", "NAZWA"},
    {"Towar", "NAZWA"},
    {"Artykuł", "NAZWA"},
    {"Produkt", "NAZWA"},
    {"Kod", "SYMBOL"},
    {"Kod towaru", "SYMBOL"},
    {"Indeks", "SYMBOL"},
    {"Nr katalogowy", "SYMBOL"},
    {"Rodzaj", "USLUGA"},
    {"Typ", "USLUGA"},
    {"Grupa towarów", "GRUPA"},
    {"Grupa towarowa", "GRUPA"},
    {"Kategoria", "GRUPA"},
    {"VAT", "STAWKA_VAT"},
    {"Stawka", "STAWKA_VAT"},
    {"Stawka podatku", "STAWKA_VAT"},
    {"Jednostka", "JEDNOSTKA_MIARY"},
    {"Jedn.", "JEDNOSTKA_MIARY"},
    {"J.m.", "JEDNOSTKA_MIARY"},
    {"Cena netto", "DETAL_NETTO"},
    {"Netto", "DETAL_NETTO"},
    {"Cena sprzedaży netto", "DETAL_NETTO"},
    {"Cena detaliczna netto", "DETAL_NETTO"},
    {"Cena brutto", "DETAL_BRUTTO"},
    {"Brutto", "DETAL_BRUTTO"},
    {"Cena sprzedaży brutto", "DETAL_BRUTTO"},
    {"Cena detaliczna brutto", "DETAL_BRUTTO"},
    {"Cena hurtowa netto", "HURT_NETTO"},
    {"Cena hurtowa brutto", "HURT_BRUTTO"},
    {"Cena specjalna netto", "SPEC_NETTO"},
    {"Cena specjalna brutto", "SPEC_BRUTTO"},
    {"Cena zakupu netto", "CENA_ZAKUPU"},
    {"EAN", "KOD_KRESKOWY"},
    {"Kod EAN", "KOD_KRESKOWY"},
    {"WWW", "ADRES_WWW"},
    {"Strona WWW", "ADRES_WWW"},
    {"Notatki", "UWAGI"},
    {"Komentarz", "UWAGI"},
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
