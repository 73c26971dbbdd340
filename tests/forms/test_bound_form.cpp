#include "engine/table_fixture.h"
#include "forms/bound_control.h"

namespace ostrinka {
namespace {

class BoundForm : public Form {
 public:
  TextBoxControl txtNazwa, txtObca, txtGrupa;
  ComboControl cmbGrupa;
  CheckBoxControl chkUsluga;
  CalendarControl calData;
  MemoControl lstPliki;
  BoundForm() : Form("frm_Test", "test.title") {
    Register("txtNazwa", txtNazwa);
    Register("cmbGrupa", cmbGrupa);
    Register("txtGrupa", txtGrupa);
    Register("chkUsluga", chkUsluga);
    Register("calData", calData);
    Register("lstPliki", lstPliki);
  }
};

class BoundFormTest : public TableTest {
 protected:
  std::unique_ptr<ClassQDBASE> groups, table;
  BoundForm form;

  // The second article is of the second group.
  void SetUp() override {
    groups = Create(surroundings.folder / "grupy.ovd");
    EXPECT_TRUE(groups->FIELD_ADD("OPIS", kText, 10, "", ""));
    for (const char* name : {"stal", "drewno", "szkło"}) EXPECT_TRUE(groups->RECORD_ADD({std::string(name)}));
    EXPECT_TRUE(FilledGoods()->FIELD_ADD("GRUPA", kLink, 0, "grupy.ovd", "OPIS"));
    table = Open(path, true);
    EXPECT_TRUE(table->FIELD_ADD("PLIKI", kMemo, 0, "", ""));
    table->RECORD_LOAD(2);
    EXPECT_TRUE(table->FIELD("GRUPA", Value(2)));
    EXPECT_TRUE(table->RECORD_SAVE(2));
  }
};

TEST_F(BoundFormTest, ItShowsTheRecordAndGivesItBack) {
  EXPECT_TRUE(groups->RECORD_DELETE(2));
  SetBytes(surroundings.folder / "a.txt", "x");
  table->RECORD_POSITION(5);
  ASSERT_TRUE(table->MEMO_ADD("PLIKI", surroundings.folder / "a.txt"));

  table->FORM_OBJECT_ADD(Bound(form.txtNazwa), "NAZWA");  // not connected yet
  table->FORM_CONNECT(form);
  table->FORM_OBJECT_ADD(Bound(form.txtNazwa), "NAZWA");
  table->FORM_OBJECT_ADD(Bound(form.txtObca), "NAZWA");  // of no form
  table->FORM_OBJECT_ADD(Bound(form.cmbGrupa), "@GRUPA");
  table->FORM_OBJECT_ADD(Bound(form.chkUsluga), "USLUGA");
  table->FORM_OBJECT_ADD(Bound(form.calData), "DATA");
  table->FORM_OBJECT_ADD(Bound(form.lstPliki), "PLIKI");
  EXPECT_EQ(form.cmbGrupa.ListCount(), 3) << "an empty item and the live records";
  table->MOVE_LAST();
  EXPECT_EQ(form.txtNazwa.Text(), "Montaż");
  EXPECT_EQ(form.txtObca.Text(), "");
  EXPECT_TRUE(form.chkUsluga.Checked());
  EXPECT_EQ(form.calData.CurrentDate(), *Date::FromYmd(2008, 3, 5));
  EXPECT_EQ(form.cmbGrupa.Text(), "");
  ASSERT_EQ(form.lstPliki.items().size(), 1u);
  EXPECT_EQ(form.lstPliki.items()[0].name, "a.txt");

  form.txtNazwa.SetText("Serwis");
  form.chkUsluga.SetChecked(false);
  form.calData.SetCurrentDate(*Date::FromYmd(2008, 4, 1));
  form.cmbGrupa.SelectText("szkło");
  EXPECT_TRUE(table->FORM_SAVE());
  ASSERT_TRUE(table->RECORD_SAVE(5));
  table->RECORD_LOAD(5);
  EXPECT_EQ(table->Text("NAZWA"), "Serwis");
  EXPECT_EQ(table->Text("DATA"), "2008-04-01");
  EXPECT_EQ(table->Int("GRUPA"), 3);
  EXPECT_FALSE(table->Flag("USLUGA"));

  // A link to a deleted record is neither lost on saving nor shown empty.
  table->MOVE_FIRST();
  EXPECT_TRUE(table->MOVE_NEXT());
  EXPECT_EQ(form.cmbGrupa.Text(), "drewno");
  EXPECT_TRUE(table->FORM_SAVE());
  EXPECT_EQ(table->Int("GRUPA"), 2);
  table->FORM_DISCONNECT();
  EXPECT_EQ(form.txtNazwa.Text(), "");
  table->MOVE_FIRST();
  EXPECT_EQ(form.txtNazwa.Text(), "");
}

TEST_F(BoundFormTest, ATextShowsALinkAndIsNotWrittenIntoIt) {
  table->RECORD_POSITION(2);
  table->FORM_CONNECT(form);
  table->FORM_OBJECT_ADD(Bound(form.txtGrupa), "@GRUPA");
  table->FORM_REFRESH();
  EXPECT_EQ(form.txtGrupa.Text(), "drewno");
  form.txtGrupa.SetText("3");
  EXPECT_TRUE(table->FORM_SAVE());
  EXPECT_EQ(table->Int(".GRUPA"), 2);
  EXPECT_EQ(table->last_error_code(), -1) << "nor tried";
}

TEST_F(BoundFormTest, AControlBoundAgainShowsTheLatterField) {
  table->RECORD_POSITION(1);
  table->FORM_CONNECT(form);
  table->FORM_OBJECT_ADD(Bound(form.txtNazwa), "NAZWA");
  table->FORM_OBJECT_ADD(Bound(form.txtNazwa), "CENA");
  table->FORM_OBJECT_ADD(Bound(form.txtGrupa), "PLIKI");  // no list of attachments
  table->FORM_REFRESH();
  EXPECT_EQ(form.txtNazwa.Text(), "12,5");
  EXPECT_EQ(form.txtGrupa.Text(), "");
  form.txtNazwa.SetText("13");
  EXPECT_TRUE(table->FORM_SAVE());
  EXPECT_EQ(table->Text("NAZWA"), "Łopata");
  EXPECT_EQ(table->Text("CENA"), "13");
}

}  // namespace
}  // namespace ostrinka
