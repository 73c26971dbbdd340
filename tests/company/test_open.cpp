#include <unistd.h>

#include <filesystem>

#include "company/column_widths.h"
#include "company/company_fixture.h"
#include "company/list_columns.h"
#include "company/login_form.h"

namespace ostrinka {
namespace {

TEST_F(FolderTest, TheFirstOpeningUpgradesTheFolderAndMarksIt) {
  ASSERT_TRUE(Create());
  EXPECT_FALSE(Exists("db.info"));
  {
    ClassQDBASE lines(surroundings.platform);
    ASSERT_TRUE(OpenFile(lines, "sprzedane.ovd"));
    EXPECT_EQ(lines.FIELD_TYPE("ILOSC"), kSingle);
    EXPECT_EQ(lines.FIELD_TYPE("CENA_NETTO"), kDouble);
    ASSERT_TRUE(lines.RECORD_ADD({int32_t{77}, 1.1F, int32_t{3}, 2.675, 3.2635, 2.94, 3.59, int16_t{5}, std::string("uwaga żółta")}));
    ASSERT_TRUE(lines.RECORD_ADD({int32_t{78}, 2.0F}));
    ASSERT_TRUE(lines.RECORD_DELETE(2));
  }
  ASSERT_TRUE(Open());
  EXPECT_TRUE(program.database_open);
  EXPECT_EQ(Content("db.info"), kVersion1);
  EXPECT_EQ(CountOpenTables(), 28u);
  for (int unused : {18, 19, 30, 31}) EXPECT_FALSE(TableIsOpen(program, unused));

  ClassQDBASE& lines = Table(program, kSprzedane);
  EXPECT_EQ(Fields(lines), "ID_DOK NAZWA_T_U RABAT INFO_DOD ILOSC CENA_NETTO CENA_BRUTTO WARTOSC_NETTO WARTOSC_BRUTTO");
  for (int field = 5; field <= 9; ++field) EXPECT_EQ(lines.FIELD_TYPE(field), kCurrency);
  EXPECT_EQ(
      Row(lines, 1, {"ID_DOK", "NAZWA_T_U", "ILOSC", "CENA_NETTO", "CENA_BRUTTO", "WARTOSC_NETTO", "WARTOSC_BRUTTO", "RABAT", "INFO_DOD"}),
      "77|3|1,1|2,675|3,2635|2,94|3,59|5|uwaga żółta");
  EXPECT_FALSE(lines.RECORD_EXIST(2));
  EXPECT_EQ(Row(lines, 2, {"ID_DOK", "ILOSC"}), "78|2");
}

TEST_F(FolderTest, OpeningAddsTheCompanyRecordWithTheFormatsOfTheSettings) {
  program.settings.SaveSettingValue(kCommon, "strFormat", "Date_P_", std::string("yyyy/mm/dd"));
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  ClassQDBASE& firma = Table(program, kFirma);
  ASSERT_EQ(firma.RECORD_COUNT(), 1);
  EXPECT_EQ(Row(firma, 1, {"S_NAZWA", "FORMAT_DATA_EKR", "FORMAT_DATA_WYD", "FORMAT_PROCENTY"}), "|dd mmmm yyyy|yyyy/mm/dd|0\\%");
  EXPECT_EQ(firma.selection(), std::vector<int32_t>{1});
  EXPECT_EQ(ScreenDatePattern(program), "dd mmmm yyyy");
  EXPECT_EQ(PrintDatePattern(program), "yyyy/mm/dd");
  ASSERT_TRUE(Open());  // a second opening adds none
  EXPECT_EQ(Table(program, kFirma).RECORD_COUNT(), 1);
  EXPECT_EQ(Content("db.info"), kVersion1);
}

TEST_F(FolderTest, AnyOtherVersionOfTheFolderIsUpgradedAndRewritten) {
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  Close();
  const std::string contents[] = {std::string("\x02\x00\x07\x00\x01\x00", 6), "\x01", "", std::string(100, '\xff')};
  for (const std::string& content : contents) {
    Write("db.info", content);
    surroundings.files.Remove(folder + "kasy_fisk.ovd");
    ASSERT_TRUE(Open());  // the upgrade has created the missing table
    EXPECT_EQ(Content("db.info"), kVersion1);
    Close();
  }
  surroundings.files.Remove(folder + "kasy_fisk.ovd");
  EXPECT_FALSE(Open());  // the same version: nothing is created
  EXPECT_FALSE(Exists("kasy_fisk.ovd"));
  EXPECT_EQ(CountOpenTables(), 0u);
  EXPECT_FALSE(program.database_open);
}

TEST_F(FolderTest, ARefusedLoginLeavesTheFolderAsItIs) {
  ASSERT_TRUE(Create());
  for (const auto& [user, password] : {std::pair("kreda", "other"), std::pair("other", "kreda"), std::pair("", "")}) {
    SetLogin(user, password);
    EXPECT_FALSE(Open());
    EXPECT_EQ(CountOpenTables(), 0u);
  }
  EXPECT_FALSE(Exists("db.info"));
  SetLogin("kreda", "kreda");
  ASSERT_TRUE(Open());
  EXPECT_EQ(Table(program, kSprzedane).FIELD_TYPE("ILOSC"), kCurrency);
}

TEST_F(FolderTest, WhatCannotBeOpenedFailsAndIsUpgradedNextTime) {
  EXPECT_FALSE(Open());  // an empty folder
  program.settings.SaveSettingValue(kCommon, "dbPath", "Remote", true);
  EXPECT_FALSE(Open());  // an empty path
  program.settings.SaveSettingValue(kCommon, "dbPath", "Path", surroundings.folder / "nowhere");
  EXPECT_FALSE(Open());
  program.settings.SaveSettingValue(kCommon, "dbPath", "Remote", false);
  ASSERT_TRUE(Create());
  {
    const auto other = surroundings.files.Open(folder + "sprzedane.ovd", OpenMode::kReadWrite);
    ASSERT_TRUE(other && other->Lock(0, INT64_MAX, true));
    EXPECT_FALSE(Open());
    EXPECT_EQ(CountOpenTables(), 0u);
  }
  ASSERT_TRUE(Open());
  EXPECT_EQ(Table(program, kSprzedane).FIELD_TYPE("ILOSC"), kCurrency);
  Close();

  Write("zestawienie.q03", "not a table");
  EXPECT_FALSE(Open());
  surroundings.files.Remove(folder + "firma.ovd");
  surroundings.files.Remove(folder + "db.info");
  EXPECT_FALSE(Open());  // without firma nothing is created
  EXPECT_FALSE(Exists("db.info"));
}

TEST_F(FolderTest, AFolderThatMayNotBeWrittenFailsAndStaysAsItIs) {
  namespace fs = std::filesystem;
  ASSERT_TRUE(Create());
  ASSERT_TRUE(surroundings.files.WriteAll(surroundings.folder / "app/program.lang", "msg.why.rights={0}: {1}\r\n"));
  ASSERT_TRUE(program.catalogue.LoadProgramCatalogue("program.lang"));
  for (const std::string& place : {surroundings.folder.path(), surroundings.folder / "user", surroundings.folder / "app"}) {
    fs::permissions(place, fs::perms(0755));
  }
  for (const auto& entry : fs::directory_iterator(surroundings.folder / "user")) fs::permissions(entry.path(), fs::perms(0644));
  for (const auto& entry : fs::directory_iterator(folder)) fs::permissions(entry.path(), fs::perms(0444));
  fs::permissions(folder, fs::perms(0555));
  const bool root = geteuid() == 0;
  ASSERT_EQ(root ? seteuid(65534) : 0, 0);  // root writes whatever the permissions say
  bool opened = true;
  OSTEngine engine(program);
  engine.open_(true, opened);
  EXPECT_FALSE(opened);
  EXPECT_EQ(engine.reason(), "firma.ovd: Permission denied");
  EXPECT_FALSE(Test());
  surroundings.files.Remove(folder + "waluty.ovd");
  EXPECT_TRUE(Exists("waluty.ovd"));
  ASSERT_EQ(root ? seteuid(0) : 0, 0);
  fs::permissions(folder, fs::perms(0755));
  EXPECT_FALSE(Exists("db.info"));
  EXPECT_EQ(CountOpenTables(), 0u);
}

TEST_F(FolderTest, TheUserIsToldOfWhatABrokenStructureChangeLeft) {
  ASSERT_TRUE(Create());
  Write("sprzedane.ovd.temp", "x");
  Write("kontrahenci.ovd.new", "x");
  Write("mine.temp", "x");
  ASSERT_TRUE(surroundings.files.WriteAll(surroundings.folder / "app/program.lang", "msg.info.dbleftover=Pozostały pliki: {0}\r\n"));
  ASSERT_TRUE(program.catalogue.LoadProgramCatalogue("program.lang"));
  ASSERT_TRUE(Open());
  ASSERT_EQ(surroundings.ui.messages.size(), 1u);
  EXPECT_EQ(surroundings.ui.messages[0].first, "Pozostały pliki: kontrahenci.ovd.new\r\nsprzedane.ovd.temp");
}

TEST_F(FolderTest, ProgressEndsWithNinetyEightToAHundred) {
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open(false));
  const std::vector<std::string>& status = surroundings.ui.status;
  ASSERT_EQ(status.size(), 29u);
  EXPECT_EQ(status.front(), "Otwieranie bazy danych...");
  EXPECT_EQ(status[26].substr(0, 4) + status[27].substr(0, 4) + status[28], "98% 99% 100% " + std::string(28, '.'));
}

TEST_F(FolderTest, ListsHaveTheirColumnsAndNoRecordSelected) {
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  const auto shown = [&](int number) {
    std::string names;
    for (int field : Table(program, number).columns()) names += (names.empty() ? "" : " ") + Table(program, number).FIELD_NAME(field);
    return names;
  };
  EXPECT_EQ(shown(kDokSprzed), "TYP DATA_WYSTAWIENIA NR_DOK KONTRAHENT WARTOSC_NETTO WARTOSC_BRUTTO WALUTA ZAPLACONO");
  EXPECT_EQ(shown(kJednMiary), "NAZWA SYMBOL FORMAT");
  EXPECT_EQ(shown(kKasyFisk), "NAZWA MODEL SYMBOL");
  EXPECT_EQ(shown(kZestawienieQ00 + 2), "S1 S2 S3 D1 D2 D4 D3");
  EXPECT_EQ(Table(program, kZestawienieQ09).columns().size(), 15u);
  for (int number : OpeningOrder()) EXPECT_EQ(Table(program, number).selection().size(), number == kFirma ? 1u : 0u);
  EXPECT_EQ(Table(program, kDokSprzed).ColumnTitle(18), "");  // WALUTA
  EXPECT_EQ(Table(program, kDokSprzed).ColumnTitle(1), "%tdb.sdoc.type");

  program.settings.SaveSettingValue(kCommon, "prgSettings", "FPModel", int32_t{2});
  ASSERT_TRUE(Open());
  EXPECT_EQ(shown(kDokSprzed), "TYP ZDFISK DATA_WYSTAWIENIA NR_DOK KONTRAHENT WARTOSC_NETTO WARTOSC_BRUTTO WALUTA ZAPLACONO");
}

TEST_F(FolderTest, EveryListColumnNamesAFieldOfItsTable) {
  for (const TableDefinition& table : TableDefinitions()) {
    for (const ListColumn& column : ListColumns(table.number))
      EXPECT_NE(FindField(table, column.field), nullptr) << table.file << column.field;
  }
}

TEST_F(FolderTest, EveryTextOfTheListsAndTheLoginStandsInTheCatalogue) {
  ASSERT_TRUE(program.catalogue.LoadProgramCatalogue(std::string(OSTRINKA_SOURCE) + "/resources/program.lang"));
  for (const char* key : {"msg.info.dcreatedbpwffiles", "msg.info.dcreatedbfileswndel", "msg.info.dbleftover", "login.title",
                          "login.lbl.user", "login.lbl.password", "login.btn.ok", "login.btn.cancel"}) {
    EXPECT_TRUE(program.catalogue.Has(key)) << key;
  }
  for (const TableDefinition& table : TableDefinitions()) {
    for (const ListColumn& column : ListColumns(table.number)) {
      EXPECT_TRUE(!*column.heading || program.catalogue.Has(column.heading)) << column.heading;
      EXPECT_TRUE(column.kind != ColumnKind::kPatternKey || program.catalogue.Has(column.pattern)) << column.pattern;
    }
  }
}

TEST_F(FolderTest, ALoginThatMayOnlyReadOpensTheCompany) {
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  Close();
  for (const TableDefinition& table : TableDefinitions()) {
    ClassQDBASE owner(surroundings.platform);
    ASSERT_TRUE(OpenFile(owner, table.file) && owner.USER_ADD("guest", "guest", 0)) << table.file;
  }
  SetLogin("guest", "guest");
  EXPECT_TRUE(Open());
  ClassQDBASE& currencies = Table(program, kWaluty);
  ASSERT_TRUE(currencies.RECORD_LOAD(2));
  EXPECT_EQ(PricePattern(program, 1, true), "0.00 zł");
  EXPECT_EQ(currencies.Text("KODWAL"), "EUR");  // the record on show is still in the buffer
  EXPECT_FALSE(Table(program, kFirma).RECORD_DELETE(1));
  EXPECT_TRUE(Table(program, kFirma).RECORD_EXIST(1));
}

TEST_F(FolderTest, CellsShowMoneyDatesAndFlagsByTheirPatterns) {
  ASSERT_TRUE(surroundings.files.WriteAll(surroundings.folder / "app/program.lang",
                                          "tdb.prsr.psboo=;\"Usługa\";\"Towar\"\r\ntdb.payt.eodate.format=0 \"dni\"\r\n"));
  ASSERT_TRUE(program.catalogue.LoadProgramCatalogue("program.lang"));
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  ClassQDBASE& sales = Table(program, kDokSprzed);
  ASSERT_TRUE(sales.RECORD_ADD() && sales.RECORD_LOAD(1));
  EXPECT_TRUE(sales.FIELD("TYP", int32_t{2}));
  EXPECT_TRUE(sales.FIELD("NR_DOK", int32_t{17}));
  EXPECT_TRUE(sales.FIELD("DATA_WYSTAWIENIA", *Date::FromYmd(2008, 11, 5)));
  EXPECT_TRUE(sales.FIELD("WARTOSC_NETTO", 1234.5));
  EXPECT_TRUE(sales.FIELD("WALUTA", int32_t{2}));
  ASSERT_TRUE(sales.RECORD_SAVE(1) && sales.RECORD_SHOW(1));
  const TableLook look;
  std::string row;
  for (int field : sales.columns()) row += sales.CellText(1, field, look) + "|";
  EXPECT_EQ(row, "Pro Forma|05 listopada 2008|17||1234,50|0,00|€|Nie|");

  ClassQDBASE& articles = Table(program, kTowaryUslugi);
  ASSERT_TRUE(articles.RECORD_ADD({true}) && articles.RECORD_ADD({false}) && articles.RECORD_SHOW(1) && articles.RECORD_SHOW(2));
  EXPECT_EQ(articles.CellText(1, 1, look) + "|" + articles.CellText(2, 1, look), "Usługa|Towar");
  ClassQDBASE& forms = Table(program, kFormyPlatn);
  ASSERT_TRUE(forms.RECORD_SHOW(2));
  EXPECT_EQ(forms.CellText(1, 2, look) + "|" + forms.CellText(1, 4, look), "14 dni|Tak");
}

TEST_F(FolderTest, WidthsComeFromTheSettingsAreClippedAndSaved) {
  const std::string section = WidthSection(kJednMiary);
  program.settings.SaveSettingValue(kOstrinka, section, "NAZWA", int32_t{10});
  program.settings.SaveSettingValue(kOstrinka, section, "SYMBOL", int32_t{999});
  program.settings.SaveSettingValue(kOstrinka, section, "FORMAT", std::string("wide"));
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  ClassQDBASE& units = Table(program, kJednMiary);
  EXPECT_EQ(units.ColumnWidth(1), 20);
  EXPECT_EQ(units.ColumnWidth(2), 400);
  EXPECT_EQ(units.ColumnWidth(3), 110);
  units.ColumnWidth(1, 123);
  units.ColumnWidth(2, 0);  // hidden for the moment: not stored
  SaveColumnWidths(program);
  EXPECT_EQ(program.settings.Text(kOstrinka, section, "NAZWA"), "123");
  EXPECT_EQ(program.settings.Text(kOstrinka, section, "SYMBOL"), "999");
  EXPECT_EQ(program.settings.Text(kOstrinka, WidthSection(kDokSprzed), "ZDFISK"), "40");  // not on show, yet right when it is
  Close();
  ASSERT_TRUE(Open());
  EXPECT_EQ(Table(program, kJednMiary).ColumnWidth(1), 123);
}

TEST_F(FolderTest, AFilledCompanyRecordGoesToTheSettings) {
  program.settings.SaveSettingValue(kCommon, "user", "nazwa", std::string("Stara nazwa"));
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  EXPECT_EQ(program.settings.Text(kCommon, "user", "nazwa"), "Stara nazwa");  // the record has no name yet
  ClassQDBASE& firma = Table(program, kFirma);
  ASSERT_TRUE(firma.RECORD_LOAD(1));
  EXPECT_TRUE(firma.FIELD("S_NAZWA", std::string("Zakład Usługowy \"Żuraw\"")));
  EXPECT_TRUE(firma.FIELD("B_KONTO_OPIS_4", std::string("rachunek walutowy")));
  ASSERT_TRUE(firma.RECORD_SAVE(1));
  bool ok = false;
  OSTEngine(program).reopen_(ok);
  ASSERT_TRUE(ok);
  EXPECT_EQ(program.settings.Text(kCommon, "user", "nazwa"), "Zakład Usługowy \"Żuraw\"");
  EXPECT_EQ(program.settings.Text(kCommon, "user", "konto_opis_4"), "rachunek walutowy");
  EXPECT_EQ(program.company.S_NAZWA, "Zakład Usługowy \"Żuraw\"");
}

TEST_F(FolderTest, TheLoginDialogGivesTheCredentials) {
  ASSERT_TRUE(Create());
  SetLogin("wrong", "wrong");
  program.settings.SaveSettingValue(kCommon, "dbLogin", "login", true);
  std::string user = "kreda", button = "login.btn.ok";
  int shown = 0;
  surroundings.ui.on_modal = [&](Form& form) {
    ++shown;
    EXPECT_EQ(form.Find("txtUser")->ShownText() + form.Find("txtPassword")->ShownText(), "");
    ASSERT_TRUE(form.Find("txtUser")->UserSet(user) && form.Find("txtPassword")->UserSet("kreda"));
    ASSERT_NE(form.FindButton(button), nullptr);
    form.FindButton(button)->UserPress();
    EXPECT_FALSE(form.IsOpen());
  };
  ASSERT_TRUE(Open());
  EXPECT_EQ(program.login.user + "/" + program.login.password, "kreda/kreda");
  EXPECT_TRUE(program.login.accepted);
  user = "nobody";
  EXPECT_FALSE(Open());
  user = "kreda";
  button = "btnCancel";
  EXPECT_FALSE(Open());
  EXPECT_FALSE(program.login.accepted);
  EXPECT_EQ(program.login.user, "");
  EXPECT_EQ(shown, 3);
}

TEST_F(FolderTest, PatternsComeFromTheCurrencyOrTheSettings) {
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  ClassQDBASE& currencies = Table(program, kWaluty);
  ASSERT_TRUE(currencies.RECORD_LOAD(3));
  EXPECT_TRUE(currencies.FIELD("KURS", 9.5F));
  EXPECT_EQ(PricePattern(program, 1, true), "0.00 zł");
  EXPECT_EQ(PricePattern(program, 1, false), "0.00");
  EXPECT_EQ(PricePattern(program, 2, false), "€0.00");
  EXPECT_EQ(AmountPattern(program, 2, true), "0.00");
  for (int32_t record : {0, -1, 4}) {
    EXPECT_EQ(PricePattern(program, record, true), "0.00##");
    EXPECT_EQ(AmountPattern(program, record, true), "0.00");
  }
  EXPECT_EQ(currencies.Text("KODWAL"), "USD");  // what was being edited is still there
  EXPECT_EQ(currencies.Real("KURS"), 9.5);
  program.settings.SaveSettingValue(kCommon, "strFormat", "Currency", std::string(" 0.000 PLNŻ "));
  EXPECT_EQ(PricePattern(program, 0, false), "0.000");
  // One just added to the dictionary has none of its own yet.
  ASSERT_TRUE(currencies.RECORD_ADD());
  EXPECT_EQ(PricePattern(program, currencies.RECORD_ADDED(), false), "0.000");
}

TEST_F(FolderTest, ATableThatIsNotOpenIsAClosedObject) {
  EXPECT_FALSE(Table(program, kWaluty).IsOpen());
  EXPECT_EQ(Table(program, 0).RECORD_COUNT(), -1);
  EXPECT_EQ(Table(program, 99).Text("NAZWA"), "");
  EXPECT_EQ(ScreenDatePattern(program), "dd-mm-yyyy");
  EXPECT_EQ(PrintDatePattern(program), "dd-mm-yy");
  EXPECT_EQ(CountOpenTables(), 0u);
}

TEST_F(FolderTest, ClosingCompressesAttachments) {
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  ClassQDBASE& customers = Table(program, kKontrahenci);
  ASSERT_TRUE(customers.RECORD_ADD() && customers.RECORD_POSITION(1) && customers.RECORD_LOAD(1));
  ASSERT_TRUE(surroundings.files.WriteAll(surroundings.folder / "scan.txt", std::string(5000, 'a')));
  ASSERT_TRUE(surroundings.files.WriteAll(surroundings.folder / "contract.txt", "umowa"));
  ASSERT_TRUE(customers.MEMO_ADD("MEMO_", surroundings.folder / "scan.txt"));
  ASSERT_TRUE(customers.MEMO_ADD("MEMO_", surroundings.folder / "contract.txt"));
  ASSERT_TRUE(customers.MEMO_DEL("MEMO_", 1));
  const int64_t full = surroundings.files.FileSize(folder + "kontrahenci.ovd.memo");
  Close(false);
  EXPECT_EQ(surroundings.files.FileSize(folder + "kontrahenci.ovd.memo"), full);
  ASSERT_TRUE(Open());
  Close(true);
  EXPECT_EQ(surroundings.files.FileSize(folder + "kontrahenci.ovd.memo"), 286 + 5);
  EXPECT_EQ(CountOpenTables(), 0u);
  EXPECT_FALSE(program.database_open);
}

}  // namespace
}  // namespace ostrinka
