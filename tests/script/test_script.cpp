#include <gtest/gtest.h>

#include "base/bytes.h"
#include "base/text.h"
#include "engine/qdbase.h"
#include "support/script_session.h"

namespace ostrinka {
namespace {

const std::string kStart = kNewCompany;

TEST(ScriptLanguage, WordsQuotesAndLineEnds) {
  EXPECT_EQ(*ScriptRunner::Words("set txtA \"a \"\"b\"\" c\"  \"x\\ny\" p\\n"),
            (std::vector<std::string>{"set", "txtA", "a \"b\" c", "x\r\ny", "p\\n"}));
  EXPECT_EQ(*ScriptRunner::Words("file \"\""), (std::vector<std::string>{"file", ""}));
  EXPECT_FALSE(ScriptRunner::Words("set a \"b"));
}

// Whatever a script asks that a person could not do is a wrong script; nothing of it is passed over.
TEST(ScriptLanguage, AWrongScriptEndsWithStatusTwo) {
  const struct {
    const char* steps;
    const char* complaint;
  } rows[] = {{"nonsense", "unknown step"},
              {"tab", "wrong number of words"},
              {"tab NIC", "no tab"},
              {"command NIC.TAKIEGO", "no command"},
              {"item SPRZEDAŻ.DRUKUJ NIC", "no item"},
              {"row 1", "row out of range"},
              {"record x", "no number"},
              {"set txtNazwa x", "unknown field"},
              {"press btnSave", "needs an open form"},
              {"command KONTRAHENT.DODAJ\nset txtBrak x", "unknown field"},
              {"command KONTRAHENT.DODAJ\npress nic", "unknown button"},
              {"command KONTRAHENT.DODAJ\nset txtGrupa Nieznana", "does not take"},
              {"command KONTRAHENT.DODAJ\nset txtSymbol 12345678901", "does not take"},
              {"command KONTRAHENT.DODAJ\nset txtSymbol 中", "does not take"},
              {"command KONTRAHENT.DODAJ\ntab ZAKUP", "is open"},
              {"command KONTRAHENT.DODAJ\nquit", "still open"},
              {"command KONTRAHENT.DODAJ", "still open at the end"},
              {"command SPRZEDAŻ.DODAJ\nset txtDokNumer 5", "disabled or hidden"},
              {"command SPRZEDAŻ.DODAJ\npress sdoc.btn.add\npress adps.btn.ok", "disabled or hidden"},
              {"answer maybe", "no answer"},
              {"answer yes", "left over"},
              {"file x", "left over"},
              {"quit\ntab ZAKUP", "after quit"},
              {"pages @p", "no print job"},
              {"start", "runs already"},
              {"expect txtNazwa \"x", "quote is not closed"}};
  for (const auto& row : rows) {
    ScriptSession session;
    EXPECT_EQ(session.Run(kStart + row.steps), 2) << row.steps << "\n" << session.error;
    EXPECT_NE(session.error.find(row.complaint), std::string::npos) << row.steps << "\n" << session.error;
  }
}

TEST(ScriptLanguage, AQuestionNeedsItsAnswer) {
  ScriptSession session;
  EXPECT_EQ(session.Run(kStart + kCustomer + "tab KONTRAHENCI\ncommand KONTRAHENT.USUŃ"), 2);
  EXPECT_NE(session.error.find("a question without an answer"), std::string::npos) << session.error;
}

TEST(ScriptLanguage, AnUnmetExpectationTellsLineAndBothTexts) {
  ScriptSession session;
  EXPECT_EQ(session.Run(kStart + kCustomer + "tab KONTRAHENCI\nexpect-rows 2"), 1);
  EXPECT_EQ(session.error, "line 7: rows: expected \"2\", found \"1\"\n");
  ScriptSession other;
  EXPECT_EQ(other.Run(kStart + "expect-message msg.info.dbnotopen"), 1);
}

TEST(ScriptLanguage, PrintsWhatIsAsked) {
  ScriptSession session;
  ASSERT_EQ(session.Run(kStart + kCustomer + "tab KONTRAHENCI\nlist\ncommand KONTRAHENT.EDYTUJ\nget txtNazwa\nset TxtNIP 1\nfields\n" +
                        "press customer.btn.cancel\necho a  b"),
            0)
      << session.error;
  EXPECT_TRUE(Contains(session.out, "\tJan Kowalski\t")) << session.out;
  EXPECT_TRUE(Contains(session.out, "\nJan Kowalski\n"));
  EXPECT_TRUE(Contains(session.out, "\nTxtNIP\t1\n"));
  EXPECT_TRUE(Contains(session.out, "\na b\n"));
}

TEST(ScriptRuns, ACompanyIsMadeWhereMarkersSayAndWhereTheSettingsCanNameIt) {
  ScriptSession session;
  EXPECT_EQ(session.Run("create-database <APP>\\firmy\\nowa kreda kreda\nstart\nexpect-rows 0\n"), 0) << session.error;
  EXPECT_TRUE(std::filesystem::exists(session.folder / "app/firmy/nowa/firma.ovd"));
  EXPECT_EQ(session.Run("start\nexpect-rows 0\n"), 0) << session.error;
  EXPECT_EQ(session.Run("create-database @bjørn kreda kreda\n"), 2);
  EXPECT_FALSE(std::filesystem::exists(session.folder / "bjørn"));
}

TEST(ScriptRuns, TheSameSeedLeavesTheSameBytes) {
  std::vector<std::string> contents[2];
  for (auto& content : contents) {
    ScriptSession session;
    ASSERT_EQ(session.Run(kStart + kCustomer + kArticle + kInvoice + "file @f.pdf\nitem SPRZEDAŻ.DRUKUJ SPRZEDAŻ.DOPDF\npages @p"), 0)
        << session.error;
    PosixFileSystem files;
    for (const char* folder : {"firma", "p"}) {
      for (const std::string& name : files.ListFiles(session.folder / folder)) {
        std::string bytes;
        ASSERT_TRUE(files.ReadAll((session.folder / folder) + "/" + name, bytes));
        content.push_back(name + bytes);
      }
    }
    std::string pdf;
    ASSERT_TRUE(files.ReadAll(session.folder / "f.pdf", pdf));
    content.push_back(pdf);
  }
  ASSERT_EQ(contents[0].size(), contents[1].size());
  EXPECT_GT(contents[0].size(), 29u);
  for (size_t i = 0; i < contents[0].size(); ++i) EXPECT_EQ(contents[0][i] == contents[1][i], true) << contents[0][i].substr(0, 20);
}

}  // namespace
}  // namespace ostrinka
