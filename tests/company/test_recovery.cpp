// A company after something went wrong: an upgrade that was killed or watched by another workstation, lost and left-over files.
#include <filesystem>

#include "company/killed_files.h"
#include "company/old_company.h"
#include "company/table_check.h"

namespace ostrinka {
namespace {

namespace fs = std::filesystem;

const std::string kVersion0(6, '\0');

class RecoveryTest : public OldCompanyTest {
 protected:
  KilledFileSystem files;
  Platform platform = surroundings.With(files);

  void SetUp() override {
    OldCompanyTest::SetUp();
    ASSERT_TRUE(Create());
    ASSERT_TRUE(Open());
    Close();
  }
  // By a program on the watched files.
  bool OpenWatched() {
    Program other(platform);
    bool ok = false;
    OSTEngine(other).open_(true, ok);
    return ok;
  }
  void MakeOldLines() {
    for (const OlderShape& shape : OlderShapes()) {
      if (shape.number == kSprzedane) MakeOlder(shape);
    }
  }
  void NameTexts(const std::string& lines) {
    ASSERT_TRUE(surroundings.files.WriteAll(surroundings.folder / "app/program.lang", lines));
    ASSERT_TRUE(program.catalogue.LoadProgramCatalogue("program.lang"));
  }
  void NameLeftOvers() { NameTexts("msg.info.dbleftover=Pozostały pliki: {0}\r\n"); }
  std::string Told() {
    std::string told;
    for (const auto& [text, kind] : surroundings.ui.messages) told += text + "\n";
    return told;
  }
};

TEST_F(RecoveryTest, WhileOneWorkstationUpgradesNobodyElseGetsAtTheTablesOrTheCompany) {
  MakeOldLines();
  Write("db.info", kVersion0);
  int changes = 0, opened = 0;
  files.watched = "sprzedane.ovd";
  files.before_change = [&](const std::string&) {
    ClassQDBASE other(surroundings.platform);
    opened += OpenFile(other, "sprzedane.ovd");
    if (++changes == 30) {
      EXPECT_FALSE(Open());
    }
  };
  ASSERT_TRUE(OpenWatched());
  EXPECT_GT(changes, 100);
  EXPECT_EQ(opened, 0);
  ASSERT_EQ(surroundings.ui.messages.size(), 1u);
  EXPECT_NE(Told().find("msg.info.dbupdating"), std::string::npos) << Told();
  files.before_change = nullptr;
  EXPECT_TRUE(Open());
  EXPECT_EQ(Row(Table(program, kSprzedane), 1, {"ILOSC", "CENA_NETTO"}), "3|10,05");
}

TEST_F(RecoveryTest, ATableLeftUnderTheNameOfTheTestForSoleUseGetsItsNameBack) {
  fs::rename(folder + "jedn_miary.ovd", folder + "jedn_miary.ovd.try");
  ASSERT_TRUE(Open());
  EXPECT_EQ(Table(program, kJednMiary).RECORD_COUNT(), 4);
  EXPECT_FALSE(Exists("jedn_miary.ovd.try"));
  EXPECT_EQ(Told(), "");
}

TEST_F(RecoveryTest, NoEmptyTableTakesThePlaceOfOneThatABrokenChangeLeft) {
  NameLeftOvers();
  fs::rename(folder + "waluty.ovd", folder + "kept");
  for (const char* name : {"waluty.ovd.new", "waluty.ovd.temp", "waluty.ovd.try"}) {
    surroundings.ui.messages.clear();
    fs::copy(folder + "kept", folder + name);
    EXPECT_FALSE(Create(false)) << name;
    EXPECT_FALSE(Exists("waluty.ovd")) << name;
    EXPECT_EQ(Told(), std::string("Pozostały pliki: ") + name + "\n");
    fs::remove(folder + name);
  }
  fs::copy(folder + "kept", folder + "waluty.ovd.temp");
  Write("db.info", kVersion0);
  EXPECT_FALSE(Open());
  EXPECT_FALSE(Exists("waluty.ovd"));
  EXPECT_EQ(Content("db.info"), kVersion0);
}

TEST_F(RecoveryTest, AChangeThatOnlyLackedItsLastStepIsFinishedAndTold) {
  NameTexts("msg.info.dbfinished=Dokończono: {0}\r\n");
  const std::string currencies = Content("waluty.ovd"), customers = Content("kontrahenci.ovd");
  fs::rename(folder + "waluty.ovd", folder + "waluty.ovd.new");
  Write("waluty.ovd.temp", currencies);
  Write("kontrahenci.ovd.new", customers);
  Write("kontrahenci.ovd", customers.substr(0, 20000));
  ASSERT_TRUE(Open());
  EXPECT_EQ(Told(), "Dokończono: kontrahenci.ovd\r\nwaluty.ovd\n");
  Close();
  EXPECT_EQ(Content("waluty.ovd"), currencies);
  for (const char* name : {"waluty.ovd.new", "waluty.ovd.temp", "kontrahenci.ovd.new"}) EXPECT_FALSE(Exists(name)) << name;
}

TEST_F(RecoveryTest, ATableThatLacksSomethingIsCompletedOrRefusedByItsName) {
  NameTexts(
      "msg.why.lacks={0}: {1}\r\nmsg.why.notatable=nie tabela: {0}\r\nmsg.why.otherkind=inna: {0}\r\nmsg.why.missing=brak: "
      "{0}\r\nmsg.why.login=hasło: {0}\r\n"
      "msg.why.inuse=zajęta: {0}\r\nmsg.why.folder=folder: {0}\r\n");
  const auto reason = [&] {
    bool ok = true;
    OSTEngine engine(program);
    engine.open_(true, ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(CountOpenTables(), 0u);
    return engine.reason();
  };
  // What the upgrade knows is completed, though the folder says that it is up to date.
  MakeOldLines();
  ASSERT_EQ(Content("db.info"), kVersion1);
  ASSERT_TRUE(Open());
  EXPECT_EQ(Shortcomings(Table(program, kSprzedane), *FindTable(kSprzedane)), "");
  EXPECT_EQ(Table(program, kSprzedane).RECORD_COUNT(), 2);
  Close();
  // Half of a table, as a creation that was killed left it; another table under its name; a shorter text.
  const std::string units = Content("jedn_miary.ovd");
  MakeOldTable("jedn_miary.ovd", {{"NAZWA", kText, 50}}, {});
  EXPECT_EQ(reason(), "jedn_miary.ovd: SYMBOL");
  Write("jedn_miary.ovd", Content("waluty.ovd"));
  EXPECT_EQ(reason(), "inna: jedn_miary.ovd");
  MakeOldTable("jedn_miary.ovd", {{"FORMAT", kText, 25}, {"SYMBOL", kText, 3}, {"NAZWA", kText, 50}}, {});
  EXPECT_EQ(reason(), "jedn_miary.ovd: SYMBOL");
  Write("jedn_miary.ovd", "not a table");
  EXPECT_EQ(reason(), "nie tabela: jedn_miary.ovd");
  Write("jedn_miary.ovd", units);
  {
    const auto other = surroundings.files.Open(folder + "jedn_miary.ovd", OpenMode::kReadWrite);
    ASSERT_TRUE(other->Lock(0, INT64_MAX, true));
    EXPECT_EQ(reason(), "zajęta: jedn_miary.ovd");
  }
  fs::remove(folder + "jedn_miary.ovd");
  EXPECT_EQ(reason(), "brak: jedn_miary.ovd");
  Write("jedn_miary.ovd", units);
  SetLogin("kreda", "inne");
  EXPECT_EQ(reason(), "hasło: firma.ovd");
  SetLogin("kreda", "kreda");
  ASSERT_TRUE(Open());
  Close();
  fs::rename(folder, surroundings.folder / "away");
  EXPECT_EQ(reason(), "folder: " + folder);
}

TEST_F(RecoveryTest, ATableThatCouldNotBeUpgradedIsNamedAndOpenedForReadingOnly) {
  NameTexts("msg.info.dbreadonly=do odczytu: {0}\r\nmsg.info.loginreadonly=tylko {0}\r\n");
  MakeOldLines();
  Write("db.info", kVersion0);
  ClassQDBASE other(surroundings.platform);
  ASSERT_TRUE(OpenFile(other, "sprzedane.ovd"));
  ASSERT_TRUE(Open());
  EXPECT_EQ(Told(), "do odczytu: sprzedane.ovd\n");
  ClassQDBASE& lines = Table(program, kSprzedane);
  ClassQDBASE own(surroundings.platform);
  ASSERT_TRUE(OpenPrivate(program, kSprzedane, own, false));
  EXPECT_FALSE(lines.RECORD_ADD() || own.RECORD_ADD() || lines.RECORD_DELETE(1));
  EXPECT_EQ(Row(lines, 1, {"ID_DOK", "CENA"}), "1|10,05");
  EXPECT_TRUE(Table(program, kKontrahenci).RECORD_ADD());
  Close();
  own.DATABASE_CLOSE();
  other.DATABASE_CLOSE();
  surroundings.ui.messages.clear();
  ASSERT_TRUE(Open());
  EXPECT_EQ(Told(), "");
  EXPECT_TRUE(Table(program, kSprzedane).RECORD_ADD());
  Close();
  for (const TableDefinition& table : TableDefinitions()) {
    ClassQDBASE owner(surroundings.platform);
    ASSERT_TRUE(OpenFile(owner, table.file) && owner.USER_ADD("gość", "gość", 0)) << table.file;
  }
  SetLogin("gość", "gość");
  ASSERT_TRUE(Open());
  EXPECT_EQ(Told(), "tylko gość\n");
}

TEST_F(RecoveryTest, ATableThatFillsAGapIsBroughtUpToDateToo) {
  fs::remove(folder + "sprzedane.ovd");
  ASSERT_TRUE(Create());
  ASSERT_TRUE(Open());
  EXPECT_EQ(Table(program, kSprzedane).FIELD_TYPE("ILOSC"), kCurrency);
  EXPECT_EQ(Content("db.info"), kVersion1);
}

TEST_F(RecoveryTest, AttachmentsOfALostTableAreNotThoseOfTheNewOnesRecords) {
  NameLeftOvers();
  for (const char* aside : {"kontrahenci.ovd.memo.old", "kontrahenci.ovd.memo.old2"}) {
    surroundings.ui.messages.clear();
    const std::string attachments = std::string("what was attached, ") + aside;
    Write("kontrahenci.ovd.memo", attachments);
    fs::remove(folder + "kontrahenci.ovd");
    Write("db.info", kVersion0);
    ASSERT_TRUE(Open());
    Close();
    EXPECT_EQ(Content(aside), attachments);
    EXPECT_EQ(Content("kontrahenci.ovd.memo"), "");
    EXPECT_NE(Told().find(aside), std::string::npos) << Told();
  }
}

}  // namespace
}  // namespace ostrinka
