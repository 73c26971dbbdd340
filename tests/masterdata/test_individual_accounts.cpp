#include "masterdata/company_form.h"
#include "masterdata/individual_accounts_form.h"
#include "support/company.h"
#include "support/form_person.h"

namespace ostrinka {
namespace {

class IndividualAccountsTest : public CompanyTest {
 protected:
  void SetUp() override {
    AddCustomer("Hotel Nad Wisłą", "Krótka", "24-120");
    AddCustomer("Stolarnia", "Leśna", "20-001");
    const int32_t gone = AddCustomer("Skreślony", "", "");
    AddCustomer("Zajazd", "Hotelowa", "20-002");
    EXPECT_TRUE(Table(program, kKontrahenci).RECORD_DELETE(gone));
  }
  int32_t AddCustomer(const std::string& name, const std::string& street, const std::string& code) {
    return Add(kKontrahenci, {{"NAZWA", name}, {"ULICA", street}, {"KOD_POCZTOWY", code}, {"GRUPA", int32_t{4}}});
  }
  void Open(frm_Admin_usr_konta_& form) {
    form.reload_();
    form.Open();
  }
  std::vector<std::string> Names(frm_Admin_usr_konta_& form) {
    std::vector<std::string> names;
    for (int row = 1; row <= form.SQL_Pic.source->Rows(); ++row) names.push_back(form.SQL_Pic.source->CellText(row, 3));
    return names;
  }
  std::pair<bool, std::string> Stored(int32_t record) {
    ClassQDBASE& customer = At(kKontrahenci, record);
    return {customer.Flag("KONTO_INDYW_OK"), customer.Text("KONTO_INDYW_RACH")};
  }
};

TEST_F(IndividualAccountsTest, ShowsAllCustomersWithTheirAccountsFirst) {
  Add(kKontrahenci, {{"NAZWA", std::string("Ostatni")}, {"KONTO_INDYW_OK", true}, {"KONTO_INDYW_RACH", std::string("77")}});
  frm_Admin_usr_konta_ form(program);
  Open(form);
  TableSource& table = *form.SQL_Pic.source;
  EXPECT_EQ(table.Rows(), 4);
  const char* headings[] = {"tdb.cust.acount", "tdb.cust.peraco", "tdb.cust.name",  "tdb.cust.nip",
                            "tdb.cust.street", "tdb.cust.house",  "tdb.cust.local", "tdb.cust.city"};
  ASSERT_EQ(table.Columns(), static_cast<int>(std::size(headings)));
  for (int column = 1; column <= table.Columns(); ++column) EXPECT_EQ(table.HeadingOf(column), program.Text(headings[column - 1]));
  EXPECT_EQ(table.CellText(1, 1), "Nie");
  EXPECT_EQ(table.CellText(4, 1), "Tak");
  EXPECT_EQ(table.CellText(4, 2), "77");
  ASSERT_TRUE(form.SQL_Pic.UserClick(4, 3));
  EXPECT_EQ(form.txtKontoIndywidualne.Text(), "77");
}

TEST_F(IndividualAccountsTest, WhatIsTypedIsStoredAtOnceAndEmptyingClearsTheFlag) {
  frm_Admin_usr_konta_ form(program);
  Open(form);
  ASSERT_TRUE(form.SQL_Pic.UserClick(3, 1));
  ASSERT_TRUE(form.txtKontoIndywidualne.UserEnter());
  ASSERT_TRUE(form.txtKontoIndywidualne.UserSet("12 3"));
  EXPECT_EQ(Stored(4), std::pair(true, std::string("12 3"))) << "without leaving the field";
  EXPECT_EQ(form.SQL_Pic.source->CellText(3, 1), "Tak");
  EXPECT_EQ(Stored(1), std::pair(false, std::string())) << "nobody else's";
  EXPECT_EQ(At(kKontrahenci, 4).Text("ULICA"), "Hotelowa");
  EXPECT_EQ(At(kKontrahenci, 4).Int(".GRUPA"), 4);
  ASSERT_TRUE(form.txtKontoIndywidualne.UserSet("  "));
  EXPECT_EQ(Stored(4), std::pair(false, std::string()));
  EXPECT_EQ(form.SQL_Pic.source->CellText(3, 1), "Nie");
  EXPECT_TRUE(form.txtKontoIndywidualne.UserSet(std::string(1000, '7')));
  EXPECT_FALSE(form.txtKontoIndywidualne.UserSet(std::string(1001, '7'))) << "longer than its field";
  EXPECT_EQ(Stored(4).second.size(), 1000u);
}

TEST_F(IndividualAccountsTest, SearchLooksIntoAllFieldsAndStoresWhatIsShown) {
  frm_Admin_usr_konta_ form(program);
  Open(form);
  using testing::ElementsAre;
  ASSERT_TRUE(Set(form.txtZnajdź, "HOTEL"));
  EXPECT_THAT(Names(form), ElementsAre("Hotel Nad Wisłą", "Zajazd")) << "by the name and by the street";
  ASSERT_TRUE(form.SQL_Pic.UserClick(2, 1));
  ASSERT_TRUE(Set(form.txtKontoIndywidualne, "5"));
  ASSERT_TRUE(Set(form.txtZnajdź, "zajazd"));
  EXPECT_EQ(form.txtKontoIndywidualne.Text(), "5") << "the current customer stays current";
  ASSERT_TRUE(Set(form.txtZnajdź, "zaufani"));
  EXPECT_EQ(form.SQL_Pic.source->Rows(), 3) << "by the group, through its link";
  ASSERT_TRUE(Set(form.txtZnajdź, "24-120"));
  EXPECT_THAT(Names(form), ElementsAre("Hotel Nad Wisłą")) << "by a field that is not on show";
  EXPECT_EQ(form.txtKontoIndywidualne.Text(), "") << "of the customer that is current now";
  ASSERT_TRUE(Set(form.txtZnajdź, "nikt"));
  EXPECT_THAT(Names(form), ElementsAre());
  EXPECT_FALSE(Set(form.txtKontoIndywidualne, "6")) << "there is nobody to give it to";
  ASSERT_TRUE(Set(form.txtZnajdź, " \" "));
  EXPECT_EQ(form.SQL_Pic.source->Rows(), 3);
  EXPECT_EQ(Stored(1).first || Stored(2).first, false);
}

TEST_F(IndividualAccountsTest, ManyAccountsAreTypedInARowByTheKeyboard) {
  frm_Admin_usr_konta_ form(program);
  Open(form);
  EXPECT_EQ(form.focus(), &form.txtZnajdź);
  EXPECT_TRUE(form.UserKey(kKeyDown, false));
  EXPECT_TRUE(form.UserKey(kKeyUp, false));
  EXPECT_TRUE(form.UserKey(kKeyUp, false));
  EXPECT_EQ(form.SQL_Pic.source->CurrentRow(), 1);
  EXPECT_TRUE(form.UserKey(kKeyEnter, false));
  for (const char* account : {"1", "2", "3"}) {
    ASSERT_EQ(form.focus(), &form.txtKontoIndywidualne);
    EXPECT_EQ(form.txtKontoIndywidualne.Text(), "");
    ASSERT_TRUE(form.txtKontoIndywidualne.UserSet(account));
    EXPECT_TRUE(form.UserKey(kKeyEnter, false));
  }
  EXPECT_EQ(form.focus(), &form.txtZnajdź) << "after the last customer";
  EXPECT_EQ(Stored(1).second + Stored(2).second + Stored(4).second, "123");
}

TEST_F(IndividualAccountsTest, AnAccountThatCannotBeStoredDoesNotStayInTheField) {
  frm_Admin_usr_konta_ form(program);
  Open(form);
  ASSERT_TRUE(Set(form.txtKontoIndywidualne, "1"));
  const std::string path = Table(program, kKontrahenci).DATABASE_PATH(), away = platform.folder / "away";
  std::filesystem::rename(path, away);
  form.txtKontoIndywidualne.UserSet("12");
  EXPECT_EQ(platform.ui.beeps, 1);
  EXPECT_NE(form.txtKontoIndywidualne.Text(), "12");
  std::filesystem::rename(away, path);
  ASSERT_TRUE(Set(form.txtZnajdź, ""));
  EXPECT_EQ(form.txtKontoIndywidualne.Text(), "1");
  ASSERT_TRUE(form.txtKontoIndywidualne.UserSet("13"));
  EXPECT_EQ(Stored(1).second, "13");
}

TEST_F(IndividualAccountsTest, TheCompanyDialogOpensItWhereACompanyIsOpen) {
  frm_Admin_usr_ company(program);
  company.reload_();
  company.Open();
  std::string shown;
  platform.ui.on_modal = [&](Form& dialog) {
    shown = dialog.form_name();
    EXPECT_TRUE(Set(*dialog.Find("txtKontoIndywidualne"), "99"));
    EXPECT_TRUE(dialog.FindButton("usr.aper.close")->UserPress());
    EXPECT_FALSE(dialog.IsOpen());
  };
  ASSERT_TRUE(company.btnKonta.UserPress());
  EXPECT_EQ(shown, "frm_Admin_usr_konta_");
  EXPECT_EQ(Stored(1).second, "99");
  EXPECT_TRUE(company.IsOpen());
  OSTEngine(program).close_(false);
  shown.clear();
  ASSERT_TRUE(company.btnKonta.UserPress());
  EXPECT_EQ(shown, "");
  EXPECT_THAT(MessageTexts(), testing::ElementsAre(program.Text("msg.info.dbnotopen")));
}

}  // namespace
}  // namespace ostrinka
