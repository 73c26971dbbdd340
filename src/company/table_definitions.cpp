#include "company/table_definitions.h"

namespace ostrinka {
namespace {

constexpr FieldDefinition kFirmaFields[] = {
    {"M_WYST_DOK", kText, 200},      {"S_NAZWA", kText, 250},         {"S_ULICA", kText, 250},         {"S_NRDOM", kText, 250},
    {"S_NRLOK", kText, 250},         {"S_KPOCZ", kText, 250},         {"S_MIAST", kText, 250},         {"S_KRAJS", kText, 250},
    {"K_TSTAC", kText, 250},         {"K_TFAKS", kText, 250},         {"K_TEKOM", kText, 250},         {"K_STWWW", kText, 250},
    {"K_EMAIL", kText, 250},         {"F_NRKRS", kText, 250},         {"F_NRNIP", kText, 250},         {"F_NIPEU", kText, 250},
    {"F_REGON", kText, 250},         {"B_SWIFT", kText, 250},         {"B_NAZWA", kText, 250},         {"B_KONTO", kText, 250},
    {"B_KONTO_D1", kText, 250},      {"B_KONTO_D2", kText, 250},      {"B_KONTO_D3", kText, 250},      {"B_KONTO_D4", kText, 250},
    {"B_KONTO_OPIS_1", kText, 500},  {"B_KONTO_OPIS_2", kText, 500},  {"B_KONTO_OPIS_3", kText, 500},  {"B_KONTO_OPIS_4", kText, 500},
    {"FORMAT_DATA_EKR", kText, 128}, {"FORMAT_DATA_WYD", kText, 128}, {"FORMAT_PROCENTY", kText, 128},
};

constexpr FieldDefinition kDokSprzedFields[] = {
    {"TYP", kLink, 0, "dokument_kat.ovd", "NAZWA"},
    {"NR_DOK", kLong},
    {"ID_DOK", kLong},
    {"DOTYCZY", kLong},
    {"KOREKTA", kLong},
    {"DATA_WYSTAWIENIA", kDate},
    {"DATA_SPRZEDAZY", kDate},
    {"DATA_SPRZED_CK", kBoolean},
    {"DATA_SPRZED_DO", kDate},
    {"TERMIN_ZAPLATY", kDate},
    {"PLATNIK", kLink, 0, "kontrahenci.ovd", "NAZWA"},
    {"KONTRAHENT", kLink, 0, "kontrahenci.ovd", "NAZWA"},
    {"WYSTAWIL", kLink, 0, "pracownicy.ovd", "PRACOWNIK"},
    {"ODEBRAL", kText, 50},
    {"FORMA_PLATNOSCI", kLink, 0, "formy_platn.ovd", "NAZWA"},
    {"WARTOSC_NETTO", kDouble},
    {"WARTOSC_BRUTTO", kDouble},
    {"WALUTA", kLink, 0, "waluty.ovd", "SYMBOL"},
    {"KURS", kSingle},
    {"ZAPLACONO", kBoolean},
    {"DATA_ZAPLATY", kDate},
    {"MAGAZYN", kBoolean},  // kept for the format; nothing reads it
    {"ZDFISK", kBoolean},
    {"UWAGI", kText, 500},
    {"MEMO_", kMemo},
    {"KONTO_OPIS", kLong},  // kept for the format; nothing reads it
    {"ADR_TYP", kInteger},
    {"ADR_TEKST", kText, 500},
    {"ABN_HIDE", kBoolean},
    {"ABN_KONIEC", kBoolean},
    {"ABN_KONIEC_DATA", kDate},
    {"ABN_KONIEC_DNI", kLong},
};

constexpr FieldDefinition RateOfRow(const char* name) {
  return {name, kLink, 0, "stawki_vat.ovd", "SYMBOL"};
}

constexpr FieldDefinition kDokZakupuFields[] = {
    {"TYP", kLink, 0, "dokument_kat.ovd", "NAZWA"},
    {"NSTR_DOK", kText, 50},
    {"DATA_WYSTAWIENIA", kDate},
    {"DATA_WPLYWU", kDate},
    {"DATA_ZAKUPU", kDate},
    {"KONTRAHENT", kLink, 0, "kontrahenci.ovd", "NAZWA"},
    {"PRZEDM_OP", kText, 250},
    {"K_NETTO_01", kDouble},
    {"K_BRUTTO_01", kDouble},
    {"K_VAT_01", kDouble},
    RateOfRow("VAT_01"),
    {"K_NETTO_02", kDouble},
    {"K_BRUTTO_02", kDouble},
    {"K_VAT_02", kDouble},
    RateOfRow("VAT_02"),
    {"K_NETTO_03", kDouble},
    {"K_BRUTTO_03", kDouble},
    {"K_VAT_03", kDouble},
    RateOfRow("VAT_03"),
    {"K_NETTO_04", kDouble},
    {"K_BRUTTO_04", kDouble},
    {"K_VAT_04", kDouble},
    RateOfRow("VAT_04"),
    {"K_NETTO_05", kDouble},
    {"K_BRUTTO_05", kDouble},
    {"K_VAT_05", kDouble},
    RateOfRow("VAT_05"),
    {"K_NETTO_06", kDouble},
    {"K_BRUTTO_06", kDouble},
    {"K_VAT_06", kDouble},
    RateOfRow("VAT_06"),
    {"K_NETTO_07", kDouble},
    {"K_BRUTTO_07", kDouble},
    {"K_VAT_07", kDouble},
    RateOfRow("VAT_07"),
    {"K_NETTO_08", kDouble},
    {"K_BRUTTO_08", kDouble},
    {"K_VAT_08", kDouble},
    RateOfRow("VAT_08"),
    {"K_NETTO_09", kDouble},
    {"K_BRUTTO_09", kDouble},
    {"K_VAT_09", kDouble},
    RateOfRow("VAT_09"),
    {"K_NETTO_10", kDouble},
    {"K_BRUTTO_10", kDouble},
    {"K_VAT_10", kDouble},
    RateOfRow("VAT_10"),
    {"WARTOSC_NETTO", kDouble},
    {"WARTOSC_VAT", kDouble},
    {"WARTOSC_BRUTTO", kDouble},
    {"MAGAZYN", kBoolean},  // kept for the format; nothing reads it
    {"USLUGA", kBoolean},
    {"MEMO_", kMemo},
};

constexpr FieldDefinition kFormyPlatnFields[] = {
    {"NAZWA", kText, 25}, {"TERMIN", kInteger}, {"PROCENT", kInteger}, {"PRZELEW", kBoolean}, {"DETAL", kBoolean},
};
constexpr FieldDefinition kGrupaTUFields[] = {{"NAZWA", kText, 30}};
constexpr FieldDefinition kGrupyFields[] = {{"NAZWA", kText, 30}, {"OPIS", kText, 100}};
constexpr FieldDefinition kJednMiaryFields[] = {{"NAZWA", kText, 50}, {"SYMBOL", kText, 10}, {"FORMAT", kText, 25}};
constexpr FieldDefinition kKasyFiskFields[] = {{"NAZWA", kText, 50}, {"MODEL", kText, 25}, {"SYMBOL", kText, 10}};

constexpr FieldDefinition kKontrahenciFields[] = {
    {"SYMBOL", kText, 10},
    {"GRUPA", kLink, 0, "grupy.ovd", "NAZWA"},
    {"NAZWA", kText, 400},
    {"ULICA", kText, 50},
    {"NR_DOMU", kText, 10},
    {"NR_LOKALU", kText, 10},
    {"KOD_POCZTOWY", kText, 20},
    {"MIEJSCOWOSC", kText, 100},
    {"WOJEWODZTWO", kLink, 0, "regiony.ovd", "NAZWA"},
    {"PANSTWO", kLink, 0, "panstwa.ovd", "NAZWA"},
    {"TELEFON", kText, 100},
    {"TEL_KOM", kText, 100},
    {"FAKS", kText, 100},
    {"KRS", kText, 25},
    {"NIP", kText, 15},
    {"NIP_EU", kText, 15},
    {"REGON", kText, 15},
    {"ADRES_WWW", kText, 200},
    {"ADRES_EMAIL", kText, 200},
    {"PRACOWNIK", kText, 50},
    {"BANK_NAZWA", kText, 30},
    {"BANK_SWIFT", kText, 30},
    {"BANK_RACHUNEK", kText, 40},
    {"KONTO_INDYW_OK", kBoolean},
    {"KONTO_INDYW_RACH", kText, 1000},
    {"KONTO_INDYW_OPIS", kText, 500},
    {"D_FORMA_PLAT", kLink, 0, "formy_platn.ovd", "NAZWA"},
    {"UWAGI", kText, 500},
    {"MEMO_", kMemo},
};

constexpr FieldDefinition kOdbiorcyFields[] = {
    {"KONTRAHENT", kLink, 0, "kontrahenci.ovd", "SYMBOL"},
    {"IMIE", kText, 25},
    {"NAZWISKO", kText, 30},
};

constexpr FieldDefinition kPracownicyFields[] = {
    {"PRACOWNIK", kText, 60},
    {"IMIE", kText, 30},
    {"NAZW", kText, 30},
    {"ULICA", kText, 50},
    {"NR_DOMU", kText, 10},
    {"NR_LOKALU", kText, 10},
    {"KOD_POCZTOWY", kText, 20},
    {"MIEJSCOWOSC", kText, 100},
    {"WOJEWODZTWO", kLink, 0, "regiony.ovd", "NAZWA"},
    {"PANSTWO", kLink, 0, "panstwa.ovd", "NAZWA"},
    {"TELEFON", kText, 25},
    {"TEL_KOM", kText, 25},
    {"FAKS", kText, 25},
    {"NIP", kText, 15},
    {"PESEL", kText, 15},
    {"ADRES_WWW", kText, 100},
    {"ADRES_EMAIL", kText, 100},
    {"PRACOWNIK", kText, 50},  // the name is taken by then: the first one stands
    {"BANK_NAZWA", kText, 30},
    {"BANK_SWIFT", kText, 30},
    {"BANK_RACHUNEK", kText, 40},
    {"UWAGI", kText, 500},
    {"MEMO_", kMemo},
};

// As the table is created. The first opening of the company makes ILOSC and the four amounts currency values.
constexpr FieldDefinition kSprzedaneFields[] = {
    {"ID_DOK", kLong},           {"ILOSC", kSingle},       {"NAZWA_T_U", kLink, 0, "towaryuslugi.ovd", "NAZWA"},
    {"CENA_NETTO", kDouble},     {"CENA_BRUTTO", kDouble}, {"WARTOSC_NETTO", kDouble},
    {"WARTOSC_BRUTTO", kDouble}, {"RABAT", kInteger},      {"INFO_DOD", kText, 500},  // kept for the format; nothing reads it
};

constexpr FieldDefinition kStawkiVatFields[] = {{"NAZWA", kText, 30}, {"SYMBOL", kText, 10}, {"WARTOSC", kSingle}};

constexpr FieldDefinition kTowaryUslugiFields[] = {
    {"USLUGA", kBoolean},
    {"SYMBOL", kText, 10},
    {"GRUPA", kLink, 0, "grupa_t_u.ovd", "NAZWA"},
    {"NAZWA", kText, 400},
    {"OPIS", kText, 800},
    {"STAWKA_VAT", kLink, 0, "stawki_vat.ovd", "SYMBOL"},
    {"JEDNOSTKA_MIARY", kLink, 0, "jedn_miary.ovd", "SYMBOL"},
    {"WALUTA", kLink, 0, "waluty.ovd", "SYMBOL"},
    {"CENA_ZAKUPU", kDouble},
    {"DETAL_NETTO", kDouble},
    {"DETAL_BRUTTO", kDouble},
    {"DETAL_NARZUT", kDouble},
    {"DETAL_MARZA", kDouble},
    {"DETAL_ZYSK", kDouble},
    {"HURT_NETTO", kDouble},
    {"HURT_BRUTTO", kDouble},
    {"HURT_NARZUT", kDouble},
    {"HURT_MARZA", kDouble},
    {"HURT_ZYSK", kDouble},
    {"SPEC_NETTO", kDouble},
    {"SPEC_BRUTTO", kDouble},
    {"SPEC_NARZUT", kDouble},
    {"SPEC_MARZA", kDouble},
    {"SPEC_ZYSK", kDouble},
    {"PKWIU", kText, 20},
    {"SWW", kText, 20},
    {"KASA_FISKALNA", kLink, 0, "kasy_fisk.ovd", "SYMBOL"},
    {"KOD_KRESKOWY", kText, 30},
    {"ADRES_WWW", kText, 60},
    {"MAGAZYN_ILOSC", kDouble},
    {"MAGAZYN_WARTOSC", kDouble},
    {"MAG_SP_ILOSC", kDouble},
    {"MAG_SP_WARTOSC", kDouble},  // kept for the format
    {"UWAGI", kText, 500},
    {"MEMO_", kMemo},
    {"ABONAMENT", kBoolean},
    {"ABILOSCDNI", kInteger},
    {"ABINFOKONIEC", kInteger},
    {"NOWYDOKPKAB", kBoolean},  // kept for the format; nothing reads it
};

constexpr FieldDefinition kPanstwaFields[] = {{"NAZWA", kText, 60}, {"SKROT", kText, 10}};
constexpr FieldDefinition kRegionyFields[] = {{"KOD", kInteger}, {"NAZWA", kText, 30}, {"PANSTWO", kLink, 0, "panstwa.ovd", "NAZWA"}};
constexpr FieldDefinition kDokumentKatFields[] = {
    {"NAZWA", kText, 25}, {"DRUK_TYT", kText, 25}, {"FORMAT", kText, 150}, {"ZESTAW", kInteger}, {"OPCJE", kText, 250},
};
constexpr FieldDefinition kWalutyFields[] = {
    {"NAZWA", kText, 50},     {"SYMBOL", kText, 10}, {"KODWAL", kText, 25}, {"FORMAT", kText, 25},
    {"FORMATNCH", kText, 25}, {"KURS", kSingle},     {"ODM", kText, 500},
};
constexpr FieldDefinition kZestawienieFields[] = {
    {"S1", kText, 200}, {"S2", kText, 200}, {"S3", kText, 200}, {"S4", kText, 200}, {"S5", kText, 200},
    {"D1", kDouble},    {"D2", kDouble},    {"D3", kDouble},    {"D4", kDouble},    {"D5", kDouble},
    {"L1", kLong},      {"L2", kLong},      {"L3", kLong},      {"L4", kLong},      {"L5", kLong},
};

constexpr std::array<TableDefinition, kTableCount> kTables{{
    {kFirma, "firma.ovd", 0, kFirmaFields},
    {kDokSprzed, "dok_sprzed.ovd", 6, kDokSprzedFields},
    {kDokZakupu, "dok_zakupu.ovd", 10, kDokZakupuFields},
    {kFormyPlatn, "formy_platn.ovd", 13, kFormyPlatnFields},
    {kGrupaTU, "grupa_t_u.ovd", 17, kGrupaTUFields},
    {kGrupy, "grupy.ovd", 20, kGrupyFields},
    {kJednMiary, "jedn_miary.ovd", 23, kJednMiaryFields},
    {kKasyFisk, "kasy_fisk.ovd", 27, kKasyFiskFields},
    {kKontrahenci, "kontrahenci.ovd", 33, kKontrahenciFields},
    {kOdbiorcy, "odbiorcy.ovd", 40, kOdbiorcyFields},
    {kPracownicy, "pracownicy.ovd", 44, kPracownicyFields},
    {kSprzedane, "sprzedane.ovd", 48, kSprzedaneFields},
    {kStawkiVat, "stawki_vat.ovd", 52, kStawkiVatFields},
    {kTowaryUslugi, "towaryuslugi.ovd", 58, kTowaryUslugiFields},
    {kPanstwa, "panstwa.ovd", 66, kPanstwaFields},
    {kRegiony, "regiony.ovd", 70, kRegionyFields},
    {kDokumentKat, "dokument_kat.ovd", 73, kDokumentKatFields},
    {kWaluty, "waluty.ovd", 75, kWalutyFields},
    {kZestawienieQ00, "zestawienie.q00", 90, kZestawienieFields},
    {kZestawienieQ00 + 1, "zestawienie.q01", 91, kZestawienieFields},
    {kZestawienieQ00 + 2, "zestawienie.q02", 92, kZestawienieFields},
    {kZestawienieQ00 + 3, "zestawienie.q03", 93, kZestawienieFields},
    {kZestawienieQ00 + 4, "zestawienie.q04", 94, kZestawienieFields},
    {kZestawienieQ00 + 5, "zestawienie.q05", 95, kZestawienieFields},
    {kZestawienieQ00 + 6, "zestawienie.q06", 96, kZestawienieFields},
    {kZestawienieQ00 + 7, "zestawienie.q07", 97, kZestawienieFields},
    {kZestawienieQ00 + 8, "zestawienie.q08", 98, kZestawienieFields},
    {kZestawienieQ09, "zestawienie.q09", 99, kZestawienieFields},
}};

constexpr std::array<int, kTableCount> kOpeningOrder{
    kFirma,
    kDokSprzed,
    kDokZakupu,
    kFormyPlatn,
    kGrupaTU,
    kGrupy,
    kJednMiary,
    kKasyFisk,
    kKontrahenci,
    kOdbiorcy,
    kPanstwa,
    kPracownicy,
    kSprzedane,
    kStawkiVat,
    kTowaryUslugi,
    kRegiony,
    kDokumentKat,
    kWaluty,
    21,
    22,
    23,
    24,
    25,
    26,
    27,
    28,
    29,
    kZestawienieQ09,
};

}  // namespace

const std::array<TableDefinition, kTableCount>& TableDefinitions() {
  return kTables;
}
const std::array<int, kTableCount>& OpeningOrder() {
  return kOpeningOrder;
}

const TableDefinition* FindTable(int number) {
  for (const TableDefinition& table : kTables) {
    if (table.number == number) return &table;
  }
  return nullptr;
}

std::string TableFile(int number) {
  const TableDefinition* table = FindTable(number);
  return table ? table->file : "";
}

const FieldDefinition* FindField(const TableDefinition& table, std::string_view name) {
  for (const FieldDefinition& field : table.fields) {
    if (field.name == name) return &field;
  }
  return nullptr;
}

FieldType TypeWhenOpened(const TableDefinition& table, const FieldDefinition& field) {
  const bool number = field.type == kSingle || field.type == kDouble;
  return table.number == kSprzedane && number ? kCurrency : field.type;
}

}  // namespace ostrinka
