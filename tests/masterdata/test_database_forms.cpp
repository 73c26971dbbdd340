#include "company_fixture.h"
#include "masterdata/connection_form.h"
#include "masterdata/create_database_form.h"

namespace ostrinka {
namespace {

using testing::ElementsAre;

class RecordingView : public MainView {
 public:
  std::vector<std::string> calls;
  void ref_() override { calls.push_back("ref_"); }
  void refresh_tasks_() override {}
  PrintMode TickedPrintMode() override { return PrintMode::kOriginal; }
  bool GppTicked() override { return false; }
  void ScrollShow_(bool show) override { calls.push_back(show ? "show" : "hide"); }
  void ResetXRSC_() override { calls.push_back("reset"); }
  void SET_QDB_() override {}
  void StatusText(const std::string&) override {}
};

class DatabaseFormsTest : public ProgramTest {
 protected:
  DatabaseFormsTest() { program.main_view = &view; }
  void FillNew(frm_Admin_qdbc_& dialog, const std::string& user, const std::string& first, const std::string& second) {
    EXPECT_TRUE(Set(dialog.userName, user) && Set(dialog.userPassword1, first) && Set(dialog.userPassword2, second));
  }
  RecordingView view;
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
  EXPECT_EQ(platform.ui.messages.back(), std::pair(program.Text("msg.info.dbtest.error"), MessageKind::kError));
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
  EXPECT_EQ(
      platform.ui.messages.back(),
      std::pair(program.Text("msg.info.cantopendatabase") + "\r\n" + program.Text("msg.info.pleasecheckuserandpass"), MessageKind::kError));
  EXPECT_THAT(view.calls, ElementsAre("hide", "reset"));
  ASSERT_TRUE(Set(form.userPassword, "kot"));
  view.calls.clear();
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_FALSE(form.IsOpen());
  EXPECT_TRUE(program.database_open);
  EXPECT_TRUE(TableIsOpen(program, kKontrahenci));
  EXPECT_THAT(view.calls, ElementsAre("hide", "show", "ref_"));
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

}  // namespace
}  // namespace ostrinka
