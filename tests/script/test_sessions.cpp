// Whole sessions of a clerk, from the start of the program to what lies in the tables.
#include <gtest/gtest.h>

#include "base/text.h"
#include "engine/qdbase.h"
#include "support/script_session.h"

namespace ostrinka {
namespace {

const std::string kStart = kNewCompany;

class Sessions : public ::testing::Test {
 protected:
  void Play(const std::string& script) { ASSERT_EQ(session.Run(script), 0) << session.error << session.out; }
  // A table of the company that the session left.
  std::unique_ptr<ClassQDBASE> TableOf(const std::string& name) {
    auto table = std::make_unique<ClassQDBASE>(surroundings.platform);
    EXPECT_TRUE(table->DATABASE_OPEN(session.folder / ("firma/" + name), "kreda", "kreda", false, true, true)) << name;
    return table;
  }
  ScriptSession session;
  TestPlatform surroundings;
};

TEST_F(Sessions, AnInvoiceIsNumberedSavedAndShown) {
  Play(kStart + kCustomer + kArticle + kInvoice + "expect-rows 1\ncommand SPRZEDAŻ.EDYTUJ\nexpect txtKontrahent \"Jan Kowalski\"\n" +
       "expect-rows 1\npress sdoc.btn.cancel\n" + kInvoice + "expect-rows 2");
  auto documents = TableOf("dok_sprzed.ovd");
  ASSERT_EQ(documents->RECORD_COUNT(), 2);
  ASSERT_TRUE(documents->RECORD_LOAD(2));
  EXPECT_EQ(documents->Int("NR_DOK"), 2);
  EXPECT_EQ(documents->Real("WARTOSC_NETTO"), 200);
  EXPECT_EQ(documents->Real("WARTOSC_BRUTTO"), 244);
  EXPECT_EQ(documents->Text("@KONTRAHENT"), "Jan Kowalski");
  EXPECT_EQ(documents->Day("DATA_WYSTAWIENIA").Iso(), "2008-03-05");
  auto lines = TableOf("sprzedane.ovd");
  EXPECT_EQ(lines->FIELD_TYPE("WARTOSC_NETTO"), kCurrency);
  EXPECT_EQ(lines->RECORD_COUNT(), 2);
}

TEST_F(Sessions, TheCompanyIsFoundAgainAtTheNextStart) {
  Play(kStart + kCustomer);
  Play("start\ntab KONTRAHENCI\nexpect-rows 1\nexpect-status \"\"\n");
  EXPECT_FALSE(Contains(session.out, "message")) << session.out;
}

TEST_F(Sessions, DeletingAsksAndKeepsItsGuards) {
  Play(kStart + "tab KONTRAHENCI\ncommand KONTRAHENT.USUŃ\nexpect-message msg.info.norecordstodel\ncommand KONTRAHENT.EDYTUJ\n" +
       "expect-message msg.info.norecordstoedit\n" + kCustomer + kArticle + kInvoice +
       "answer no\ncommand SPRZEDAŻ.USUŃ\nexpect-rows 1\ntab SPRZEDAŻ\nexpect-rows 1\nanswer yes\ncommand SPRZEDAŻ.USUŃ\nexpect-rows 0\n" +
       "command SPRZEDAŻ.EDYTUJ\nexpect-message msg.info.norecordstoedit\n");
  auto documents = TableOf("dok_sprzed.ovd");
  EXPECT_FALSE(documents->RECORD_EXIST(1));
  ASSERT_TRUE(documents->RECORD_LOAD(1));
  for (const char* field : {".TYP", "NR_DOK", "ID_DOK", ".KONTRAHENT", "WARTOSC_BRUTTO"}) EXPECT_EQ(documents->Real(field), 0) << field;
}

TEST_F(Sessions, AFiscalisedDocumentStopsEditingAndDeletionAlsoOfACustomerOfItsNumber) {
  Play(kStart + kCustomer + kArticle + kInvoice);
  {
    auto documents = TableOf("dok_sprzed.ovd");
    ASSERT_TRUE(documents->RECORD_LOAD(1));
    EXPECT_TRUE(documents->FIELD("ZDFISK", true));
    ASSERT_TRUE(documents->RECORD_SAVE(1));
  }
  Play(
      "start\ncommand SPRZEDAŻ.EDYTUJ\nexpect-message msg.info.canteditfsik\nanswer yes\ncommand SPRZEDAŻ.USUŃ\n"
      "expect-message msg.info.cantdeletefsik\ntab KONTRAHENCI\nanswer yes\ncommand KONTRAHENT.USUŃ\nexpect-message "
      "msg.info.cantdeletefsik\nexpect-rows 1");
}

TEST_F(Sessions, ACorrectionIsMadeOnceAndFreesItsDocumentWhenDeleted) {
  const std::string correct = "row 1\nitem SPRZEDAŻ.DODAJ SPRZEDAŻ.DODAJ.FAKTURAKORYGUJĄCA\n";
  Play(kStart + kCustomer + kArticle + kInvoice + correct +
       "expect-rows 1\nexpect txtTypDok \"Faktura korygująca\"\npress sdoc.btn.ok\nexpect-rows 2\n" +
       // The button keeps its choice, so the plain command corrects as well, and refuses a second time.
       "row 1\ncommand SPRZEDAŻ.DODAJ\nexpect-message sdocs.msg.thisdochascdc\nexpect-status sdocs.msg.thisdochascdc\n" +
       "row 2\ncommand SPRZEDAŻ.DODAJ.KOREKTA\nexpect-message sdocs.msg.cantcreatecdc\n" +
       "row 1\nanswer yes\ncommand SPRZEDAŻ.USUŃ\nexpect-status sdocs.msg.thisdochascdc.delorg\nexpect-rows 2\n" +
       "row 2\nanswer yes\ncommand SPRZEDAŻ.USUŃ\nexpect-rows 1\nrow 1\nanswer yes\ncommand SPRZEDAŻ.USUŃ\nexpect-rows 0");
  auto documents = TableOf("dok_sprzed.ovd");
  ASSERT_TRUE(documents->RECORD_LOAD(1));
  EXPECT_EQ(documents->Int("KOREKTA"), 0);
}

TEST_F(Sessions, FindAlphabetAndSortChooseCustomers) {
  std::string script = kStart;
  for (const char* name : {"Żubr", "Adamski", "Zielińska", "Łoś", "3M"}) {
    script += std::string("command KONTRAHENT.DODAJ\nset txtNazwa ") + name + "\nset txtMiejscowość Kutno\npress customer.btn.ok\n";
  }
  Play(script + "tab KONTRAHENCI\nexpect-rows 5\n" +
       "item KONTRAHENCI.SELEKCJA.SORTUJ KONTRAHENCI.SELEKCJA.SORTUJ.ROSNĄCO\nlist\n"
       "item KONTRAHENCI.SELEKCJA.SORTUJ KONTRAHENCI.SELEKCJA.SORTUJ.MALEJĄCO\nlist\n"
       "set @FIND kutno\ncommand KONTRAHENCI.SELEKCJA.ZNAJDŹ\nexpect-rows 5\nset @FIND ŻUBR\ncommand "
       "KONTRAHENCI.SELEKCJA.ZNAJDŹ\nexpect-rows 1\n"
       "item KONTRAHENCI.SELEKCJA.ZNAJDŹ KONTRAHENCI.SELEKCJA.ZNAJDŹ.WSZYSTKO\nexpect-rows 5\n"
       "command KONTRAHENCI.SELEKCJA.ALFABET.A-D\nexpect-rows 1\ncommand KONTRAHENCI.SELEKCJA.ALFABET.X-Z\nexpect-rows 2\n"
       "command KONTRAHENCI.SELEKCJA.ALFABET.I-L\nexpect-rows 1\ncommand KONTRAHENCI.SELEKCJA.ALFABET.0-9\nexpect-rows 1\n"
       "command KONTRAHENCI.SELEKCJA.ALFABET.ALL\nexpect-rows 5\n");
  std::vector<std::string> order;
  for (const std::string& row : Split(session.out, '\n')) {
    const auto cells = Split(row, '\t');
    if (cells.size() > 2) order.push_back(cells[2]);
  }
  // "Żubr" folds to "zubr": after "zielinska"; a name that is no number stands after digits.
  EXPECT_EQ(order, (std::vector<std::string>{"3M", "Adamski", "Łoś", "Zielińska", "Żubr", "Żubr", "Zielińska", "Łoś", "Adamski", "3M"}));
}

TEST_F(Sessions, PeriodsReachAsFarBackAsTheirTableSays) {
  std::string script = kStart + kCustomer + kArticle;
  // Today is 5 March 2008.
  for (const char* day : {"2008-03-05", "2008-03-01", "2008-01-02", "2007-12-04", "2007-12-03", "2007-03-05"}) {
    script += "command SPRZEDAŻ.DODAJ\nset txtDataWyst " + std::string(day) + "\npress sdoc.btn.ok\n";
  }
  const auto pick = [](const std::string& period, const std::string& choice, int rows) {
    const std::string parent = "SPRZEDAŻ.OKRES." + period;
    return "item " + parent + " " + parent + "." + choice + "\nexpect-rows " + std::to_string(rows) + "\n";
  };
  // The one document of today is current at once, wherever the list stood.
  Play(script +
       "row 6\ncommand SPRZEDAŻ.OKRES.DZISIAJ\nexpect-rows 1\ncommand SPRZEDAŻ.EDYTUJ\nexpect txtDataWyst 2008-03-05\npress "
       "sdoc.btn.cancel\n" +
       pick("OSTATNI", "TYDZIEŃ", 2) + pick("OSTATNI", "MIESIĄC", 2) + pick("OSTATNI", "KWARTAŁ", 4) + pick("OSTATNI", "ROK", 5) +
       pick("BIEŻĄCY", "TYDZIEŃ", 1) + pick("BIEŻĄCY", "MIESIĄC", 2) + pick("BIEŻĄCY", "KWARTAŁ", 3) + pick("BIEŻĄCY", "ROK", 3) +
       "command SPRZEDAŻ.OKRES.WSZYSTKIE\nexpect-rows 6\n");
}

TEST_F(Sessions, AMissingCompanyLeadsThroughTheConnectionDialog) {
  Play(
      "start\npress qdb.btn.create\nset userName kreda\nset userPassword1 kreda\nset userPassword2 kreda\npress qdbc.btn.create\n"
      "expect-message msg.info.dbcreateok\npress qdb.btn.ok\ntab KONTRAHENCI\n" +
      std::string(kCustomer) + "expect-rows 1\n");
  EXPECT_TRUE(Contains(session.out, "message 48 ")) << session.out;  // the first-run box
  EXPECT_TRUE(surroundings.files.FileExists(session.folder / "app/data/kontrahenci.ovd"));
}

TEST_F(Sessions, AWrongPasswordIsToldAndCommandsSayThatNothingIsOpen) {
  Play(kStart);
  Play(
      "setting Velmora.common dbLogin password zła\nstart\nexpect-message msg.info.cantopendatabase\npress qdb.btn.cancel\n"
      "command SPRZEDAŻ.DODAJ\nexpect-message msg.info.dbnotopen\ntab ZAKUP\nexpect-rows 0\n");
}

TEST_F(Sessions, WhatIsNotBuiltSaysSo) {
  Play(kStart + "command BACKUP\nexpect-status common.notbuilt\ntab ZAKUP\ncommand ZAKUP.DODAJ\nexpect-status common.notbuilt");
}

TEST_F(Sessions, ACloneIsANewRecordFilledFromTheCurrentOne) {
  Play(kStart + kCustomer + kArticle +
       "tab KONTRAHENCI\ncommand KONTRAHENT.DODAJ.KLONUJ\nexpect txtNazwa \"Jan Kowalski\"\nset txtNazwa Drugi\n" +
       "press customer.btn.ok\nexpect-rows 2\ntab TOWARYUSŁUGI\ncommand TOWARUSŁUGA.DODAJ.KLONUJ\npress product.btn.ok\nexpect-rows 2\n");
}

TEST_F(Sessions, KeysWalkTheListAndChangeTabs) {
  Play(kStart + "key 118\n" + kCustomer + "command KONTRAHENT.DODAJ\nset txtNazwa Drugi\npress customer.btn.ok\n" +
       "key 36\nkey 13\nexpect txtNazwa \"Jan Kowalski\"\npress customer.btn.cancel\nkey 40\nkey 13\nexpect txtNazwa Drugi\npress "
       "customer.btn.cancel\n" +
       "key 35\nanswer yes\nkey 46\nexpect-rows 1\nalt\nkey 75\nset txtNazwa Trzeci\npress customer.btn.ok\nexpect-rows 2\n");
}

}  // namespace
}  // namespace ostrinka
