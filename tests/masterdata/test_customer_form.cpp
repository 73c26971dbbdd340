#include "masterdata/customer_form.h"
#include "masterdata/postal.h"
#include "support/company.h"
#include "support/form_person.h"

namespace ostrinka {
namespace {

using testing::ElementsAre;

std::string Scrambled(const std::string& text, size_t length) {
  std::string bytes;
  for (size_t i = 0; i < length; ++i) {
    const auto plain = static_cast<uint8_t>(i < text.size() ? text[i] : ' ');
    bytes += static_cast<char>((plain ^ 0x80) + i + 1);
  }
  return bytes;
}

class CustomerFormTest : public CompanyTest {
 protected:
  void Open(EditMode mode, int32_t record = 0) {
    form.reload_(mode, record);
    form.Open();
  }
  void Save() { ASSERT_TRUE(form.btnSave.UserPress()); }
  frm_Kontrahenci_ form{program};
};

TEST_F(CustomerFormTest, NewCustomerIsStoredShownAndMadeCurrent) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNazwa, " Młyn \"Żuraw\" sp. z o.o. "));
  ASSERT_TRUE(Set(form.txtSymbol, "ŻUR"));
  ASSERT_TRUE(Set(form.txtGrupa, "Zaufani"));
  ASSERT_TRUE(Set(form.txtMiejscowość, "Łódź"));
  ASSERT_TRUE(Set(form.txtWojewództwo, "łódzkie"));
  ASSERT_TRUE(Set(form.txtPaństwo, "Polska"));
  ASSERT_TRUE(Set(form.txtUwagi, "pierwsza\r\ndruga"));
  const std::string payment = form.txtFormaPłat.List(1);
  ASSERT_TRUE(Set(form.txtFormaPłat, payment));
  Save();
  EXPECT_FALSE(form.IsOpen());
  EXPECT_EQ(form.saved_record(), 1);
  ClassQDBASE& customers = At(kKontrahenci, 1);
  EXPECT_EQ(customers.Text("NAZWA"), "Młyn \"Żuraw\" sp. z o.o.");
  EXPECT_EQ(customers.Text("SYMBOL"), "ŻUR");
  EXPECT_EQ(customers.Text("@GRUPA"), "Zaufani");
  EXPECT_EQ(customers.Text("@WOJEWODZTWO"), "łódzkie");
  EXPECT_EQ(customers.Text("@PANSTWO"), "Polska");
  EXPECT_EQ(customers.Text("@D_FORMA_PLAT"), payment);
  EXPECT_EQ(customers.Text("UWAGI"), "pierwsza\r\ndruga");
  EXPECT_TRUE(customers.RECORD_SELECT(1));
  EXPECT_EQ(customers.RECORD_POSITION(), 1);
}

TEST_F(CustomerFormTest, BlankNameIsRefusedByAFlashAndABeepAlone) {
  Open(EditMode::kNew);
  ASSERT_TRUE(form.UserShowPage("OTH"));
  ASSERT_TRUE(Set(form.txtNazwa, "  "));
  std::vector<int> grounds;
  form.txtNazwa.Repaint += [&] { grounds.push_back(form.txtNazwa.BackColorIndex); };
  Save();
  EXPECT_TRUE(form.IsOpen());
  EXPECT_EQ(form.page(), "STD");
  EXPECT_EQ(form.focus(), &form.txtNazwa);
  EXPECT_EQ(platform.ui.beeps, 1);
  EXPECT_EQ(platform.ui.turns, 5);
  EXPECT_THAT(grounds, ElementsAre(17, 0, 17, 0, 17, 0, 17, 0, 17, 0));
  EXPECT_TRUE(platform.ui.messages.empty());
  EXPECT_EQ(Table(program, kKontrahenci).RECORD_COUNT(), 0);
  EXPECT_EQ(form.saved_record(), 0);
}

TEST_F(CustomerFormTest, SavingAnUntouchedRecordChangesNoByteOfIt) {
  const int32_t group = Add(kGrupy, {{"NAZWA", Value(std::string("Dawni"))}});
  const int32_t other = Add(kGrupy, {{"NAZWA", Value(std::string("Lokalni"))}});  // a second group of that name
  Add(kKontrahenci, {{"NAZWA", Value(std::string("Zakład"))},
                     {"GRUPA", Value(group)},
                     {"D_FORMA_PLAT", Value(int32_t{2})},
                     {"PRACOWNIK", Value(std::string("Ewa"))},
                     {"KONTO_INDYW_OK", Value(true)},
                     {"KONTO_INDYW_RACH", Value(std::string("12 3456"))}});
  Add(kKontrahenci, {{"NAZWA", Value(std::string("Sklep"))}, {"GRUPA", Value(other)}});
  ASSERT_TRUE(Table(program, kGrupy).RECORD_DELETE(group));  // the link outlives the group
  const std::string before = Bytes(kKontrahenci);
  for (const int32_t record : {1, 2}) {
    Open(EditMode::kEdit, record);
    EXPECT_FALSE(form.Dirty());
    EXPECT_EQ(form.txtGrupa.Text(), record == 1 ? "Dawni" : "Lokalni") << "a deleted group is still shown";
    Save();
    EXPECT_EQ(form.saved_record(), record);
  }
  EXPECT_TRUE(Bytes(kKontrahenci) == before);
}

TEST_F(CustomerFormTest, DoubtfulNumbersAreMarkedAndSavedAllTheSame) {
  const struct {
    TextBoxControl& box;
    const char* text;
    bool doubtful;
  } rows[] = {
      {form.TxtNIP, "123-456-32-18", false},
      {form.TxtNIP, "123-456-32-19", true},
      {form.txtRegon, "123456785", false},
      {form.txtRegon, "123456786", true},
      {form.txtNrKonta, "61 1090 1014 0000 0712 1981 2874", false},
      {form.txtNrKonta, "PL61109010140000071219812874", false},
      {form.txtNrKonta, "61 1090 1014 0000 0712 1981 2875", true},
      {form.txtNrKonta, "00000061109010140000071219812874000", true},
  };
  Open(EditMode::kNew);
  EXPECT_FALSE(form.TxtNIP.Warning() || form.txtRegon.Warning() || form.txtNrKonta.Warning());
  for (const auto& row : rows) {
    ASSERT_TRUE(Set(row.box, row.text)) << row.text;
    EXPECT_EQ(row.box.Warning(), row.doubtful) << row.text;
  }
  ASSERT_TRUE(Set(form.TxtNIP, "1"));
  ASSERT_TRUE(Set(form.txtNazwa, "Firma"));
  Save();
  EXPECT_EQ(At(kKontrahenci, 1).Text("NIP"), "1");
  Open(EditMode::kEdit, 1);
  EXPECT_TRUE(form.TxtNIP.Warning());
}

TEST_F(CustomerFormTest, PostalLookUpFillsWhatWasNotTouchedLast) {
  WriteFile(platform.folder / "app/psc.bin", Scrambled("80-001", 6) + Scrambled("Sopot", 25) + " " + Scrambled("30-002", 6) +
                                                 Scrambled("Skawina", 25) + " " + Scrambled("81-700", 6) + Scrambled("Sopot", 25) + " ");
  ASSERT_TRUE(program.Part<PostalTable>().LoadPostalCodes(platform.files, program.ApplicationFolder()));
  Open(EditMode::kNew);
  ASSERT_TRUE(form.btnFindCity.UserPress());
  EXPECT_EQ(form.txtWojewództwo.Value(), 0) << "nothing was touched";
  ASSERT_TRUE(Set(form.txtMiejscowość, "Sopot"));
  ASSERT_TRUE(form.btnFindCity.UserPress());
  EXPECT_EQ(form.txtKodPocztowy.Text(), "80-001");
  EXPECT_EQ(form.txtWojewództwo.Text(), "pomorskie");
  EXPECT_EQ(form.txtPaństwo.Text(), "Polska");
  ASSERT_TRUE(Set(form.txtKodPocztowy, "30-002"));
  ASSERT_TRUE(form.btnFindCity.UserPress());
  EXPECT_EQ(form.txtMiejscowość.Text(), "Skawina");
  EXPECT_EQ(form.txtWojewództwo.Text(), "małopolskie");
  ASSERT_TRUE(Set(form.txtKodPocztowy, "99-999"));
  ASSERT_TRUE(form.btnFindCity.UserPress());
  EXPECT_EQ(form.txtMiejscowość.Text(), "Skawina") << "an unknown code leaves the town";
  const struct {
    const char *code, *found;
  } rows[] = {{"30-002", "80-001"}, {"81-704", "81-704"}, {"80-999", "80-999"}, {"82-500", "80-001"}, {"", "80-001"}, {"8", "80-001"}};
  for (const auto& row : rows) {
    ASSERT_TRUE(Set(form.txtKodPocztowy, row.code));
    ASSERT_TRUE(Set(form.txtMiejscowość, "Sopot"));
    ASSERT_TRUE(form.btnFindCity.UserPress());
    EXPECT_EQ(form.txtKodPocztowy.Text(), row.found) << row.code;
  }
  ASSERT_TRUE(Set(form.txtWojewództwo, ""));
  EXPECT_EQ(form.txtKodPocztowy.Text() + form.txtMiejscowość.Text(), "");
}

TEST_F(CustomerFormTest, FieldsTakeWhatTheTableHolds) {
  Open(EditMode::kNew);
  EXPECT_TRUE(Set(form.txtSymbol, "0123456789"));
  EXPECT_FALSE(Set(form.txtSymbol, "0123456789a"));
  EXPECT_FALSE(Set(form.txtUlica, "漢"));
  EXPECT_TRUE(Set(form.txtNazwa, std::string(400, 'n')));
  EXPECT_FALSE(Set(form.txtNazwa, std::string(401, 'n')));
}

TEST_F(CustomerFormTest, ListsAreSortedAndStartBlankOrWhereTheSettingsSay) {
  Open(EditMode::kNew);
  std::vector<std::string> regions;
  for (int i = 0; i < form.txtWojewództwo.ListCount(); ++i) regions.push_back(form.txtWojewództwo.List(i));
  ASSERT_EQ(regions.size(), 17u);
  EXPECT_THAT(std::vector<std::string>(regions.begin(), regions.begin() + 6),
              ElementsAre("", "dolnośląskie", "kujawsko - pomorskie", "łódzkie", "lubelskie", "lubuskie"));
  EXPECT_EQ(form.txtGrupa.List(0), "");
  EXPECT_NE(form.txtFormaPłat.List(0), "");
  for (ComboControl* list : {&form.txtGrupa, &form.txtPaństwo, &form.txtWojewództwo}) EXPECT_EQ(list->ListIndex(), 0);
  program.settings.SaveSettingValue(kCommon, "prgSettings", "KHCountry", Value(std::string("Polska")));
  program.settings.SaveSettingValue(kCommon, "prgSettings", "KHRegion", Value(std::string("nieznane")));
  Open(EditMode::kNew);
  EXPECT_EQ(form.txtPaństwo.Text(), "Polska");
  EXPECT_EQ(form.txtWojewództwo.ListIndex(), 0);
}

TEST_F(CustomerFormTest, CloneIsANewRecordFilledFromTheOld) {
  Add(kKontrahenci, {{"NAZWA", Value(std::string("Wzór"))}, {"NIP", Value(std::string("1234563218"))}});
  form.clone_(1);
  form.Open();
  EXPECT_EQ(form.txtNazwa.Text(), "Wzór");
  Save();
  EXPECT_EQ(form.saved_record(), 2);
  EXPECT_EQ(At(kKontrahenci, 2).Text("NIP"), "1234563218");
}

TEST_F(CustomerFormTest, CtrlEnterSavesAndEnterDoesNot) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNazwa, "Firma"));
  EXPECT_FALSE(form.UserKey(kKeyEnter, false));
  EXPECT_EQ(form.saved_record(), 0);
  EXPECT_TRUE(form.UserKey(kKeyEnter, true));
  EXPECT_EQ(form.saved_record(), 1);
}

TEST_F(CustomerFormTest, AttachingToANewRecordSavesItFirst) {
  const std::string contract = platform.folder / "umowa.txt", empty = platform.folder / "pusty.txt";
  WriteFile(contract, "treść");
  WriteFile(empty, "");
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNazwa, "Firma"));
  ASSERT_TRUE(form.memoAdd_.UserPress());  // answered by no
  EXPECT_EQ(form.Mode, EditMode::kNew);
  platform.ui.answers = {Answer::kYes};
  platform.ui.file_answers = {contract, empty};
  ASSERT_TRUE(form.memoAdd_.UserPress());
  EXPECT_EQ(form.Mode, EditMode::kEdit);
  EXPECT_EQ(form.saved_record(), 1);
  EXPECT_EQ(form.memoCONTROL_.ShownText(), "umowa.txt");
  ASSERT_TRUE(form.memoAdd_.UserPress());
  EXPECT_EQ(MessageTexts().back(), program.Text("msg.info.cantaddattachment"));

  Save();
  Open(EditMode::kEdit, 1);
  EXPECT_EQ(form.memoCONTROL_.ShownText(), "umowa.txt");
  ASSERT_TRUE(form.memoExec_.UserPress());
  ASSERT_EQ(platform.ui.opened.size(), 1u);
  EXPECT_EQ(ReadFile(platform.ui.opened[0]), "treść");
  ASSERT_TRUE(form.memoDel_.UserPress());
  EXPECT_EQ(form.memoCONTROL_.ShownText(), "");
  ASSERT_TRUE(form.memoDel_.UserPress());
  EXPECT_EQ(MessageTexts().back(), program.Text("msg.info.cantdelattachment"));
}

TEST_F(CustomerFormTest, DeletingActsOnTheFileThatWasJustAddedOrComesNext) {
  for (const char* name : {"a.txt", "b.txt", "c.txt", "d.txt"}) {
    WriteFile(platform.folder / name, "treść");
    platform.ui.file_answers.push_back(platform.folder / name);
  }
  Add(kKontrahenci, {{"NAZWA", Value(std::string("Firma"))}});
  Open(EditMode::kEdit, 1);
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(form.memoAdd_.UserPress());
  ASSERT_TRUE(form.memoDel_.UserPress());
  EXPECT_EQ(form.memoCONTROL_.ShownText(), "a.txt; b.txt") << "the newest";
  ASSERT_TRUE(form.memoCONTROL_.UserSelect(0));
  ASSERT_TRUE(form.memoAdd_.UserPress());  // takes the room of the deleted one
  EXPECT_EQ(form.memoCONTROL_.ShownText(), "a.txt; b.txt; d.txt");
  ASSERT_TRUE(form.memoCONTROL_.UserSelect(1));
  ASSERT_TRUE(form.memoDel_.UserPress());
  ASSERT_TRUE(form.memoDel_.UserPress());
  EXPECT_EQ(form.memoCONTROL_.ShownText(), "a.txt");
}

TEST_F(CustomerFormTest, ACustomerThatCannotBeWrittenStaysInTheEditorAndLeavesNoRecord) {
  ClassQDBASE& customers = Table(program, kKontrahenci);
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNazwa, "Firma"));
  const std::pair<FileCall, int> refused[] = {{FileCall::kGrow, 0}, {FileCall::kOverwrite, 0}, {FileCall::kOverwrite, 1}};
  for (const auto& [call, after] : refused) {
    const int beeps = platform.ui.beeps;
    platform.files.Refuse(call, "kontrahenci.ovd", after);
    ASSERT_TRUE(form.btnSave.UserPress());
    EXPECT_TRUE(form.IsOpen()) << after;
    EXPECT_EQ(form.saved_record(), 0);
    EXPECT_EQ(platform.ui.beeps, beeps + 1) << after;
    EXPECT_EQ(platform.ui.status.back(), program.Text("msg.info.error"));
    customers.SELECTION("*", "*", "", ordAsc);
    EXPECT_EQ(customers.MAX_ROWS(), 0) << after;
  }
  Save();
  EXPECT_EQ(At(kKontrahenci, form.saved_record()).Text("NAZWA"), "Firma");

  Open(EditMode::kEdit, form.saved_record());
  ASSERT_TRUE(Set(form.txtNazwa, "Inna"));
  platform.files.Refuse(FileCall::kOverwrite, "kontrahenci.ovd");
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_TRUE(form.IsOpen());
  EXPECT_EQ(At(kKontrahenci, form.RecordNo).Text("NAZWA"), "Firma");
}

TEST_F(CustomerFormTest, WhenTheDatabaseIsClosedSavingJustCloses) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNazwa, "Firma"));
  OSTEngine(program).close_(false);
  Save();
  EXPECT_FALSE(form.IsOpen());
  EXPECT_EQ(form.saved_record(), 0);
}

}  // namespace
}  // namespace ostrinka
