// The names of the fields of the company's tables, once each, with the type of what they hold.
//
// The definitions of all fields, also of those that no rule and no form names, are in company/table_definitions.
#pragma once

#include <array>
#include <span>

#include "books/column.h"

namespace ostrinka {

// dok_sprzed, sales documents
namespace document_columns {
inline constexpr Column<Link> kType{kDokSprzed, "TYP"};
inline constexpr Column<int32_t> kNumber{kDokSprzed, "NR_DOK"};
inline constexpr Column<int32_t> kIdentity{kDokSprzed, "ID_DOK"};
inline constexpr Column<int32_t> kCorrects{kDokSprzed, "DOTYCZY"};
inline constexpr Column<int32_t> kCorrection{kDokSprzed, "KOREKTA"};
inline constexpr Column<Date> kIssued{kDokSprzed, "DATA_WYSTAWIENIA"};
inline constexpr Column<Date> kSold{kDokSprzed, "DATA_SPRZEDAZY"};
inline constexpr Column<bool> kSoldOverRange{kDokSprzed, "DATA_SPRZED_CK"};
inline constexpr Column<Date> kSoldTo{kDokSprzed, "DATA_SPRZED_DO"};
inline constexpr Column<Date> kDue{kDokSprzed, "TERMIN_ZAPLATY"};
inline constexpr Column<Link> kPayer{kDokSprzed, "PLATNIK"};
inline constexpr Column<Link> kCustomer{kDokSprzed, "KONTRAHENT"};
inline constexpr Column<Link> kIssuer{kDokSprzed, "WYSTAWIL"};
inline constexpr Column<std::string> kReceiver{kDokSprzed, "ODEBRAL"};
inline constexpr Column<Link> kPaymentForm{kDokSprzed, "FORMA_PLATNOSCI"};
inline constexpr Column<double> kNet{kDokSprzed, "WARTOSC_NETTO"};
inline constexpr Column<double> kGross{kDokSprzed, "WARTOSC_BRUTTO"};
inline constexpr Column<Link> kCurrencyLink{kDokSprzed, "WALUTA"};
inline constexpr Column<float> kRate{kDokSprzed, "KURS"};
inline constexpr Column<bool> kPaid{kDokSprzed, "ZAPLACONO"};
inline constexpr Column<Date> kPaidOn{kDokSprzed, "DATA_ZAPLATY"};
inline constexpr Column<bool> kFiscalised{kDokSprzed, "ZDFISK"};
inline constexpr Column<std::string> kNotes{kDokSprzed, "UWAGI"};
inline constexpr Column<Attachments> kFiles{kDokSprzed, "MEMO_"};
inline constexpr Column<int16_t> kAddressKind{kDokSprzed, "ADR_TYP"};
inline constexpr Column<std::string> kAddress{kDokSprzed, "ADR_TEKST"};
inline constexpr Column<bool> kTaskHidden{kDokSprzed, "ABN_HIDE"};
inline constexpr Column<bool> kSubscriptionEnds{kDokSprzed, "ABN_KONIEC"};
inline constexpr Column<Date> kSubscriptionEnd{kDokSprzed, "ABN_KONIEC_DATA"};
inline constexpr Column<int32_t> kReminderDays{kDokSprzed, "ABN_KONIEC_DNI"};
}  // namespace document_columns

// sprzedane, lines of sales documents. ILOSC and the amounts are currency values once a company was opened
namespace line_columns {
inline constexpr Column<int32_t> kDocument{kSprzedane, "ID_DOK"};
inline constexpr Column<Link> kArticle{kSprzedane, "NAZWA_T_U"};
inline constexpr Column<Currency> kQuantity{kSprzedane, "ILOSC"};
inline constexpr Column<Currency> kNetPrice{kSprzedane, "CENA_NETTO"};
inline constexpr Column<Currency> kGrossPrice{kSprzedane, "CENA_BRUTTO"};
inline constexpr Column<Currency> kNet{kSprzedane, "WARTOSC_NETTO"};
inline constexpr Column<Currency> kGross{kSprzedane, "WARTOSC_BRUTTO"};
inline constexpr Column<int16_t> kDiscount{kSprzedane, "RABAT"};
inline constexpr Column<std::string> kOrigin{kSprzedane, "INFO_DOD"};
}  // namespace line_columns

// dok_zakupu, purchases
namespace purchase_columns {
inline constexpr Column<Link> kType{kDokZakupu, "TYP"};
inline constexpr Column<std::string> kNumber{kDokZakupu, "NSTR_DOK"};
inline constexpr Column<Date> kIssued{kDokZakupu, "DATA_WYSTAWIENIA"};
inline constexpr Column<Date> kReceived{kDokZakupu, "DATA_WPLYWU"};
inline constexpr Column<Date> kBought{kDokZakupu, "DATA_ZAKUPU"};
inline constexpr Column<Link> kSupplier{kDokZakupu, "KONTRAHENT"};
inline constexpr Column<std::string> kSubject{kDokZakupu, "PRZEDM_OP"};
inline constexpr Column<double> kNet{kDokZakupu, "WARTOSC_NETTO"};
inline constexpr Column<double> kVat{kDokZakupu, "WARTOSC_VAT"};
inline constexpr Column<double> kGross{kDokZakupu, "WARTOSC_BRUTTO"};
inline constexpr Column<bool> kService{kDokZakupu, "USLUGA"};
inline constexpr Column<Attachments> kFiles{kDokZakupu, "MEMO_"};
// The amounts of one VAT rate; a purchase has room for ten.
struct RateRow {
  Column<Link> rate;
  Column<double> net, gross, vat;
};
inline constexpr std::array<RateRow, 10> kRateRows{{
    {{kDokZakupu, "VAT_01"}, {kDokZakupu, "K_NETTO_01"}, {kDokZakupu, "K_BRUTTO_01"}, {kDokZakupu, "K_VAT_01"}},
    {{kDokZakupu, "VAT_02"}, {kDokZakupu, "K_NETTO_02"}, {kDokZakupu, "K_BRUTTO_02"}, {kDokZakupu, "K_VAT_02"}},
    {{kDokZakupu, "VAT_03"}, {kDokZakupu, "K_NETTO_03"}, {kDokZakupu, "K_BRUTTO_03"}, {kDokZakupu, "K_VAT_03"}},
    {{kDokZakupu, "VAT_04"}, {kDokZakupu, "K_NETTO_04"}, {kDokZakupu, "K_BRUTTO_04"}, {kDokZakupu, "K_VAT_04"}},
    {{kDokZakupu, "VAT_05"}, {kDokZakupu, "K_NETTO_05"}, {kDokZakupu, "K_BRUTTO_05"}, {kDokZakupu, "K_VAT_05"}},
    {{kDokZakupu, "VAT_06"}, {kDokZakupu, "K_NETTO_06"}, {kDokZakupu, "K_BRUTTO_06"}, {kDokZakupu, "K_VAT_06"}},
    {{kDokZakupu, "VAT_07"}, {kDokZakupu, "K_NETTO_07"}, {kDokZakupu, "K_BRUTTO_07"}, {kDokZakupu, "K_VAT_07"}},
    {{kDokZakupu, "VAT_08"}, {kDokZakupu, "K_NETTO_08"}, {kDokZakupu, "K_BRUTTO_08"}, {kDokZakupu, "K_VAT_08"}},
    {{kDokZakupu, "VAT_09"}, {kDokZakupu, "K_NETTO_09"}, {kDokZakupu, "K_BRUTTO_09"}, {kDokZakupu, "K_VAT_09"}},
    {{kDokZakupu, "VAT_10"}, {kDokZakupu, "K_NETTO_10"}, {kDokZakupu, "K_BRUTTO_10"}, {kDokZakupu, "K_VAT_10"}},
}};
}  // namespace purchase_columns

// formy_platn, forms of payment
namespace payment_form_columns {
inline constexpr Column<std::string> kName{kFormyPlatn, "NAZWA"};
inline constexpr Column<int16_t> kDays{kFormyPlatn, "TERMIN"};
inline constexpr Column<int16_t> kPercent{kFormyPlatn, "PROCENT"};
inline constexpr Column<bool> kTransfer{kFormyPlatn, "PRZELEW"};
inline constexpr Column<bool> kRetail{kFormyPlatn, "DETAL"};
}  // namespace payment_form_columns

// grupa_t_u, groups of goods and services
namespace article_group_columns {
inline constexpr Column<std::string> kName{kGrupaTU, "NAZWA"};
}  // namespace article_group_columns

// grupy, groups of customers
namespace group_columns {
inline constexpr Column<std::string> kName{kGrupy, "NAZWA"};
inline constexpr Column<std::string> kDescription{kGrupy, "OPIS"};
}  // namespace group_columns

// jedn_miary, units of measure
namespace unit_columns {
inline constexpr Column<std::string> kName{kJednMiary, "NAZWA"};
inline constexpr Column<std::string> kSymbol{kJednMiary, "SYMBOL"};
inline constexpr Column<std::string> kFormat{kJednMiary, "FORMAT"};
}  // namespace unit_columns

// kasy_fisk, cash registers
namespace cash_register_columns {
inline constexpr Column<std::string> kName{kKasyFisk, "NAZWA"};
inline constexpr Column<std::string> kModel{kKasyFisk, "MODEL"};
inline constexpr Column<std::string> kSymbol{kKasyFisk, "SYMBOL"};
}  // namespace cash_register_columns

// kontrahenci, customers
namespace customer_columns {
inline constexpr Column<std::string> kSymbol{kKontrahenci, "SYMBOL"};
inline constexpr Column<Link> kGroup{kKontrahenci, "GRUPA"};
inline constexpr Column<std::string> kName{kKontrahenci, "NAZWA"};
inline constexpr Column<std::string> kStreet{kKontrahenci, "ULICA"};
inline constexpr Column<std::string> kHouse{kKontrahenci, "NR_DOMU"};
inline constexpr Column<std::string> kFlat{kKontrahenci, "NR_LOKALU"};
inline constexpr Column<std::string> kPostalCode{kKontrahenci, "KOD_POCZTOWY"};
inline constexpr Column<std::string> kTown{kKontrahenci, "MIEJSCOWOSC"};
inline constexpr Column<Link> kRegion{kKontrahenci, "WOJEWODZTWO"};
inline constexpr Column<Link> kCountry{kKontrahenci, "PANSTWO"};
inline constexpr Column<std::string> kPhone{kKontrahenci, "TELEFON"};
inline constexpr Column<std::string> kMobile{kKontrahenci, "TEL_KOM"};
inline constexpr Column<std::string> kFax{kKontrahenci, "FAKS"};
inline constexpr Column<std::string> kRegister{kKontrahenci, "KRS"};
inline constexpr Column<std::string> kTaxNumber{kKontrahenci, "NIP"};
inline constexpr Column<std::string> kEuTaxNumber{kKontrahenci, "NIP_EU"};
inline constexpr Column<std::string> kStatistical{kKontrahenci, "REGON"};
inline constexpr Column<std::string> kWeb{kKontrahenci, "ADRES_WWW"};
inline constexpr Column<std::string> kEmail{kKontrahenci, "ADRES_EMAIL"};
inline constexpr Column<std::string> kContact{kKontrahenci, "PRACOWNIK"};
inline constexpr Column<std::string> kBank{kKontrahenci, "BANK_NAZWA"};
inline constexpr Column<std::string> kSwift{kKontrahenci, "BANK_SWIFT"};
inline constexpr Column<std::string> kAccount{kKontrahenci, "BANK_RACHUNEK"};
inline constexpr Column<bool> kHasOwnAccount{kKontrahenci, "KONTO_INDYW_OK"};
inline constexpr Column<std::string> kOwnAccount{kKontrahenci, "KONTO_INDYW_RACH"};
inline constexpr Column<std::string> kOwnAccountText{kKontrahenci, "KONTO_INDYW_OPIS"};
inline constexpr Column<Link> kPaymentForm{kKontrahenci, "D_FORMA_PLAT"};
inline constexpr Column<std::string> kNotes{kKontrahenci, "UWAGI"};
inline constexpr Column<Attachments> kFiles{kKontrahenci, "MEMO_"};
}  // namespace customer_columns

// pracownicy, employees
namespace employee_columns {
inline constexpr Column<std::string> kName{kPracownicy, "PRACOWNIK"};
}  // namespace employee_columns

// stawki_vat, VAT rates
namespace vat_rate_columns {
inline constexpr Column<std::string> kName{kStawkiVat, "NAZWA"};
inline constexpr Column<std::string> kSymbol{kStawkiVat, "SYMBOL"};
inline constexpr Column<float> kPercent{kStawkiVat, "WARTOSC"};
}  // namespace vat_rate_columns

// towaryuslugi, goods and services
namespace article_columns {
inline constexpr Column<bool> kService{kTowaryUslugi, "USLUGA"};
inline constexpr Column<std::string> kSymbol{kTowaryUslugi, "SYMBOL"};
inline constexpr Column<Link> kGroup{kTowaryUslugi, "GRUPA"};
inline constexpr Column<std::string> kName{kTowaryUslugi, "NAZWA"};
inline constexpr Column<std::string> kDescription{kTowaryUslugi, "OPIS"};
inline constexpr Column<Link> kRate{kTowaryUslugi, "STAWKA_VAT"};
inline constexpr Column<Link> kUnit{kTowaryUslugi, "JEDNOSTKA_MIARY"};
inline constexpr Column<Link> kCurrencyLink{kTowaryUslugi, "WALUTA"};
inline constexpr Column<double> kPurchasePrice{kTowaryUslugi, "CENA_ZAKUPU"};
inline constexpr Column<std::string> kCode{kTowaryUslugi, "PKWIU"};
inline constexpr Column<std::string> kSww{kTowaryUslugi, "SWW"};
inline constexpr Column<Link> kCashRegister{kTowaryUslugi, "KASA_FISKALNA"};
inline constexpr Column<std::string> kBarcode{kTowaryUslugi, "KOD_KRESKOWY"};
inline constexpr Column<std::string> kWeb{kTowaryUslugi, "ADRES_WWW"};
inline constexpr Column<std::string> kNotes{kTowaryUslugi, "UWAGI"};
inline constexpr Column<Attachments> kFiles{kTowaryUslugi, "MEMO_"};
inline constexpr Column<bool> kSubscription{kTowaryUslugi, "ABONAMENT"};
inline constexpr Column<int16_t> kSubscriptionDays{kTowaryUslugi, "ABILOSCDNI"};
inline constexpr Column<int16_t> kReminderDays{kTowaryUslugi, "ABINFOKONIEC"};
// A price set: retail, wholesale, special.
struct PriceSet {
  Column<double> net, gross, markup, margin, profit;
};
inline constexpr std::array<PriceSet, 3> kPriceSets{{
    {{kTowaryUslugi, "DETAL_NETTO"},
     {kTowaryUslugi, "DETAL_BRUTTO"},
     {kTowaryUslugi, "DETAL_NARZUT"},
     {kTowaryUslugi, "DETAL_MARZA"},
     {kTowaryUslugi, "DETAL_ZYSK"}},
    {{kTowaryUslugi, "HURT_NETTO"},
     {kTowaryUslugi, "HURT_BRUTTO"},
     {kTowaryUslugi, "HURT_NARZUT"},
     {kTowaryUslugi, "HURT_MARZA"},
     {kTowaryUslugi, "HURT_ZYSK"}},
    {{kTowaryUslugi, "SPEC_NETTO"},
     {kTowaryUslugi, "SPEC_BRUTTO"},
     {kTowaryUslugi, "SPEC_NARZUT"},
     {kTowaryUslugi, "SPEC_MARZA"},
     {kTowaryUslugi, "SPEC_ZYSK"}},
}};
}  // namespace article_columns

// panstwa, countries
namespace country_columns {
inline constexpr Column<std::string> kName{kPanstwa, "NAZWA"};
inline constexpr Column<std::string> kShort{kPanstwa, "SKROT"};
}  // namespace country_columns

// regiony, regions of a country
namespace region_columns {
inline constexpr Column<int16_t> kCode{kRegiony, "KOD"};
inline constexpr Column<std::string> kName{kRegiony, "NAZWA"};
inline constexpr Column<Link> kCountry{kRegiony, "PANSTWO"};
}  // namespace region_columns

// dokument_kat, types of documents
namespace document_type_columns {
inline constexpr Column<std::string> kName{kDokumentKat, "NAZWA"};
inline constexpr Column<std::string> kPrintTitle{kDokumentKat, "DRUK_TYT"};
inline constexpr Column<std::string> kNumberFormat{kDokumentKat, "FORMAT"};
inline constexpr Column<int16_t> kSet{kDokumentKat, "ZESTAW"};
inline constexpr Column<std::string> kOptions{kDokumentKat, "OPCJE"};
}  // namespace document_type_columns

// waluty, currencies
namespace currency_columns {
inline constexpr Column<std::string> kName{kWaluty, "NAZWA"};
inline constexpr Column<std::string> kSymbol{kWaluty, "SYMBOL"};
inline constexpr Column<std::string> kCode{kWaluty, "KODWAL"};
inline constexpr Column<std::string> kPriceFormat{kWaluty, "FORMAT"};
inline constexpr Column<std::string> kAmountFormat{kWaluty, "FORMATNCH"};
inline constexpr Column<float> kRate{kWaluty, "KURS"};
inline constexpr Column<std::string> kGrammar{kWaluty, "ODM"};
}  // namespace currency_columns

// firma, the company itself
namespace company_columns {
inline constexpr Column<std::string> kPlaceOfIssue{kFirma, "M_WYST_DOK"};
inline constexpr Column<std::string> kName{kFirma, "S_NAZWA"};
inline constexpr Column<std::string> kStreet{kFirma, "S_ULICA"};
inline constexpr Column<std::string> kHouse{kFirma, "S_NRDOM"};
inline constexpr Column<std::string> kFlat{kFirma, "S_NRLOK"};
inline constexpr Column<std::string> kPostalCode{kFirma, "S_KPOCZ"};
inline constexpr Column<std::string> kTown{kFirma, "S_MIAST"};
inline constexpr Column<std::string> kCountry{kFirma, "S_KRAJS"};
inline constexpr Column<std::string> kPhone{kFirma, "K_TSTAC"};
inline constexpr Column<std::string> kFax{kFirma, "K_TFAKS"};
inline constexpr Column<std::string> kEmail{kFirma, "K_EMAIL"};
inline constexpr Column<std::string> kWeb{kFirma, "K_STWWW"};
inline constexpr Column<std::string> kRegister{kFirma, "F_NRKRS"};
inline constexpr Column<std::string> kTaxNumber{kFirma, "F_NRNIP"};
inline constexpr Column<std::string> kEuTaxNumber{kFirma, "F_NIPEU"};
inline constexpr Column<std::string> kStatistical{kFirma, "F_REGON"};
inline constexpr Column<std::string> kBank{kFirma, "B_NAZWA"};
inline constexpr Column<std::string> kSwift{kFirma, "B_SWIFT"};
inline constexpr Column<std::string> kAccount{kFirma, "B_KONTO"};
inline constexpr Column<std::string> kScreenDate{kFirma, "FORMAT_DATA_EKR"};
inline constexpr Column<std::string> kPrintDate{kFirma, "FORMAT_DATA_WYD"};
inline constexpr Column<std::string> kPercentages{kFirma, "FORMAT_PROCENTY"};
inline constexpr std::array<Column<std::string>, 4> kFurtherAccounts{
    {{kFirma, "B_KONTO_D1"}, {kFirma, "B_KONTO_D2"}, {kFirma, "B_KONTO_D3"}, {kFirma, "B_KONTO_D4"}}};
inline constexpr std::array<Column<std::string>, 4> kAccountTexts{
    {{kFirma, "B_KONTO_OPIS_1"}, {kFirma, "B_KONTO_OPIS_2"}, {kFirma, "B_KONTO_OPIS_3"}, {kFirma, "B_KONTO_OPIS_4"}}};
}  // namespace company_columns

// Every constant of this file, for the test that holds them against the tables.
struct ColumnFact {
  int table;
  const char* name;
  FieldType type;
};
std::span<const ColumnFact> AllColumns();

}  // namespace ostrinka
