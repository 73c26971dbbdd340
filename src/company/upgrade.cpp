// OSTEngine::tdb_DataBaseDebug: brings the tables of an older company to the present fields.
//
// Each step works on private tables opened without links, so that a structure change finds itself the only user of its file. A step can be
// repeated: what is in place already is left alone, and a change that stopped halfway goes on where it stopped, to the same end. When the
// system wants the program to end, the upgrade stops after the change it is at.

#include <algorithm>
#include <optional>
#include <set>

#include "base/text.h"
#include "company/firma_record.h"
#include "company/ost_engine.h"
#include "company/table_definitions.h"

namespace ostrinka {
namespace {

struct Upgrade {
  Program& program;
  std::string folder, user, password;
  std::set<int> refused = {};  // tables that could not be opened, or in which a change failed
  int current = 0;             // the table that is being changed
  bool stopped = false;

  bool Open(int number, ClassQDBASE& table) {
    current = number;
    return table.DATABASE_OPEN(folder + TableFile(number), user, password, false, false, false) || Refused();
  }
  bool Refused() {
    refused.insert(current);
    return false;
  }
  bool Stopped() {
    stopped = stopped || program.platform.ui.EndWanted();
    return stopped;
  }
};

// A field that gets another type or length: built beside the old one under `interim`, then renamed.
struct NewShape {
  const char* name;
  const char* interim;
  FieldType type;
  int32_t length;
};
using Shapes = std::vector<NewShape>;

bool AddField(Upgrade& upgrade, ClassQDBASE& table, const char* name, FieldType type, int32_t length = 0, const char* link_file = "",
              const char* link_field = "") {
  if (table.FIELD_EXISTS(name)) return true;
  return !upgrade.Stopped() && (table.FIELD_ADD(name, type, length, link_file, link_field) || upgrade.Refused());
}

bool DeleteField(Upgrade& upgrade, ClassQDBASE& table, const char* name) {
  return !upgrade.Stopped() && (table.FIELD_DELETE(name) || upgrade.Refused());
}

// Adds fields in the shape that a new table has.
void AddMissing(Upgrade& upgrade, ClassQDBASE& table, int number, std::initializer_list<const char*> names) {
  const TableDefinition& definition = *FindTable(number);
  for (const char* name : names) {
    const FieldDefinition& field = *FindField(definition, name);
    AddField(upgrade, table, name, field.type, field.length, field.link_file, field.link_field);
  }
}

// Every record by number, deleted ones too; `change` tells whether the loaded record is to be saved. From the first one on that is, the
// table is kept for this object alone: what another workstation saved in between would be lost.
template <typename Change>
bool ChangeRecords(Upgrade& upgrade, ClassQDBASE& table, Change change) {
  bool saved = true;
  std::optional<SoleUse> alone;
  const int32_t count = table.RECORD_COUNT();
  constexpr int32_t kTold = 4096;  // records between two words on how far it is
  for (int32_t n = 1; n <= count; ++n) {
    if ((n == 1 || n % kTold == 0) && upgrade.Stopped()) return false;
    if (n % kTold == 0) {
      upgrade.program.Status(upgrade.program.Text("mdi.pleasewait") + " " + std::to_string(int64_t{n} * 100 / count) + " %");
      upgrade.program.platform.ui.TurnEvents();
    }
    if (!table.RECORD_LOAD(n)) {
      saved = false;
    } else if (change(n)) {
      if (!alone) {
        alone.emplace(table);
        saved = alone->held() && saved;
        if (!alone->held()) break;
        if (!table.RECORD_LOAD(n) || !change(n)) continue;
      }
      saved = table.RECORD_SAVE(n) && saved;
    }
  }
  return saved || upgrade.Refused();
}

// A value that the new type cannot hold becomes 0 instead of stopping the record.
Value Converted(const Value& value, FieldType type) {
  return type == kCurrency ? Value(CurrencyOr0(value)) : value;
}

bool Has(ClassQDBASE& table, const char* name) {
  return table.FIELD_EXISTS(name);
}

// The last part of a rebuild: what has only its interim name gets its own. False when one could not: no empty field may take its place.
bool FinishRenames(Upgrade& upgrade, ClassQDBASE& table, const Shapes& shapes) {
  bool done = true;
  for (const NewShape& shape : shapes) {
    if (Has(table, shape.name) || !Has(table, shape.interim)) continue;
    if (upgrade.Stopped()) return false;
    done = (table.FIELD_RENAME(shape.interim, shape.name, true) || upgrade.Refused()) && done;
  }
  return done;
}

// Whether an earlier run left the rebuild of these fields unfinished.
bool IsBegun(ClassQDBASE& table, const Shapes& shapes) {
  return std::any_of(shapes.begin(), shapes.end(), [&](const NewShape& shape) { return Has(table, shape.interim); });
}

// Builds the fields anew, or goes on where an earlier run stopped. Interim fields are added in the order of `shapes`, filled, the old
// fields deleted, and all renamed in that order: so as long as the last interim field is missing while others stand there, adding has not
// ended.
void Rebuild(Upgrade& upgrade, ClassQDBASE& table, const Shapes& shapes) {
  const SoleUse alone(table);
  if (!alone.held()) {
    upgrade.Refused();
    return;
  }
  if (!Has(table, shapes.back().interim)) {
    for (const NewShape& shape : shapes) {
      if (!AddField(upgrade, table, shape.interim, shape.type, shape.length)) return;
    }
  }
  table.UPDATE(true);
  Shapes left;  // with their old fields; of the others nothing is left to copy
  for (const NewShape& shape : shapes) {
    if (Has(table, shape.name) && Has(table, shape.interim)) left.push_back(shape);
  }
  bool set = true;
  const bool copied = left.empty() || ChangeRecords(upgrade, table, [&](int32_t) {
                        for (const NewShape& shape : left) {
                          set = table.FIELD(shape.interim, Converted(table.FieldRaw(shape.name), shape.type)) && set;
                        }
                        return true;
                      });
  if (!set) upgrade.Refused();
  if (!copied || !set) return;  // the old fields stay: nothing is lost
  for (const NewShape& shape : left) {
    if (!DeleteField(upgrade, table, shape.name)) return;
  }
  table.UPDATE(true);
  FinishRenames(upgrade, table, shapes);
}

int32_t LengthOf(ClassQDBASE& table, const char* field) {
  return table.FIELD_EXISTS(field) ? table.FIELD_LEN(field) : 0;
}
int32_t TypeOf(ClassQDBASE& table, const char* field) {
  return table.FIELD_EXISTS(field) ? table.FIELD_TYPE(field) : 0;
}

// Rebuilds a text that is shorter than `length`.
void Widen(Upgrade& upgrade, ClassQDBASE& table, const char* name, const char* interim, int32_t length) {
  const Shapes shapes{{name, interim, kText, length}};
  if (LengthOf(table, name) < length || IsBegun(table, shapes)) Rebuild(upgrade, table, shapes);
}

// --- the steps, in their order

void UpgradeCompanyRecord(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform);
  if (!upgrade.Open(kFirma, table)) return;
  // The field that tells that the formats are filled gets its name when they are.
  const bool had_formats = table.FIELD_EXISTS("FORMAT_DATA_EKR");
  const FieldDefinition& screen = *FindField(*FindTable(kFirma), "FORMAT_DATA_EKR");
  if (!had_formats && !AddField(upgrade, table, "FORMAT_EKR_2", screen.type, screen.length)) return;
  AddMissing(upgrade, table, kFirma,
             {"FORMAT_DATA_WYD", "FORMAT_PROCENTY", "B_SWIFT", "S_KRAJS", "K_STWWW", "B_KONTO_D1", "B_KONTO_D2", "B_KONTO_D3", "B_KONTO_D4",
              "B_KONTO_OPIS_1", "B_KONTO_OPIS_2", "B_KONTO_OPIS_3", "B_KONTO_OPIS_4", "F_NRKRS", "F_NIPEU"});
  if (upgrade.Stopped() || !upgrade.refused.empty()) return;
  if (!EnsureCompanyRecord(upgrade.program, table)) upgrade.Refused();
  if (had_formats || !table.RECORD_LOAD(1)) return;
  if (!FillFormats(upgrade.program, table, "FORMAT_EKR_2") || !table.RECORD_SAVE(1)) {
    upgrade.Refused();
    return;
  }
  upgrade.program.settings.SaveSettingValue(kCommon, "strFormat", "Currency", std::string("0.00##"));
  FinishRenames(upgrade, table, {{"FORMAT_DATA_EKR", "FORMAT_EKR_2", screen.type, screen.length}});
}

void UpgradeSalesDocuments(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform);
  if (!upgrade.Open(kDokSprzed, table)) return;
  AddMissing(upgrade, table, kDokSprzed, {"DATA_SPRZED_CK", "DATA_SPRZED_DO", "PLATNIK", "DOTYCZY", "DATA_ZAPLATY"});
  if (table.FIELD_EXISTS("KOREKTA") && TypeOf(table, "KOREKTA") != kLong) DeleteField(upgrade, table, "KOREKTA");
  if (!FinishRenames(upgrade, table, {{"UWAGI", "UWAGI_2", kText, 500}})) return;
  AddMissing(upgrade, table, kDokSprzed,
             {"KOREKTA", "WALUTA", "KURS", "UWAGI", "ZDFISK", "MEMO_", "KONTO_OPIS", "ADR_TYP", "ADR_TEKST", "ABN_HIDE", "ABN_KONIEC",
              "ABN_KONIEC_DATA", "ABN_KONIEC_DNI"});
  ChangeRecords(upgrade, table, [&](int32_t) {
    const bool no_currency = table.Int(".WALUTA") <= 0, no_rate = !(table.Real("KURS") > 0);
    if (no_currency && !table.FIELD("WALUTA", int32_t{1})) upgrade.Refused();
    if (no_rate && !table.FIELD("KURS", 1.0F)) upgrade.Refused();
    return no_currency || no_rate;
  });
  Widen(upgrade, table, "UWAGI", "UWAGI_2", 500);
}

void AddToTable(Upgrade& upgrade, int number, const char* field) {
  ClassQDBASE table(upgrade.program.platform);
  if (upgrade.Open(number, table)) AddMissing(upgrade, table, number, {field});
}

void UpgradeSmallTables(Upgrade& upgrade) {
  AddToTable(upgrade, kDokZakupu, "MEMO_");
  AddToTable(upgrade, kFormyPlatn, "PRZELEW");
  AddToTable(upgrade, kJednMiary, "FORMAT");
}

void UpgradeCustomers(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform);
  if (!upgrade.Open(kKontrahenci, table)) return;
  Widen(upgrade, table, "NAZWA", "NAZWA_2", 400);
  Widen(upgrade, table, "UWAGI", "UWAGI_2", 500);
  Widen(upgrade, table, "KOD_POCZTOWY", "KOD_POCZTOWY_2", 20);
  const Shapes contact{{"KONTO_INDYW_RACH", "KONTO_INDYW_R2", kText, 1000},
                       {"TELEFON", "TELEFON_2", kText, 100},
                       {"TEL_KOM", "TEL_KOM_2", kText, 100},
                       {"FAKS", "FAKS_2", kText, 100},
                       {"ADRES_WWW", "ADRES_WWW_2", kText, 200},
                       {"ADRES_EMAIL", "ADRES_EMAIL_2", kText, 200}};
  bool shorter = IsBegun(table, contact);
  for (const NewShape& shape : contact) shorter = shorter || LengthOf(table, shape.name) < shape.length;
  if (shorter) Rebuild(upgrade, table, contact);
  if (IsBegun(table, contact)) return;
  AddMissing(upgrade, table, kKontrahenci,
             {"D_FORMA_PLAT", "KONTO_INDYW_OK", "KONTO_INDYW_RACH", "KONTO_INDYW_OPIS", "BANK_SWIFT", "NIP_EU", "KRS", "MEMO_"});
}

void UpgradeEmployees(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform);
  if (!upgrade.Open(kPracownicy, table)) return;
  if (!FinishRenames(upgrade, table, {{"UWAGI", "UWAGI_2", kText, 500}, {"KOD_POCZTOWY", "KOD_POCZTOWY_2", kText, 20}})) return;
  for (const FieldDefinition& field : FindTable(kPracownicy)->fields) AddMissing(upgrade, table, kPracownicy, {field.name});
  Widen(upgrade, table, "UWAGI", "UWAGI_2", 500);
  Widen(upgrade, table, "KOD_POCZTOWY", "KOD_POCZTOWY_2", 20);
}

void UpgradeArticles(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform);
  if (!upgrade.Open(kTowaryUslugi, table)) return;
  if (!FinishRenames(upgrade, table, {{"UWAGI", "UWAGI_2", kText, 500}})) return;
  AddMissing(upgrade, table, kTowaryUslugi,
             {"WALUTA", "MAGAZYN_WARTOSC", "MAG_SP_ILOSC", "MAG_SP_WARTOSC", "UWAGI", "MEMO_", "ABONAMENT", "ABILOSCDNI", "ABINFOKONIEC",
              "NOWYDOKPKAB"});
  ChangeRecords(upgrade, table, [&](int32_t) {
    if (table.Int(".WALUTA") > 0) return false;
    return table.FIELD("WALUTA", int32_t{1});
  });
  Widen(upgrade, table, "PKWIU", "PKWIU_2", 20);
  Widen(upgrade, table, "SWW", "SWW_2", 20);
  Widen(upgrade, table, "NAZWA", "NAZWA_2", 400);
  Widen(upgrade, table, "OPIS", "OPIS_2", 800);
  Widen(upgrade, table, "UWAGI", "UWAGI_2", 500);
}

bool IsFloat(ClassQDBASE& table, const char* field) {
  const int32_t type = TypeOf(table, field);
  return type == kDouble || type == kSingle;
}

void UpgradeDocumentLines(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform);
  if (!upgrade.Open(kSprzedane, table)) return;
  const Shapes amounts{{"ILOSC", "ILOSC_2", kCurrency, 0},
                       {"CENA_NETTO", "CENA_NETTO_2", kCurrency, 0},
                       {"CENA_BRUTTO", "CENA_BRUTTO_2", kCurrency, 0},
                       {"WARTOSC_NETTO", "WARTOSC_NETTO_2", kCurrency, 0},
                       {"WARTOSC_BRUTTO", "WARTOSC_BRUTTO_2", kCurrency, 0}};
  // Before the missing fields are added, lest an empty CENA_NETTO take the place of a converted one.
  if (IsFloat(table, "ILOSC") || IsBegun(table, amounts)) Rebuild(upgrade, table, amounts);
  Shapes rest;  // beside a quantity that is a currency value already
  for (const NewShape& shape : amounts) {
    if (IsFloat(table, shape.name)) rest.push_back(shape);
  }
  if (!IsFloat(table, "ILOSC") && !rest.empty()) Rebuild(upgrade, table, rest);
  if (IsBegun(table, amounts)) return;
  AddMissing(upgrade, table, kSprzedane, {"INFO_DOD"});
  AddField(upgrade, table, "CENA_NETTO", kCurrency);
  AddField(upgrade, table, "CENA_BRUTTO", kCurrency);
  AddMissing(upgrade, table, kSprzedane, {"RABAT"});
}

// Percent of the rate of an article, also a deleted one; 0 where a link leads nowhere.
double RateOfArticle(ClassQDBASE& articles, ClassQDBASE& rates, int32_t article) {
  if (article < 1 || !articles.RECORD_LOAD(article)) return 0;
  const int32_t rate = articles.Int(".STAWKA_VAT");
  return rate >= 1 && rates.RECORD_LOAD(rate) ? rates.Real("WARTOSC") : 0;
}

// Very old lines have a single price, CENA: the net one.
void UpgradeSinglePrice(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform), articles(upgrade.program.platform), rates(upgrade.program.platform);
  if (!upgrade.Open(kSprzedane, table) || !table.FIELD_EXISTS("CENA")) return;
  const SoleUse alone(table);
  if (!alone.held()) {
    upgrade.Refused();
    return;
  }
  if (!upgrade.Open(kTowaryUslugi, articles) || !upgrade.Open(kStawkiVat, rates)) return;
  upgrade.current = kSprzedane;
  if (!table.FIELD_EXISTS("CENA_NETTO") || !table.FIELD_EXISTS("CENA_BRUTTO")) return;
  bool set = true;
  const bool copied = ChangeRecords(upgrade, table, [&](int32_t) {
    const Value price = table.FieldRaw("CENA");
    const double rate = RateOfArticle(articles, rates, table.Int(".NAZWA_T_U"));
    const Currency gross = Currency::FromDouble(DoubleOr0(price) * (1 + rate / 100)).value_or(Currency());
    set = table.FIELD("CENA_NETTO", CurrencyOr0(price)) && table.FIELD("CENA_BRUTTO", gross) && set;
    return true;
  });
  if (!set) upgrade.Refused();
  if (copied && set) DeleteField(upgrade, table, "CENA");
}

void UpgradeRegions(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform);
  if (!upgrade.Open(kRegiony, table) || table.FIELD_EXISTS("KOD")) return;
  // Under its name only when it is filled: one that is there already is taken for filled.
  const FieldDefinition& code = *FindField(*FindTable(kRegiony), "KOD");
  if (!AddField(upgrade, table, "KOD_2", code.type, code.length)) return;
  // Kept: by the place in the table, renamed and added regions too; the official codes of the seeded ones are the even numbers in their
  // order.
  if (!ChangeRecords(upgrade, table, [&](int32_t n) { return table.FIELD("KOD_2", 2 * n); })) return;
  FinishRenames(upgrade, table, {{"KOD", "KOD_2", code.type, code.length}});
}

void UpgradeCurrencies(Upgrade& upgrade) {
  ClassQDBASE table(upgrade.program.platform);
  if (!upgrade.Open(kWaluty, table)) return;
  AddMissing(upgrade, table, kWaluty, {"FORMATNCH"});
  if (!table.FIELD_EXISTS("FORMATNCH")) return;
  ChangeRecords(upgrade, table, [&](int32_t) {
    if (!Trim(table.Text("FORMATNCH")).empty()) return false;
    return table.FIELD("FORMATNCH", std::string("0.00"));
  });
}

// The work tables only have to open; one that does not is passed over.
void TouchWorkTables(Upgrade& upgrade) {
  for (const TableDefinition& definition : TableDefinitions()) {
    if (definition.number < kZestawienieQ09 || definition.number == kFirma) continue;
    ClassQDBASE table(upgrade.program.platform);
    table.DATABASE_OPEN(upgrade.folder + definition.file, upgrade.user, upgrade.password, false, false, false);
    table.DATABASE_CLOSE();
  }
}

constexpr void (*kSteps[])(Upgrade&) = {
    UpgradeCompanyRecord, UpgradeSalesDocuments, UpgradeSmallTables, UpgradeCustomers,  UpgradeEmployees, UpgradeArticles,
    UpgradeDocumentLines, UpgradeSinglePrice,    UpgradeRegions,     UpgradeCurrencies, TouchWorkTables,
};

}  // namespace

void OSTEngine::tdb_DataBaseDebug(const std::string& path, const std::string& user, const std::string& password, bool& ok) {
  Upgrade upgrade{program_, Folder(path), user, password};
  for (const auto& run : kSteps) {
    if (!upgrade.Stopped()) run(upgrade);
  }
  refused_ = upgrade.refused;
  ok = refused_.empty() && !upgrade.stopped;
}

}  // namespace ostrinka
