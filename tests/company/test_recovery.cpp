// A company after something went wrong: an upgrade that was killed or watched by another workstation, lost and left-over files.
#include <filesystem>

#include "company/company_fixture.h"
#include "company/killed_files.h"

namespace ostrinka {
namespace {

namespace fs = std::filesystem;

const std::string kVersion0(6, '\0');

class RecoveryTest : public CompanyTest {
 protected:
  KilledFileSystem files;
  Platform platform = surroundings.With(files);

  void SetUp() override {
    CompanyTest::SetUp();
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
    MakeOldTable("sprzedane.ovd",
                 {{"ID_DOK", kLong},
                  {"ILOSC", kSingle},
                  {"NAZWA_T_U", kLink, 0, "towaryuslugi.ovd", "NAZWA"},
                  {"CENA_NETTO", kDouble},
                  {"CENA_BRUTTO", kDouble},
                  {"WARTOSC_NETTO", kDouble},
                  {"WARTOSC_BRUTTO", kDouble}},
                 {{int32_t{1}, 2.5F, int32_t{1}, 10.01, 12.21, 10.01, 12.21}, {int32_t{2}, 0.1F, int32_t{2}, 1.0, 1.07, 0.1, 0.11}});
  }
  void NameLeftOvers() {
    ASSERT_TRUE(surroundings.files.WriteAll(surroundings.folder / "app/program.lang", "msg.info.dbleftover=Pozostały pliki: {0}\r\n"));
    ASSERT_TRUE(program.catalogue.LoadProgramCatalogue("program.lang"));
  }
  std::string Told() {
    std::string told;
    for (const auto& [text, kind] : surroundings.ui.messages) told += text + "\n";
    return told;
  }
};

struct OldTable {
  const char* file;
  std::function<void()> make;
  std::initializer_list<const char*> fields;
  std::vector<std::string> rows;
  int step;  // of the places where it is killed
};

TEST_F(RecoveryTest, AnUpgradeKilledAnywhereIsFinishedByTheNextOpening) {
  const OldTable tables[] = {
      {"sprzedane.ovd",
       [this] { MakeOldLines(); },
       {"ID_DOK", "NAZWA_T_U", "ILOSC", "CENA_NETTO", "CENA_BRUTTO", "WARTOSC_NETTO", "WARTOSC_BRUTTO"},
       {"1|1|2,5|10,01|12,21|10,01|12,21", "2|2|0,1|1|1,07|0,1|0,11"},
       11},
      {"regiony.ovd",
       [this] {
         MakeOldTable("regiony.ovd", {{"NAZWA", kText, 30}, {"PANSTWO", kLink, 0, "panstwa.ovd", "NAZWA"}},
                      {{std::string("śląskie"), int32_t{1}}, {std::string("inne"), int32_t{1}}});
       },
       {"NAZWA", "KOD"},
       {"śląskie|2", "inne|4"},
       2},
      {"firma.ovd",
       [this] {
         MakeOldTable("firma.ovd", {{"S_NAZWA", kText, 250}}, {{std::string("Żuraw")}});
       },
       {"S_NAZWA", "FORMAT_DATA_EKR", "FORMAT_DATA_WYD", "FORMAT_PROCENTY"},
       {"Żuraw|dd mmmm yyyy|dd-mm-yy|0\\%"},
       11},
  };
  const std::string saved = surroundings.folder / "saved";
  for (const OldTable& old : tables) {
    old.make();
    Write("db.info", kVersion0);
    fs::copy(folder, saved, fs::copy_options::recursive);
    bool killed = true;
    for (int changes = 1; killed; changes += old.step) {
      fs::remove_all(folder);
      fs::copy(saved, folder, fs::copy_options::recursive);
      surroundings.ui.messages.clear();
      files.watched = old.file;
      files.left = changes;
      OpenWatched();
      killed = files.left == 0;
      files.left = -1;
      if (!OpenWatched()) {
        // Killed between the deletion of the table and the end of its copy.
        const std::string finished = std::string(old.file) + ".new";
        ASSERT_NE(Told().find("dbleftover"), std::string::npos) << old.file << changes;
        fs::rename(folder + finished, folder + old.file);
        ASSERT_TRUE(OpenWatched()) << old.file << changes;
      }
      EXPECT_EQ(Content("db.info"), kVersion1);
      ClassQDBASE table(surroundings.platform);
      ASSERT_TRUE(OpenFile(table, old.file)) << changes;
      ASSERT_EQ(table.RECORD_COUNT(), static_cast<int32_t>(old.rows.size()));
      for (size_t i = 0; i < old.rows.size(); ++i) {
        ASSERT_EQ(Row(table, static_cast<int32_t>(i) + 1, old.fields), old.rows[i]) << old.file << " killed after " << changes;
      }
      if (table.FIELD_EXISTS("ILOSC")) {
        ASSERT_EQ(table.FIELD_TYPE("ILOSC"), kCurrency) << changes;
      }
      for (const char* field : old.fields) ASSERT_FALSE(table.FIELD_EXISTS(std::string(field) + "_2")) << field << changes;
      ASSERT_FALSE(table.FIELD_EXISTS("FORMAT_EKR_2")) << changes;
    }
    fs::remove_all(saved);
  }
}

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
  EXPECT_EQ(Row(Table(program, kSprzedane), 1, {"ILOSC", "CENA_NETTO"}), "2,5|10,01");
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
  fs::copy(folder + "kept", folder + "waluty.ovd.new");
  Write("db.info", kVersion0);
  EXPECT_FALSE(Open());
  EXPECT_FALSE(Exists("waluty.ovd"));
  EXPECT_EQ(Content("db.info"), kVersion0);
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
