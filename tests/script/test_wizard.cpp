// The first run through the wizard, as a person goes through it, to what lies in the company afterwards.
#include <gtest/gtest.h>

#include <filesystem>

#include "base/text.h"
#include "engine/qdbase.h"
#include "support/script_session.h"

namespace ostrinka {
namespace {

namespace fs = std::filesystem;

class WizardSession : public ::testing::Test {
 protected:
  void Play(const std::string& script) { ASSERT_EQ(session.Run(script), 0) << session.error << session.out; }
  bool Says(const std::string& text) const { return Contains(session.out, text); }
  std::unique_ptr<ClassQDBASE> TableOf(const std::string& folder, const std::string& name, const std::string& login = "kreda") {
    auto table = std::make_unique<ClassQDBASE>(surroundings.platform);
    EXPECT_TRUE(table->DATABASE_OPEN(session.folder / (folder + "/" + name), login, login, false, true, true)) << name;
    return table;
  }
  // Everything that a run may have left beside the program's own files.
  size_t FilesLeft() const {
    size_t files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(session.folder.path())) {
      const std::string ending = entry.path().extension();
      if (entry.is_regular_file() && ending != ".lang" && ending != ".bin" && ending != ".csv") ++files;
    }
    return files;
  }
  void Write(const std::string& name, const std::string& content) {
    ASSERT_TRUE(surroundings.files.WriteAll(session.folder / name, content));
  }
  ScriptSession session;
  TestPlatform surroundings;
};

constexpr char kToCompany[] = "press bg.btn.next\npress bg.btn.next\npress bg.btn.next\n";
constexpr char kCompany[] =
    "set txtNazwaFirmy \"Stolarnia Żak\"\nset txtUlica Długa\nset txtNrDomu 7\nset txtNrLokalu 2\nset txtKodPocztowy 24-120\n"
    "set TxtNIP 123-456-32-18\nset txtKonto \"61 1090 1014 0000 0712 1981 2874\"\n";

TEST_F(WizardSession, LeadsFromAnEmptyFolderToTheOpenCompany) {
  Play(std::string("start +wiz\nexpect-enabled bg.btn.prev false\n") + kToCompany + "expect-enabled bg.btn.next false\n" + kCompany +
       "expect txtMiejscowość \"Kazimierz Dolny\"\nexpect txtMiejsceWystDok \"Kazimierz Dolny\"\npress bg.btn.ok\n"
       "expect-message msg.info.dbcreateok\ntab KONTRAHENCI\nexpect-rows 0\n" +
       kCustomer + kArticle + kInvoice +
       "tab SPRZEDAŻ\nexpect-rows 1\ncommand SET.USR\nexpect txtNazwaFirmy \"Stolarnia Żak\"\npress usr.btn.cancel\n");
  auto firma = TableOf("app/data", "firma.ovd");
  ASSERT_EQ(firma->RECORD_COUNT(), 1);
  ASSERT_TRUE(firma->RECORD_LOAD(1));
  const std::pair<const char*, const char*> stored[] = {{"S_NAZWA", "Stolarnia Żak"},      {"S_KPOCZ", "24-120"},
                                                        {"S_MIAST", "Kazimierz Dolny"},    {"M_WYST_DOK", "Kazimierz Dolny"},
                                                        {"F_NRNIP", "123-456-32-18"},      {"FORMAT_DATA_EKR", "dd mmmm yyyy"},
                                                        {"FORMAT_DATA_WYD", "dd-mm-yyyy"}, {"FORMAT_PROCENTY", "0\\%"}};
  for (const auto& [field, text] : stored) EXPECT_EQ(firma->Text(field), text) << field;
  Play("start\ntab KONTRAHENCI\nexpect-rows 1\n");
  EXPECT_FALSE(Says("message")) << "the second start asks nothing: " << session.out;
}

TEST_F(WizardSession, ALoginOfOnesOwnIsKeptBehindTheFactoryOne) {
  Play(std::string("start abc+WIZard\npress bg.btn.next\nset txtDbPath @firmy/moja\nexpect dbLocal(1) true\n") +
       "set userName ala\nset userPassword1 kot\nset userPassword2 ko\npress bg.btn.next\nexpect-message msg.info.dbcreatepass\n" +
       "set userPassword1 \"\"\npress bg.btn.ok\nexpect-message msg.info.dbcreatetypeuserandpass\n" +
       "set userPassword1 ala\nset userPassword2 ala\npress bg.btn.next\npress bg.btn.prev\nexpect userName ala\n" +
       "press bg.btn.next\npress bg.btn.next\nset txtNazwaFirmy Żak\npress bg.btn.ok\ntab KONTRAHENCI\nexpect-rows 0\n");
  EXPECT_EQ(TableOf("firmy/moja", "firma.ovd", "ala")->RECORD_COUNT(), 1);
  EXPECT_FALSE(fs::exists(session.folder / "app/data"));
  Play("start\ntab KONTRAHENCI\nexpect-rows 0\n");
}

TEST_F(WizardSession, CancellingEndsTheProgramAndLeavesNothing) {
  Play(std::string("start +wiz\n") + kToCompany + kCompany + "press bg.btn.cancel\n");
  EXPECT_EQ(FilesLeft(), 0u);
  EXPECT_EQ(session.Run("start +wiz\npress bg.btn.cancel\ntab KONTRAHENCI\n"), 2) << "no window stands behind it";
}

TEST_F(WizardSession, AFolderThatTakesNoFilesIsRefusedBeforeAnythingIsMade) {
  Write("plik.csv", "");
  Play(std::string("start +wiz\npress bg.btn.next\nset dbLocal(1) true\npress bg.btn.next\nexpect-message bg.msg.nofolder\n") +
       "set txtDbPath @plik.csv/baza\npress bg.btn.next\nexpect-message \"nie można zapisywać\"\nexpect txtDbPath @plik.csv/baza\n" +
       "set txtNazwaFirmy Żak\npress bg.btn.ok\nexpect-message \"nie można zapisywać\"\n" +
       "file @nowa\npress btnBrowse\npress bg.btn.ok\nexpect-message msg.info.dbcreateok\ntab KONTRAHENCI\nexpect-rows 0\n");
  EXPECT_TRUE(fs::exists(session.folder / "nowa/firma.ovd"));
}

TEST_F(WizardSession, AFailureAtCreatingKeepsTheWizardWithWhatWasTyped) {
  // A folder where a table should be.
  fs::create_directories(session.folder / "baza/kontrahenci.ovd");
  Play(std::string("start +wiz\nset txtDbPath @baza\nset txtNazwaFirmy Żak\npress bg.btn.ok\nexpect-message msg.info.dbcreateerror\n") +
       "expect txtNazwaFirmy Żak\nexpect txtDbPath @baza\nset dbLocal(0) true\npress bg.btn.ok\ntab KONTRAHENCI\nexpect-rows 0\n");
}

TEST_F(WizardSession, TheDialogOfAFirstStartThatFindsNoCompanyLeadsToItToo) {
  Play(
      "start\nexpect-message msg.info.firstrun\npress qdb.btn.wizard\npress bg.btn.cancel\npress qdb.btn.wizard\nset txtNazwaFirmy "
      "Żak\npress bg.btn.ok\n"
      "tab KONTRAHENCI\nexpect-rows 0\ncommand SET.QDB\nexpect userName kreda\npress qdb.btn.cancel\n");
  EXPECT_EQ(session.Run("start\ncommand SET.QDB\npress qdb.btn.wizard\n"), 2) << "a program that has its company hides it";
}

TEST_F(WizardSession, FinishingEarlyStopsWhereTheCompanyHasNoName) {
  Play(
      "start +wiz\npress bg.btn.ok\nexpect-enabled bg.btn.next false\nexpect-enabled bg.btn.prev true\npress bg.btn.ok\nexpect-message "
      "msg.info.dbcreateok\n");
}

TEST_F(WizardSession, ADoubtfulNumberIsToldOnceAndThenTaken) {
  Play(std::string("start +wiz\n") + kToCompany +
       "set txtNazwaFirmy Żak\nset TxtNIP 123\npress bg.btn.ok\nexpect-message common.warn.nip\nset txtKonto 1\npress bg.btn.ok\n" +
       "expect-message common.warn.nip\npress bg.btn.ok\nexpect-message msg.info.dbcreateok\n");
}

TEST_F(WizardSession, AFileThatCannotBeReadIsToldBeforeAnythingIsWritten) {
  Write("pusty.csv", "");
  Write("ceny.csv", "Symbol;Cena netto\nK;1\n");
  const std::string step = "start +wiz\npress bg.btn.next\npress bg.btn.next\nexpect-enabled txtImportPath false\nset dbImport(1) true\n";
  Play(step + "press bg.btn.next\nexpect-message bg.msg.nofile\nset txtImportPath @nie.csv\npress bg.btn.next\nexpect-message nie.csv\n" +
       "file @pusty.csv\npress btnImportBrowse\npress bg.btn.next\nexpect-message imp.err.empty\nset dbImport(2) true\n" +
       "set txtImportPath @ceny.csv\npress bg.btn.ok\nexpect-message imp.err.noname\npress bg.btn.cancel\n");
  EXPECT_EQ(FilesLeft(), 0u);
}

TEST_F(WizardSession, RowsOfAFileComeInAndThoseLeftOutAreTold) {
  Write("klienci.csv", "Nazwa;NIP;Miejscowość;Kolor\nHotel Nad Wisłą;123-456-32-18;Puławy;x\n;1;Lublin;x\nZajazd;123;Lublin;x\n");
  Play(
      "start +wiz\nset dbImport(1) true\nset txtImportPath @klienci.csv\nset txtNazwaFirmy Żak\npress bg.btn.ok\ntab "
      "KONTRAHENCI\nexpect-rows 2\n");
  for (const char* part : {"Wczytano pozycji: 2", "Pominięto wierszy: 1 | Wiersz 3: brakuje nazwy", "Zajazd", "Kolor"}) {
    EXPECT_TRUE(Says(part)) << part << " in " << session.out;
  }
  Write("towary.csv", "Nazwa;Stawka VAT;Cena netto\nKrzesło;22%;100\n");
  Play(
      "start +wiz\nset txtDbPath @druga\nset dbImport(2) true\nset txtImportPath @towary.csv\nset txtNazwaFirmy Żak\npress bg.btn.ok\n"
      "expect-message \"Wczytano pozycji: 1\"\ntab TOWARYUSŁUGI\nexpect-rows 1\n");
}

// The columns that the page names are columns that the import knows.
TEST_F(WizardSession, TheColumnsThatThePageNamesAreKnown) {
  for (const auto& [key, option] : {std::pair("bg.import.customers", 1), std::pair("bg.import.articles", 2)}) {
    ScriptSession fresh;
    Program program(surroundings.platform);
    ASSERT_TRUE(program.catalogue.LoadProgramCatalogue(OSTRINKA_SOURCE "/resources/program.lang"));
    std::string names = program.Text(key);
    names = names.substr(names.find(": ") + 2);
    names.pop_back();
    ASSERT_TRUE(surroundings.files.WriteAll(fresh.folder / "p.csv", ReplaceAll(names, ", ", ";") + "\r\nPierwszy\r\n"));
    ASSERT_EQ(
        fresh.Run("start +wiz\nset dbImport(" + std::to_string(option) +
                  ") true\nset txtImportPath @p.csv\nset txtNazwaFirmy Żak\npress bg.btn.ok\nexpect-message \"Wczytano pozycji: 1\"\n"),
        0)
        << fresh.error << fresh.out;
    EXPECT_FALSE(Contains(fresh.out, "Kolumny")) << fresh.out;
  }
}

TEST_F(WizardSession, ACompanyThatIsThereKeepsItsLoginItsDetailsAndItsFormats) {
  Play(std::string("create-database @firma ala ala\nstart\n") + kCustomer +
       "command SET.USR\nset txtNazwaFirmy \"Dawna firma\"\nset txtUlica Krótka\npress usr.btn.ok\n");
  {
    auto firma = TableOf("firma", "firma.ovd", "ala");
    ASSERT_TRUE(firma->RECORD_LOAD(1));
    EXPECT_TRUE(firma->FIELD("FORMAT_DATA_WYD", Value(std::string("yyyy-mm-dd"))));
    ASSERT_TRUE(firma->RECORD_SAVE(1));
  }
  fs::remove_all(session.folder / "app/user-settings");  // another workstation joins
  Play(
      "start +wiz\npress bg.btn.next\nset txtDbPath @firma\npress bg.btn.next\nexpect-message bg.msg.otherlogin\n"
      "set userName ala\nset userPassword1 ala\nset userPassword2 ala\npress bg.btn.next\nexpect-message \"Dawna firma\"\npress "
      "bg.btn.next\n"
      "expect txtNazwaFirmy \"Dawna firma\"\nset txtNrDomu 9\npress bg.btn.ok\nexpect-message msg.info.dcreatedbfileswndel\n"
      "tab KONTRAHENCI\nexpect-rows 1\n");
  auto firma = TableOf("firma", "firma.ovd", "ala");
  ASSERT_TRUE(firma->RECORD_LOAD(1));
  const std::pair<const char*, const char*> kept[] = {
      {"S_NAZWA", "Dawna firma"}, {"S_ULICA", "Krótka"}, {"S_NRDOM", "9"}, {"FORMAT_DATA_WYD", "yyyy-mm-dd"}};
  for (const auto& [field, text] : kept) EXPECT_EQ(firma->Text(field), text) << field;
}

}  // namespace
}  // namespace ostrinka
