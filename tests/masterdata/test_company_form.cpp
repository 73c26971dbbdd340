#include "masterdata/company_data.h"
#include "masterdata/company_form.h"
#include "masterdata/further_accounts_form.h"
#include "support/company.h"
#include "support/form_person.h"

namespace ostrinka {
namespace {

using testing::ElementsAre;

class CompanyFormTest : public CompanyTest {
 protected:
  void Open() {
    form.reload_();
    form.Open();
  }
  static Value Words(const char* text) { return std::string(text); }
  frm_Admin_usr_ form{program};
};

TEST_F(CompanyFormTest, SavingWritesTrimmedTextsToTheSettingsAndToTheCompany) {
  Open();
  ASSERT_TRUE(Set(form.txtNazwaFirmy, "  Piekarnia Łoś "));
  ASSERT_TRUE(Set(form.txtMiejsceWystDok, "Kraków"));
  ASSERT_TRUE(Set(form.TxtNIP, "1"));
  EXPECT_TRUE(form.TxtNIP.Warning());
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_FALSE(form.IsOpen());
  EXPECT_EQ(Setting("user", "nazwa"), "Piekarnia Łoś");
  EXPECT_EQ(Setting("user", "mwdok"), "Kraków");
  EXPECT_EQ(Setting("user", "krs"), "");
  EXPECT_EQ(program.company.S_NAZWA, "Piekarnia Łoś");
  EXPECT_EQ(At(kFirma, 1).Text("S_NAZWA"), "Piekarnia Łoś");
  EXPECT_NE(At(kFirma, 1).Text("FORMAT_DATA_EKR"), "") << "the formats of the company stay";

  bool ok = false;
  program.settings.SaveSettingValue(kCommon, "user", "nazwa", Value(std::string("Inna")));
  OSTEngine(program).reopen_(ok);
  ASSERT_TRUE(ok);
  CompanyLoad(program);
  EXPECT_EQ(program.company.S_NAZWA, "Piekarnia Łoś") << "the company that is opened counts";
}

TEST_F(CompanyFormTest, DetailsOfSeveralLinesSurviveASaveThatLeavesThem) {
  ClassQDBASE& firma = At(kFirma, 1);
  ASSERT_TRUE(firma.FIELD("S_NAZWA", Words("Piekarnia\r\nŁoś i Synowie")) && firma.FIELD("K_EMAIL", Words("a@a.pl\nb@b.pl")));
  ASSERT_TRUE(firma.RECORD_SAVE(1));
  bool ok = false;
  OSTEngine(program).reopen_(ok);
  ASSERT_TRUE(ok);
  Open();
  EXPECT_EQ(form.txtNazwaFirmy.Text(), "Piekarnia");
  ASSERT_TRUE(Set(form.txtEMail, "c@c.pl"));
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(At(kFirma, 1).Text("S_NAZWA"), "Piekarnia\r\nŁoś i Synowie");
  EXPECT_EQ(At(kFirma, 1).Text("K_EMAIL"), "c@c.pl");
}

TEST_F(CompanyFormTest, FurtherAccountsAreStoredByTheSaveOfTheCompany) {
  Open();
  ASSERT_TRUE(Set(form.txtKonto, "111"));
  platform.ui.on_modal = [&](Form& dialog) {
    EXPECT_EQ(dialog.Find("txtKonto")->ShownText(), "111");
    EXPECT_TRUE(Set(*dialog.Find("txtKonto_d2_"), "222"));
    EXPECT_TRUE(Set(*dialog.Find("txtKontoOpis4_"), "rachunek walutowy"));
    EXPECT_TRUE(Set(*dialog.Find("txtWybKontoOp_"), "#4"));
    EXPECT_TRUE(dialog.FindButton("usr.aex.btn.ok")->UserPress());
  };
  ASSERT_TRUE(form.btnKdod_.UserPress());
  EXPECT_EQ(Setting("user", "konto_d2"), "(none)");
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(Setting("user", "konto"), "111");
  EXPECT_EQ(Setting("user", "konto_d2"), "222");
  EXPECT_EQ(Setting("user", "konto_opis_4"), "rachunek walutowy");
  EXPECT_EQ(Setting("user", "konto_opis_id_"), "4");
  EXPECT_EQ(program.company.chosen_account_text, 4);
  EXPECT_EQ(At(kFirma, 1).Text("B_KONTO_D2"), "222");

  Open();
  platform.ui.on_modal = [&](Form& dialog) {
    EXPECT_EQ(dialog.Find("txtWybKontoOp_")->ShownText(), program.Text("usr.aex.acountspec.4"));
    EXPECT_TRUE(Set(*dialog.Find("txtKonto_d2_"), "333"));
    EXPECT_TRUE(dialog.FindButton("usr.aex.btn.cancel")->UserPress());
  };
  ASSERT_TRUE(form.btnKdod_.UserPress());
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(Setting("user", "konto_d2"), "222");
}

TEST_F(CompanyFormTest, LogoIsCopiedByteForByteReplacedAndDeleted) {
  const std::string first = platform.folder / "a.bmp", second = platform.folder / "b.gif";
  WriteFile(first, std::string("BM\0\r\n\x1a", 6) + std::string(5000, '\xff'));
  WriteFile(second, "GIF");
  Open();
  EXPECT_EQ(form.lblLogo.Text(), program.Text("usr.logo.no"));
  platform.ui.file_answers = {first, second, platform.folder / "missing.bmp", std::nullopt};
  ASSERT_TRUE(form.btnLogo.UserPress());
  EXPECT_EQ(ReadFile(program.DatabaseFolder() + "_logo.img"), ReadFile(first));
  EXPECT_EQ(form.lblLogo.Text(), program.Text("usr.logo.yes"));
  ASSERT_TRUE(form.btnLogo.UserPress());
  EXPECT_EQ(ReadFile(LogoPath(program)), "GIF");
  EXPECT_TRUE(platform.ui.messages.empty());
  ASSERT_TRUE(form.btnLogo.UserPress());
  EXPECT_THAT(MessageTexts(), ElementsAre(program.Text("msg.info.error")));
  EXPECT_EQ(ReadFile(LogoPath(program)), "GIF") << "a failure leaves the old logo";
  ASSERT_TRUE(form.btnLogo.UserPress());  // cancelled
  EXPECT_EQ(platform.ui.messages.size(), 1u);
  ASSERT_TRUE(form.btnClrLogo.UserPress());
  EXPECT_FALSE(LogoExists(program));
  EXPECT_EQ(form.lblLogo.Text(), program.Text("usr.logo.no"));
}

class CompanyDataTest : public ProgramTest {};

TEST_F(CompanyDataTest, LoadingCountsTheRequiredFieldsThatHoldSomething) {
  EXPECT_EQ(CompanyLoad(program), 0);
  CompanyRecord record;
  record.S_NAZWA = "Firma";
  record.S_NRLOK = "  ";
  record.K_EMAIL = "a@b.pl";
  EXPECT_TRUE(CompanySave(program, record)) << "no company need be open";
  EXPECT_EQ(CompanyLoad(program), 1);
  for (std::string CompanyRecord::*member : {&CompanyRecord::M_WYST_DOK, &CompanyRecord::S_ULICA, &CompanyRecord::S_NRDOM,
                                             &CompanyRecord::S_NRLOK, &CompanyRecord::S_KPOCZ, &CompanyRecord::S_MIAST}) {
    record.*member = "x";
  }
  EXPECT_TRUE(CompanySave(program, record));
  EXPECT_EQ(CompanyLoad(program), kRequiredCompanyFields);
  EXPECT_EQ(program.company.K_EMAIL, "a@b.pl");
}

}  // namespace
}  // namespace ostrinka
