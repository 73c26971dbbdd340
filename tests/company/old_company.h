// A company as an early program left it: every table in an older shape, with rows.
#pragma once

#include <map>
#include <set>

#include "company/company_fixture.h"

namespace ostrinka {

// How a table differs from its definition.
struct OlderShape {
  int number;
  std::set<std::string> missing;
  std::map<std::string, int32_t> lengths;
  std::map<std::string, FieldType> types;
  std::vector<std::pair<std::string, FieldType>> further;
  std::vector<std::vector<std::pair<const char*, Value>>> rows;
};

inline Value Words(const char* text) {
  return std::string(text);
}

inline std::vector<OlderShape> OlderShapes() {
  return {
      {kFirma,
       {"FORMAT_DATA_EKR", "FORMAT_DATA_WYD", "FORMAT_PROCENTY", "B_SWIFT"},
       {},
       {},
       {},
       {{{"S_NAZWA", Words("Żuraw")}, {"S_MIAST", Words("Łódź")}}}},
      {kDokSprzed,
       {"PLATNIK", "WALUTA", "KURS", "MEMO_", "ABN_KONIEC"},
       {{"UWAGI", 100}},
       {{"KOREKTA", kBoolean}},
       {},
       {{{"NR_DOK", int32_t{7}}, {"UWAGI", Words("pilne")}, {"KOREKTA", true}}, {{"NR_DOK", int32_t{8}}, {"WARTOSC_NETTO", 12.5}}}},
      {kKontrahenci,
       {"D_FORMA_PLAT", "KONTO_INDYW_RACH", "MEMO_"},
       {{"NAZWA", 100}, {"UWAGI", 250}, {"KOD_POCZTOWY", 6}, {"TELEFON", 25}, {"TEL_KOM", 25}, {"FAKS", 25}, {"ADRES_WWW", 60}},
       {},
       {},
       {{{"NAZWA", Words("Łękowski i Wspólnicy")}, {"FAKS", Words("22 2")}, {"TELEFON", Words("22 1")}, {"ADRES_EMAIL", Words("a@a.pl")}},
        {{"NAZWA", Words("Dąb")}, {"UWAGI", Words("stały")}, {"KOD_POCZTOWY", Words("00-950")}}}},
      {kPracownicy, {"KOD_POCZTOWY"}, {{"UWAGI", 250}}, {}, {}, {{{"PRACOWNIK", Words("Ćwik")}, {"UWAGI", Words("kierownik")}}}},
      {kSprzedane,
       {"CENA_NETTO", "CENA_BRUTTO", "INFO_DOD", "RABAT"},
       {},
       {},
       {{"CENA", kDouble}},
       {{{"ID_DOK", int32_t{1}}, {"ILOSC", 3.0F}, {"NAZWA_T_U", int32_t{1}}, {"CENA", 10.05}, {"WARTOSC_NETTO", 30.15}},
        {{"ID_DOK", int32_t{2}}, {"ILOSC", 0.1F}, {"CENA", 100.0}, {"WARTOSC_BRUTTO", 10.7}}}},
      {kTowaryUslugi,
       {"WALUTA", "MEMO_"},
       {{"PKWIU", 10}, {"OPIS", 200}},
       {},
       {},
       {{{"NAZWA", Words("Śruba")}, {"OPIS", Words("ocynk")}, {"STAWKA_VAT", int32_t{1}}, {"PKWIU", Words("28.7")}}}},
      {kRegiony, {"KOD"}, {}, {}, {}, {{{"NAZWA", Words("śląskie")}}, {{"NAZWA", Words("inne")}}}},
      {kWaluty, {"FORMATNCH"}, {}, {}, {}, {{{"NAZWA", Words("złoty")}, {"FORMAT", Words("0.00 zł")}, {"KURS", 1.0F}}}},
  };
}

class OldCompanyTest : public FolderTest {
 protected:
  // Puts a table of the older shape in the place of the new one.
  void MakeOlder(const OlderShape& shape) {
    const TableDefinition& definition = *FindTable(shape.number);
    surroundings.files.Remove(folder + definition.file);
    ClassQDBASE table(surroundings.platform);
    ASSERT_TRUE(table.DATABASE_OPEN(folder + definition.file, "kreda", "kreda", true, false, false));
    for (const FieldDefinition& field : definition.fields) {
      if (shape.missing.count(field.name) || table.FIELD_EXISTS(field.name)) continue;
      const auto length = shape.lengths.find(field.name);
      const auto type = shape.types.find(field.name);
      ASSERT_TRUE(table.FIELD_ADD(field.name, type == shape.types.end() ? field.type : type->second,
                                  length == shape.lengths.end() ? field.length : length->second, field.link_file, field.link_field))
          << field.name;
    }
    for (const auto& [name, type] : shape.further) ASSERT_TRUE(table.FIELD_ADD(name, type, 0, "", ""));
    for (const auto& row : shape.rows) {
      ASSERT_TRUE(table.RECORD_ADD() && table.RECORD_LOAD(table.RECORD_ADDED()));
      for (const auto& [field, value] : row) EXPECT_TRUE(table.FIELD(field, value)) << field;
      ASSERT_TRUE(table.RECORD_SAVE(table.RECORD_ADDED()));
    }
  }
};

}  // namespace ostrinka
