#include "masterdata/connection_form.h"
#include "masterdata/create_database_form.h"
#include "support/company.h"
#include "support/form_person.h"

namespace ostrinka {
namespace {

using testing::ElementsAre;

class DatabaseFormsTest : public ProgramTest {
 protected:
  DatabaseFormsTest() { program.main_view = &view; }
  void FillNew(frm_Admin_qdbc_& dialog, const std::string& user, const std::string& first, const std::string& second) {
    EXPECT_TRUE(Set(dialog.userName, user) && Set(dialog.userPassword1, first) && Set(dialog.userPassword2, second));
  }
  TestView view;
};

TEST_F(DatabaseFormsTest, CreatingAsksForUserAndEqualPasswords) {
  frm_Admin_qdbc_ dialog(program);
  dialog.reload_();
  dialog.Open();
  FillNew(dialog, "ala", "kot", " ");
  ASSERT_TRUE(dialog.btnCreateDatabase.UserPress());
  FillNew(dialog, "ala", "kot", "pies");
  ASSERT_TRUE(dialog.btnCreateDatabase.UserPress());
  FillNew(dialog, "ala", "kot", "kot");
  WriteFile(platform.folder / "file", "");
  ASSERT_TRUE(Set(dialog.txtDbPath, platform.folder / "file/below"));
  ASSERT_TRUE(dialog.btnCreateDatabase.UserPress());
  ASSERT_TRUE(Set(dialog.txtDbPath, ""));
  ASSERT_TRUE(dialog.btnCreateDatabase.UserPress());
  EXPECT_THAT(MessageTexts(), ElementsAre(program.Text("msg.info.dbcreatetypeuserandpass"), program.Text("msg.info.dbcreatepass"),
                                          program.Text("msg.info.dbcreateerror"), program.Text("msg.info.dbcreateerror")));
  EXPECT_FALSE(dialog.created());
  EXPECT_TRUE(dialog.IsOpen());
  EXPECT_EQ(Setting("dbLogin", "username"), "(none)");
}

TEST_F(DatabaseFormsTest, CreatedDatabaseIsTheOneThatTheConnectionDialogShowsTestsAndOpens) {
  frm_Admin_qdb_ form(program);
  form.reload_();
  form.Open();
  ASSERT_TRUE(form.btnConnectionTest.UserPress());
  EXPECT_EQ(platform.ui.messages.back(),
            std::pair(program.Text("msg.info.dbtest.error") + "\r\n\r\n" + program.Text("msg.why.folder", {program.DatabaseFolder()}),
                      MessageKind::kError));
  platform.ui.on_modal = [&](Form& shown) {
    auto& dialog = static_cast<frm_Admin_qdbc_&>(shown);
    dialog.Open();
    FillNew(dialog, "ala", "kot", "kot");
    EXPECT_TRUE(Set(dialog.txtDbPath, platform.folder / "firmy/nowa"));
    EXPECT_TRUE(dialog.dbLocal[1].Value()) << "typing a path chooses the own folder";
    EXPECT_TRUE(dialog.btnCreateDatabase.UserPress());
    EXPECT_FALSE(dialog.IsOpen());
  };
  ASSERT_TRUE(form.btnCreate.UserPress());
  EXPECT_EQ(platform.ui.messages.back(), std::pair(program.Text("msg.info.dbcreateok"), MessageKind::kPlain));
  EXPECT_TRUE(platform.files.FileExists(platform.folder / "firmy/nowa/firma.ovd"));
  EXPECT_EQ(platform.ui.status.back(), "") << "the progress is gone from the status line";
  EXPECT_TRUE(form.dbLocal[1].Value());
  EXPECT_EQ(form.txtDbPath.Text(), platform.folder / "firmy/nowa");
  EXPECT_EQ(form.userName.Text(), "ala");

  ASSERT_TRUE(form.btnConnectionTest.UserPress());
  EXPECT_EQ(platform.ui.messages.back(), std::pair(program.Text("msg.info.dbtest.ok"), MessageKind::kPlain));
  ASSERT_TRUE(Set(form.userPassword, "pies"));
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_TRUE(form.IsOpen());
  EXPECT_FALSE(program.database_open);
  EXPECT_EQ(platform.ui.messages.back(),
            std::pair(program.Text("msg.info.cantopendatabase") + "\r\n" + program.Text("msg.info.pleasecheckuserandpass") + "\r\n\r\n" +
                          program.Text("msg.why.login", {"firma.ovd"}),
                      MessageKind::kError));
  EXPECT_THAT(view.calls, ElementsAre("hide", "reset"));
  ASSERT_TRUE(Set(form.userPassword, "kot"));
  view.calls.clear();
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_FALSE(form.IsOpen());
  EXPECT_TRUE(program.database_open);
  EXPECT_TRUE(TableIsOpen(program, kKontrahenci));
  EXPECT_THAT(view.calls, ElementsAre("hide", "show", "ref_"));
}

TEST_F(DatabaseFormsTest, TheWizardIsOfferedInTheFirstRunAlone) {
  frm_Admin_qdb_ form(program);
  form.reload_();
  EXPECT_TRUE(form.btnWizard.Visible());
  program.settings.SaveSettingValue(kCommon, "system", "fRun", false);
  form.reload_();
  EXPECT_FALSE(form.btnWizard.Visible());
  form.Open();
  EXPECT_FALSE(form.btnWizard.UserPress());
}

TEST_F(DatabaseFormsTest, ChoosingTheDefaultFolderKeepsTheOwnOneForLater) {
  program.settings.SaveSettingValue(kCommon, "dbPath", "Remote", Value(true));
  program.settings.SaveSettingValue(kCommon, "dbPath", "Path", Value(std::string("<APP>\\moja")));
  frm_Admin_qdb_ form(program);
  form.reload_();
  EXPECT_EQ(form.txtDbPath.Text(), "<APP>\\moja");
  ASSERT_TRUE(Set(form.dbLocal[0], "true"));
  ASSERT_TRUE(Set(form.dbLogin, "false"));
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(program.DatabaseFolder(), platform.folder / "app/data/");
  EXPECT_EQ(Setting("dbPath", "Path"), "<APP>\\moja");
  platform.ui.file_answers = {platform.folder / "bjørn", platform.folder / "inna"};
  ASSERT_TRUE(form.btnBrowse.UserPress());  // a folder that the settings could not name
  EXPECT_EQ(MessageTexts().back(), program.Text("msg.info.dbpathletters"));
  EXPECT_NE(form.txtDbPath.Text(), platform.folder / "bjørn");
  ASSERT_TRUE(form.btnBrowse.UserPress());
  EXPECT_TRUE(form.dbLocal[1].Value());
  EXPECT_EQ(form.txtDbPath.Text(), platform.folder / "inna");
}

// A company that is open.
class OpenCompanyTest : public CompanyTest {
 protected:
  OpenCompanyTest() { program.main_view = &view; }
  frm_Admin_qdb_& Shown() {
    form.reload_();
    form.Open();
    return form;
  }
  std::string OpenFolder() { return Table(program, kFirma).DATABASE_PATH(); }
  TestView view;
  frm_Admin_qdb_ form{program};
};

TEST_F(OpenCompanyTest, WhoIsAskedAtTheStartDoesNotGetPastItThroughTheConnection) {
  program.settings.SaveSettingValue(kCommon, "dbLogin", "login", true);
  Shown();
  EXPECT_EQ(form.userName.Text(), kTestLogin);
  EXPECT_EQ(form.userPassword.Text(), "");
  // Without the password the question stays, whatever else is typed.
  for (const char* password : {"", "pies"}) {
    ASSERT_TRUE(Set(form.userPassword, password) && Set(form.dbLogin, "false"));
    ASSERT_TRUE(form.btnSave.UserPress());
    EXPECT_TRUE(form.IsOpen());
    EXPECT_EQ(Setting("dbLogin", "login"), "True");
    EXPECT_EQ(Setting("dbLogin", "password"), kTestLogin);
    EXPECT_NE(MessageTexts().back().find(program.Text("msg.info.asklogin")), std::string::npos);
  }
  // With the question left on, the person is asked, and the stored password stays what it was.
  ASSERT_TRUE(Set(form.userPassword, "") && Set(form.dbLogin, "true"));
  int asked = 0;
  platform.ui.on_modal = [&](Form& login) {
    ++asked;
    EXPECT_TRUE(Set(*login.Find("txtUser"), kTestLogin) && Set(*login.Find("txtPassword"), "pies"));
    EXPECT_TRUE(login.FindButton("login.btn.ok")->UserPress());
  };
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(asked, 1);
  EXPECT_NE(MessageTexts().back().find(program.Text("msg.why.login", {"firma.ovd"})), std::string::npos);
  EXPECT_EQ(Setting("dbLogin", "password"), kTestLogin);
  ASSERT_TRUE(Set(form.userPassword, kTestLogin) && Set(form.dbLogin, "false"));
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_FALSE(form.IsOpen());
  EXPECT_EQ(Setting("dbLogin", "login"), "False");
  EXPECT_TRUE(program.database_open);
}

TEST_F(OpenCompanyTest, LeavingAfterATryThatFailedBringsTheWorkingConnectionBack) {
  const std::string folder = OpenFolder();
  Shown();
  ASSERT_TRUE(Set(form.txtDbPath, platform.folder / "nowhere") && Set(form.userPassword, "pies"));
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_TRUE(form.IsOpen());
  EXPECT_FALSE(program.database_open);
  EXPECT_NE(MessageTexts().back().find(program.Text("msg.why.folder", {platform.folder / "nowhere/"})), std::string::npos);
  view.calls.clear();
  ASSERT_TRUE(form.btnCancel.UserPress());
  EXPECT_EQ(Setting("dbPath", "Path"), platform.folder / "firma/");
  EXPECT_EQ(Setting("dbLogin", "password"), kTestLogin);
  EXPECT_TRUE(program.database_open);
  EXPECT_EQ(OpenFolder(), folder);
  EXPECT_THAT(view.calls, ElementsAre("show", "ref_"));
  // Without a try nothing is put back.
  const size_t told = platform.ui.messages.size();
  Shown();
  ASSERT_TRUE(Set(form.userPassword, "pies") && form.btnCancel.UserPress());
  EXPECT_EQ(platform.ui.messages.size(), told);
  EXPECT_TRUE(program.database_open);
}

TEST_F(OpenCompanyTest, ANewDatabaseMadeOutOfAnOpenCompanyIsOpenedAtOnce) {
  Shown();
  platform.ui.on_modal = [&](Form& shown) {
    auto& dialog = static_cast<frm_Admin_qdbc_&>(shown);
    dialog.Open();
    EXPECT_TRUE(Set(dialog.userName, "ola") && Set(dialog.userPassword1, "pies") && Set(dialog.userPassword2, "pies"));
    EXPECT_TRUE(Set(dialog.txtDbPath, platform.folder / "nowa"));
    EXPECT_TRUE(dialog.btnCreateDatabase.UserPress());
  };
  ASSERT_TRUE(form.btnCreate.UserPress());
  EXPECT_EQ(OpenFolder(), platform.folder / "nowa/firma.ovd");
  EXPECT_TRUE(program.database_open && form.IsOpen());
  EXPECT_EQ(form.userName.Text() + form.txtDbPath.Text(), "ola" + platform.folder.path() + "nowa");
  ASSERT_TRUE(form.btnCancel.UserPress());
  EXPECT_EQ(OpenFolder(), platform.folder / "nowa/firma.ovd");
  EXPECT_EQ(Setting("dbLogin", "username"), "ola");
}

}  // namespace
}  // namespace ostrinka
