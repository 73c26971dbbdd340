// Currencies, rates and advances in the editor of sales documents, and what becomes of a document that cannot be written.
#include "sales/sales_form_fixture.h"

namespace ostrinka {

class SalesMoneyTest : public SalesFormTest {
 protected:
  // A document with a line of 10 net and 12,20 gross in `currency` at `rate`; its record.
  int32_t AddDocumentAt(int32_t currency, float rate) {
    const int32_t record = AddDocument(kInvoice, "2008-03-01", 5, 50);
    Change(kDokSprzed, record, {{"WALUTA", currency}, {"KURS", rate}});
    AddStoredLine(50, AddArticle("Pompa", 10, 12.2), "1", "10", "12,2");
    return record;
  }
  std::string CurrencyOf(int32_t record) { return Stored(kDokSprzed, record, ".WALUTA") + " at " + Stored(kDokSprzed, record, "KURS"); }
};

TEST_F(SalesMoneyTest, AStoredRateComesBackWithItsCurrencyAndIsWrittenAtOnce) {
  const int32_t record = AddDocumentAt(kEuro, 3.7F);
  auto form = Edit(record);
  Set(form->txtWaluta, "#1");
  EXPECT_EQ(CurrencyOf(record), "1 at 1");
  EXPECT_EQ(Stored(kDokSprzed, record, "WARTOSC_NETTO"), "37");
  Set(form->txtWaluta, "#2");
  EXPECT_EQ(form->txtKurs.Text(), "3,7000") << "its own, not that of the dictionary";
  EXPECT_EQ(CurrencyOf(record), "2 at 3,7");
  EXPECT_EQ(Stored(kDokSprzed, record, "WARTOSC_NETTO"), "10");
  EXPECT_EQ(Stored(kSprzedane, 1, "CENA_BRUTTO"), "12,2");
  form = Edit(record);  // what was given up is written all the same
  EXPECT_EQ(form->txtKurs.Text(), "3,7000");
}

TEST_F(SalesMoneyTest, WhatStandsOnTheScreenIsStoredAndStaysWhenItIsOpenedAndSavedUntouched) {
  const int32_t cheap = AddArticle("Nit", 3.33, 4.06), other = AddArticle("Klej", 1, 1.22);
  auto form = NewDocument();
  AddArticleLine(*form, cheap, "10000");
  AddArticleLine(*form, other, "1");
  Set(form->txtWaluta, "#2");
  const double net = form->totals().net, gross = form->totals().gross;
  const int32_t record = Save(*form);
  const auto line = [&](int32_t n) {
    return Stored(kSprzedane, n, "CENA_BRUTTO") + " " + Stored(kSprzedane, n, "WARTOSC_NETTO") + " " +
           Stored(kSprzedane, n, "WARTOSC_BRUTTO");
  };
  const std::string first = line(1), second = line(2);
  for (const int row : {1, 2}) {
    form = Edit(record);
    ASSERT_TRUE(form->SQL_Pic.UserClick(row, 1));
    Save(*form);
    EXPECT_EQ(line(1) + "; " + line(2), first + "; " + second) << row;
    EXPECT_EQ(Stored(kDokSprzed, record, "WARTOSC_NETTO"), ToText(net)) << row;
    EXPECT_EQ(Stored(kDokSprzed, record, "WARTOSC_BRUTTO"), ToText(gross)) << row;
  }
  // A line that the person changes is counted anew, and no other.
  form = Edit(record);
  EditLine(*form, 2, [](frm_Dok_add_TU& dialog) {
    Set(dialog.txtIlość, "2");
    Press(dialog.btnOK);
  });
  Save(*form);
  EXPECT_EQ(line(1), first);
  EXPECT_NE(line(2), second);
}

TEST_F(SalesMoneyTest, ADocumentWithoutARateIsInTheHomeCurrency) {
  const int32_t abroad = AddArticle("Pumpe", 10, 12.2, kVat22, kEuro);
  const int32_t record = AddDocumentAt(kZloty, 0);
  auto form = Edit(record);
  EXPECT_EQ(form->txtKurs.Text(), "0,0000");
  AddArticleLine(*form, abroad, "1");
  EXPECT_EQ(Stored(kSprzedane, 2, "CENA_NETTO"), "35");
  EditLine(*form, 1, [&](frm_Dok_add_TU& dialog) {
    Set(dialog.txtComboTU, "#" + std::to_string(abroad));
    EXPECT_EQ(dialog.txtCenaNetto.Text(), "35,00");
    Press(dialog.btnCancel);
  });
  Set(form->txtWaluta, "#2");
  EXPECT_EQ(Stored(kSprzedane, 2, "CENA_NETTO"), "10");

  const int32_t worthless = Add(kWaluty, {{"NAZWA", std::string("Bez kursu")}});
  form = Edit(record);
  Set(form->txtWaluta, "#" + std::to_string(worthless));
  EXPECT_EQ(form->txtKurs.Text(), "0,0000");
  EXPECT_EQ(Stored(kSprzedane, 2, "CENA_NETTO"), "35");
  EXPECT_EQ(CurrencyOf(record), std::to_string(worthless) + " at 1");
}

TEST_F(SalesMoneyTest, AnAdvanceInAnotherCurrencyIsSettledInThatOfTheDocument) {
  AddCustomer("Jeden");
  const int32_t advance = AddDocument(kAdvanceInvoice, "2008-02-01", 1, 60);
  Change(kDokSprzed, advance, {{"KONTRAHENT", int32_t{1}}, {"WALUTA", kEuro}, {"KURS", 3.5F}});
  AddStoredLine(60, AddArticle("Dom", 100, 122), "1", "100", "122");
  auto form = NewDocument();
  Set(form->txtKontrahent, "Jeden");
  Set(form->txtWaluta, "#3");
  AddLine(*form, [](frm_Dok_add_TU& dialog) {
    ASSERT_TRUE(dialog.UserShowPage("ZAL"));
    ASSERT_TRUE(dialog.picFZ.UserClick(1, 1));
    Press(dialog.btnOK);
  });
  EXPECT_DOUBLE_EQ(form->totals().gross, -122) << "the amounts as they are";
  const int32_t article = Table(program, kTowaryUslugi).RECORD_COUNT();
  EXPECT_EQ(Stored(kSprzedane, 2, ".NAZWA_T_U"), std::to_string(article));
  EXPECT_EQ(Stored(kTowaryUslugi, article, ".WALUTA"), std::to_string(kDollar));
}

TEST_F(SalesMoneyTest, ReminderDaysPastSixteenBitsSurviveTheEditor) {
  const int32_t record = AddDocumentAt(kZloty, 1);
  Change(kDokSprzed, record, {{"ABN_KONIEC", true}, {"ABN_KONIEC_DNI", int32_t{70000}}});
  auto form = Edit(record);
  EXPECT_EQ(form->txtAbonamentDni.Text(), "70000");
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, "ABN_KONIEC_DNI"), "70000");
}

TEST_F(SalesMoneyTest, ADocumentThatCannotBeWrittenStaysInTheEditorAndLeavesNoRecord) {
  AddDocument(kInvoice, "2008-03-01", 5);
  ClassQDBASE& documents = Table(program, kDokSprzed);
  const int32_t article = AddArticle("Młotek", 10, 12.2);
  auto form = NewDocument();
  AddArticleLine(*form, article, "3");
  const struct {
    FileCall call;
    int after;
    const char* what;
  } rows[] = {{FileCall::kGrow, 0, "the empty record"},
              {FileCall::kOverwrite, 0, "the number of records"},
              {FileCall::kOverwrite, 1, "its fields"}};
  for (const auto& row : rows) {
    const size_t told = platform.ui.messages.size();
    platform.files.Refuse(row.call, "dok_sprzed.ovd", row.after);
    Press(form->btnSave);
    EXPECT_TRUE(form->IsOpen()) << row.what;
    EXPECT_EQ(platform.ui.messages.size(), told + 1) << row.what;
    EXPECT_EQ(NewestMessage(), program.Text("msg.info.error"));
    documents.SELECTION("*", "*", "", ordAsc);
    EXPECT_EQ(documents.MAX_ROWS(), 1) << row.what;
    EXPECT_EQ(form->SQL_Pic.source->Rows(), 1) << row.what;
  }
  const int32_t record = Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, "NR_DOK"), "6");
  EXPECT_EQ(Stored(kDokSprzed, record, "WARTOSC_NETTO"), "30");

  form = Edit(record);
  Set(form->txtOdebrał, "Zenon");
  platform.files.Refuse(FileCall::kOverwrite, "dok_sprzed.ovd");
  Press(form->btnSave);
  EXPECT_TRUE(form->IsOpen());
  EXPECT_EQ(Stored(kDokSprzed, record, "ODEBRAL"), "");
  Save(*form);
  EXPECT_EQ(Stored(kDokSprzed, record, "ODEBRAL"), "Zenon");
}

}  // namespace ostrinka
