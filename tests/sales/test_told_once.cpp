// What the editor of sales documents tells when something cannot be done: once.
#include "sales/sales_form_fixture.h"

namespace ostrinka {

class ToldOnceTest : public SalesFormTest {
 protected:
  size_t Errors() {
    const std::string error = program.Text("msg.info.error");
    size_t count = 0;
    for (const std::string& text : MessageTexts()) count += text == error ? 1 : 0;
    platform.ui.messages.clear();
    return count;
  }
};

TEST_F(ToldOnceTest, ALineTooLargeForMoneyIsToldOnceAndCanBeCorrected) {
  const int32_t article = AddArticle("Złoto", 900000000, 900000000);
  auto form = NewDocument();
  int shown = 0;
  AddLine(*form, [&](frm_Dok_add_TU& dialog) {
    if (++shown == 1) Set(dialog.txtComboTU, "#" + std::to_string(article));
    Set(dialog.txtIlość, shown == 1 ? "900000000" : "2");
    Press(dialog.btnOK);
  });
  EXPECT_EQ(shown, 2);
  EXPECT_EQ(Errors(), 1u);
  EXPECT_DOUBLE_EQ(form->totals().net, 1800000000);
  EditLine(*form, 1, [&](frm_Dok_add_TU& dialog) {
    if (++shown == 4) return Press(dialog.btnCancel);
    Set(dialog.txtIlość, "900000000");
    Press(dialog.btnOK);
  });
  EXPECT_EQ(Errors(), 1u);
  EXPECT_EQ(Stored(kSprzedane, 1, "ILOSC"), "2");
}

TEST_F(ToldOnceTest, ALineThatCannotBeEmptiedStaysAndGoesOnCounting) {
  const int32_t record = AddDocument(kInvoice, "2008-03-01", 5, 50);
  AddStoredLine(50, AddArticle("Pompa", 10, 12.2), "1", "10", "12,2");
  auto form = Edit(record);
  platform.ui.answers = {Answer::kYes};
  platform.files.Refuse(FileCall::kOverwrite, "sprzedane.ovd");
  ASSERT_TRUE(form->SQL_Pic.UserClick(1, 1));
  Press(form->btnRemove);
  EXPECT_EQ(Errors(), 1u);
  EXPECT_EQ(form->SQL_Pic.source->Rows(), 1);
  EXPECT_EQ(Stored(kSprzedane, 1, "WARTOSC_NETTO"), "10");
}

TEST_F(ToldOnceTest, AnAdvanceWithoutValueIsToldByTheEditor) {
  AddCustomer("Jeden");
  const int32_t advance = AddDocument(kAdvanceInvoice, "2008-02-01", 1, 60);
  Change(kDokSprzed, advance, {{"KONTRAHENT", int32_t{1}}});
  auto form = NewDocument();
  Set(form->txtKontrahent, "Jeden");
  AddLine(*form, [](frm_Dok_add_TU& dialog) {
    ASSERT_TRUE(dialog.UserShowPage("ZAL"));
    ASSERT_TRUE(dialog.picFZ.UserClick(1, 1));
    Press(dialog.btnOK);
  });
  EXPECT_EQ(MessageTexts(), std::vector<std::string>{program.Text("msg.info.cantadddocfzv0")});
}

}  // namespace ostrinka
