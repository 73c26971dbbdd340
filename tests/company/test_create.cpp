#include "company/company_fixture.h"

namespace ostrinka {
namespace {

// Widths and counts reckoned by hand from the field lists: 2 status bytes and the widths of all fields.
struct Shape {
  const char* file;
  int fields, record_length, records;
};
constexpr Shape kNewTables[] = {
    {"firma.ovd", 31, 8336, 0},       {"dok_sprzed.ovd", 32, 1186, 0},   {"dok_zakupu.ovd", 53, 646, 0},   {"formy_platn.ovd", 5, 35, 6},
    {"grupa_t_u.ovd", 1, 32, 1},      {"grupy.ovd", 2, 132, 4},          {"jedn_miary.ovd", 3, 87, 4},     {"kasy_fisk.ovd", 3, 87, 0},
    {"kontrahenci.ovd", 29, 3544, 0}, {"odbiorcy.ovd", 3, 61, 1},        {"pracownicy.ovd", 22, 1229, 1},  {"sprzedane.ovd", 9, 548, 0},
    {"stawki_vat.ovd", 3, 46, 7},     {"towaryuslugi.ovd", 39, 2036, 0}, {"panstwa.ovd", 2, 72, 1},        {"regiony.ovd", 3, 38, 16},
    {"dokument_kat.ovd", 5, 454, 5},  {"waluty.ovd", 7, 641, 3},         {"zestawienie.q00", 15, 1062, 0}, {"zestawienie.q01", 15, 1062, 0},
    {"zestawienie.q02", 15, 1062, 0}, {"zestawienie.q03", 15, 1062, 0},  {"zestawienie.q04", 15, 1062, 0}, {"zestawienie.q05", 15, 1062, 0},
    {"zestawienie.q06", 15, 1062, 0}, {"zestawienie.q07", 15, 1062, 0},  {"zestawienie.q08", 15, 1062, 0}, {"zestawienie.q09", 15, 1062, 0},
};

TEST_F(FolderTest, ANewCompanyHasTwentyEightTablesOfTheRightShape) {
  ASSERT_TRUE(Create());
  EXPECT_EQ(surroundings.files.ListFiles(folder).size(), 28u);
  for (const Shape& shape : kNewTables) {
    ClassQDBASE table(surroundings.platform);
    ASSERT_TRUE(OpenFile(table, shape.file)) << shape.file << table.last_error();
    EXPECT_EQ(table.FIELD_COUNT(), shape.fields) << shape.file;
    EXPECT_EQ(table.RECORD_LENGTH(), shape.record_length) << shape.file;
    EXPECT_EQ(table.RECORD_COUNT(), shape.records) << shape.file;
  }
}

TEST_F(FolderTest, FieldsStandInTheStatedOrderWithTheirLinks) {
  ASSERT_TRUE(Create());
  ClassQDBASE purchases(surroundings.platform), employees(surroundings.platform), sales(surroundings.platform);
  ASSERT_TRUE(OpenFile(purchases, "dok_zakupu.ovd") && OpenFile(employees, "pracownicy.ovd") && OpenFile(sales, "dok_sprzed.ovd"));
  EXPECT_EQ(purchases.FIELD_NAME(8) + purchases.FIELD_NAME(9) + purchases.FIELD_NAME(10) + purchases.FIELD_NAME(11),
            "K_NETTO_01K_BRUTTO_01K_VAT_01VAT_01");
  EXPECT_EQ(purchases.FIELD_NAME(47), "VAT_10");
  EXPECT_EQ(purchases.FIELD_LFILE(47) + "." + purchases.FIELD_LFIELD(47), "stawki_vat.ovd.SYMBOL");
  EXPECT_EQ(employees.FIELD_LEN("PRACOWNIK"), 60);  // the second one of that name is not created
  EXPECT_EQ(employees.FIELD_NAME(18), "BANK_NAZWA");
  EXPECT_EQ(sales.FIELD_LFILE(11) + "." + sales.FIELD_LFIELD(11), "kontrahenci.ovd.NAZWA");
  EXPECT_EQ(sales.FIELD_TYPE("KURS"), kSingle);
}

TEST_F(FolderTest, SeedRowsStandUnderTheirRecordNumbers) {
  ASSERT_TRUE(Create());
  const struct {
    const char* file;
    int32_t record;
    std::initializer_list<const char*> fields;
    const char* row;
  } rows[] = {
      {"formy_platn.ovd", 1, {"NAZWA", "TERMIN", "PROCENT", "PRZELEW", "DETAL"}, "Gotówka|0|100|False|False"},
      {"formy_platn.ovd", 5, {"NAZWA", "TERMIN", "PROCENT", "PRZELEW", "DETAL"}, "Kredyt częściowy 14 dni|14|50|True|False"},
      {"grupy.ovd", 3, {"NAZWA", "OPIS"}, "Spóźnieni|"},
      {"jedn_miary.ovd", 2, {"NAZWA", "SYMBOL", "FORMAT"}, "metr bieżący|m.b.|#2"},
      {"jedn_miary.ovd", 4, {"NAZWA", "SYMBOL", "FORMAT"}, "brak|-|\\"},
      {"stawki_vat.ovd", 1, {"NAZWA", "SYMBOL", "WARTOSC"}, "Podatek podstawowy VAT 22%|22%|22"},
      {"stawki_vat.ovd", 6, {"NAZWA", "SYMBOL", "WARTOSC"}, "Podatek VAT eksportowy|ex|0"},
      {"stawki_vat.ovd", 7, {"NAZWA", "SYMBOL", "WARTOSC"}, "Podatek VAT 12%|12%|12"},
      {"panstwa.ovd", 1, {"NAZWA", "SKROT"}, "Polska|PL"},
      {"regiony.ovd", 5, {"KOD", "NAZWA", "PANSTWO"}, "10|łódzkie|1"},
      {"regiony.ovd", 9, {"KOD", "NAZWA", "PANSTWO"}, "18|podkarpackie|1"},
      {"regiony.ovd", 16, {"KOD", "NAZWA", "PANSTWO"}, "32|zachodnio - pomorskie|1"},
      {"dokument_kat.ovd",
       3,
       {"NAZWA", "DRUK_TYT", "FORMAT", "ZESTAW", "OPCJE"},
       "Faktura korygująca|Faktura VAT korygująca|Nr [nr] / yyyy|1|+FK"},
      {"dokument_kat.ovd", 5, {"NAZWA", "DRUK_TYT", "FORMAT", "ZESTAW", "OPCJE"}, "Rachunek|Rachunek|Nr [nr] / yyyy|0|+R"},
      {"waluty.ovd", 1, {"NAZWA", "SYMBOL", "KODWAL", "FORMAT", "FORMATNCH", "KURS"}, "Polski złoty|zł|PLN|0.00 zł|0.00|1"},
      {"waluty.ovd", 1, {"ODM"}, "złotych, złoty, złote , złotych / groszy, grosz, grosze ,groszy"},
      {"waluty.ovd", 2, {"NAZWA", "SYMBOL", "KODWAL", "FORMAT", "FORMATNCH", "KURS"}, "Euro|€|EUR|€0.00|0.00|3,5"},
      {"waluty.ovd", 3, {"SYMBOL", "KODWAL", "FORMAT", "KURS"}, "$|USD|$0.00|2,7"},
      {"pracownicy.ovd", 1, {"PRACOWNIK", "UWAGI", "PANSTWO"}, "||0"},
  };
  for (const auto& expected : rows) {
    ClassQDBASE table(surroundings.platform);
    ASSERT_TRUE(OpenFile(table, expected.file)) << expected.file;
    EXPECT_EQ(Row(table, expected.record, expected.fields), expected.row) << expected.file;
  }
}

TEST_F(FolderTest, CreatingAgainAddsNothingAndReportsEveryFile) {
  ASSERT_TRUE(Create(false));
  EXPECT_TRUE(surroundings.ui.messages.empty());
  ASSERT_EQ(surroundings.ui.status.size(), 29u);
  EXPECT_EQ(surroundings.ui.status.front(), "00% .");
  EXPECT_EQ(surroundings.ui.status[1], "06% ..");
  EXPECT_EQ(surroundings.ui.status.back(), "100% " + std::string(29, '.'));
  const std::string units = Content("jedn_miary.ovd");

  ASSERT_TRUE(Create(true));
  EXPECT_TRUE(surroundings.ui.messages.empty());
  ASSERT_TRUE(Create(false));
  ASSERT_EQ(surroundings.ui.messages.size(), 1u);
  EXPECT_EQ(surroundings.ui.messages[0].second, MessageKind::kWarning);
  for (const Shape& shape : kNewTables)
    EXPECT_NE(surroundings.ui.messages[0].first.find(std::string(shape.file) + "\r\n"), std::string::npos);
  EXPECT_EQ(Content("jedn_miary.ovd"), units);
}

TEST_F(FolderTest, CreatingOverAPartOfTheFilesFillsTheGaps) {
  ASSERT_TRUE(Create());
  {
    ClassQDBASE units(surroundings.platform);
    ASSERT_TRUE(OpenFile(units, "jedn_miary.ovd"));
    ASSERT_TRUE(units.RECORD_ADD({std::string("kilogram")}));
  }
  surroundings.files.Remove(folder + "waluty.ovd");
  surroundings.files.Remove(folder + "zestawienie.q04");
  ASSERT_TRUE(Create());
  ClassQDBASE units(surroundings.platform), currencies(surroundings.platform);
  ASSERT_TRUE(OpenFile(units, "jedn_miary.ovd") && OpenFile(currencies, "waluty.ovd"));
  EXPECT_EQ(units.RECORD_COUNT(), 5);
  EXPECT_EQ(currencies.RECORD_COUNT(), 3);
  EXPECT_TRUE(Exists("zestawienie.q04"));
}

TEST_F(FolderTest, WhatAKilledCreationLeftIsNoTableAndInNobodysWay) {
  Write("waluty.ovd.build", "half a table");
  Write("jedn_miary.ovd.build", std::string(40000, 'x'));
  ASSERT_TRUE(Create());
  EXPECT_EQ(surroundings.files.ListFiles(folder).size(), 28u);
  ASSERT_TRUE(Open());
  EXPECT_TRUE(surroundings.ui.messages.empty());
  Close();
  // Another workstation that makes the same table at this moment: neither gets into the other's way.
  surroundings.files.Remove(folder + "waluty.ovd");
  {
    ClassQDBASE other(surroundings.platform);
    ASSERT_TRUE(other.DATABASE_OPEN(folder + "waluty.ovd.build", "kreda", "kreda", true, false, false) && other.HoldAlone());
    EXPECT_FALSE(Create());
    EXPECT_FALSE(Exists("waluty.ovd"));
    EXPECT_TRUE(Exists("waluty.ovd.build"));
  }
  ASSERT_TRUE(Create());
  EXPECT_TRUE(Open());
}

TEST_F(FolderTest, CreateFailsWithoutAFolderOrWithARefusedLogin) {
  bool ok = true;
  OSTEngine(program).create_(folder + "missing", "kreda", "kreda", true, ok);
  EXPECT_FALSE(ok);
  EXPECT_FALSE(surroundings.files.FolderExists(folder + "missing"));
  OSTEngine(program).create_(folder, "123", "kreda", true, ok);
  EXPECT_FALSE(ok);
  EXPECT_TRUE(surroundings.files.ListFiles(folder).empty());
}

TEST_F(FolderTest, MarkersInAPathAreResolved) {
  bool ok = false;
  OSTEngine(program).create_("<APP>\\data", "kreda", "kreda", true, ok);
  EXPECT_TRUE(ok);
  EXPECT_TRUE(Exists("waluty.ovd"));
}

TEST_F(FolderTest, TestTriesEveryTableAndLeavesNothingOpen) {
  EXPECT_FALSE(Test());
  ASSERT_TRUE(Create());
  EXPECT_TRUE(Test());
  EXPECT_FALSE(Test("kreda", "Kreda"));
  EXPECT_FALSE(Test("", ""));
  EXPECT_EQ(CountOpenTables(), 0u);
  surroundings.files.Remove(folder + "zestawienie.q09");  // the last one tried
  EXPECT_FALSE(Test());
  EXPECT_TRUE(surroundings.ui.status.empty());
}

}  // namespace
}  // namespace ostrinka
