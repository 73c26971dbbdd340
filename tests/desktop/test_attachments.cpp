#include <QAbstractButton>
#include <QImage>
#include <QListWidget>
#include <fstream>

#include "desktop/clerk.h"
#include "engine/memo_file.h"
#include "masterdata/customer_form.h"
#include "sales/sales_form.h"

namespace ostrinka {
namespace {

class AttachmentTest : public ClerkTest {
 protected:
  void SetUp() override {
    ClerkTest::SetUp();
    AddCustomer("Hotel Nad Wisłą");
    QImage scan(300, 200, QImage::Format_RGB32);
    for (int y = 0; y < scan.height(); ++y) {
      for (int x = 0; x < scan.width(); ++x) scan.setPixel(x, y, qRgb(x * 7 % 256, x * y % 256, y * 5 % 256));
    }
    ASSERT_TRUE(scan.save(QString::fromStdString(scan_path)));
    std::filesystem::create_directory(platform.folder / "tmp");
    old_folder = qgetenv("TMPDIR");
    qputenv("TMPDIR", QByteArray::fromStdString(platform.folder / "tmp"));
  }
  void TearDown() override {
    ClerkTest::TearDown();
    old_folder.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", old_folder);
  }
  std::string Bytes(const std::string& path) {
    std::string content;
    EXPECT_TRUE(platform.files.ReadAll(path, content)) << path;
    return content;
  }
  int64_t Stored(const std::string& table) { return platform.files.FileSize(platform.folder / ("firma/" + table + ".ovd.memo")); }
  void Click(const char* control) {
    Then([this, control] {
      ASSERT_NE(front, nullptr) << control;
      static_cast<QAbstractButton*>(front->WidgetOf(*front_form->Find(control)))->click();
    });
  }
  // The list of files as the person sees it.
  QListWidget& List(const char* control) { return *static_cast<QListWidget*>(front->WidgetOf(*front_form->Find(control))); }
  void EditFirstCustomer() {
    Press(Qt::Key_F7);
    Press(Qt::Key_Return);
  }

  const std::string scan_path = platform.folder / "Umowa żółta.png";
  QByteArray old_folder;
};

TEST_F(AttachmentTest, AScanIsAddedFoundAgainOpenedDeletedAndItsRoomGivenBack) {
  OpenWindow();
  Press(Qt::Key_Alt);
  Type("f");
  Then([&] {
    platform.ui.answers = {Answer::kYes};  // a new document is stored first
    platform.ui.file_answers = {scan_path};
  });
  Click("memoAdd");
  Then([&] {
    ASSERT_EQ(List("memoCONTROL").count(), 1);
    EXPECT_EQ(List("memoCONTROL").item(0)->text(), "Umowa żółta.png");
  });
  Press(Qt::Key_Return, Qt::ControlModifier);
  Work();
  EXPECT_GT(Stored("dok_sprzed"), static_cast<int64_t>(Bytes(scan_path).size()));
  bool done = false;
  OSTEngine(program).close_(true);
  OSTEngine(program).open_(true, done);
  ASSERT_TRUE(done);
  window->UserTab("SPRZEDAŻ");
  std::filesystem::remove(scan_path + ".kept");
  std::filesystem::rename(scan_path, scan_path + ".kept");  // what is opened comes from the company
  Press(Qt::Key_Return);
  Then([&] {
    ASSERT_NE(front, nullptr);
    ASSERT_EQ(List("memoCONTROL").count(), 1);
    List("memoCONTROL").setCurrentRow(0);
  });
  Click("memoExec");
  Then([&] {
    ASSERT_EQ(platform.ui.opened.size(), 1u);
    EXPECT_EQ(platform.ui.opened[0], platform.files.TemporaryFolder() + "Umowa żółta.png");
    EXPECT_EQ(Bytes(platform.ui.opened[0]), Bytes(scan_path + ".kept"));
  });
  Click("memoDel");  // answered with no
  Then([&] {
    EXPECT_EQ(List("memoCONTROL").count(), 1);
    EXPECT_EQ(platform.ui.messages.back().first, program.Text("common.delattachment", {"Umowa żółta.png"}));
    platform.ui.answers = {Answer::kYes};
  });
  Click("memoDel");
  Then([&] { EXPECT_EQ(List("memoCONTROL").count(), 0); });
  Press(Qt::Key_Return, Qt::ControlModifier);
  Work();
  EXPECT_GT(Stored("dok_sprzed"), 0) << "the room is free, not gone";
  OSTEngine(program).close_(true);
  EXPECT_EQ(Stored("dok_sprzed"), 0);
  EXPECT_EQ(platform.ui.messages.size(), 3u) << "only the questions";
}

TEST_F(AttachmentTest, WhatCannotBeAttachedIsToldAndNothingIsStored) {
  OpenWindow();
  std::ofstream(platform.folder / "empty.png").close();
  EditFirstCustomer();
  Then([&] { platform.ui.file_answers = {platform.folder / "empty.png", platform.folder / "missing.png", std::nullopt}; });
  Click("memoAdd_");
  Click("memoAdd_");
  Click("memoAdd_");
  Then([&] {
    ASSERT_EQ(platform.ui.messages.size(), 2u) << "not for a dialog that was left";
    for (const auto& [text, kind] : platform.ui.messages) EXPECT_EQ(text, program.Text("msg.info.cantaddattachment"));
    EXPECT_EQ(List("memoCONTROL_").count(), 0);
  });
  Click("memoExec_");  // nothing is chosen
  Then([&] { EXPECT_EQ(platform.ui.messages.back().first, program.Text("msg.info.cantopenattachment")); });
  Click("memoDel_");
  Then([&] { EXPECT_EQ(platform.ui.messages.back().first, program.Text("msg.info.cantdelattachment")); });
  Press(Qt::Key_Escape);
  Work();
  EXPECT_LT(Stored("kontrahenci"), 1);
}

TEST_F(AttachmentTest, TheMarkedLineIsTheFileThatWasAddedAndEachShowsItsKind) {
  const char* const names[] = {"a.png", "b.pdf", "c.xlsx", "d.jpg"};
  for (const char* name : names) std::ofstream(platform.folder / name) << "content";
  OpenWindow();
  EditFirstCustomer();
  for (const char* name : names) {
    Then([this, name] { platform.ui.file_answers = {platform.folder / name}; });
    Click("memoAdd_");
    Then([this, name] {
      ASSERT_NE(List("memoCONTROL_").currentItem(), nullptr);
      EXPECT_EQ(List("memoCONTROL_").currentItem()->text(), name);
    });
  }
  Then([&] {
    QListWidget& list = List("memoCONTROL_");
    ASSERT_EQ(list.count(), 4);
    const auto picture = [&](int row) { return list.item(row)->icon().pixmap(16).toImage(); };
    EXPECT_EQ(picture(0), picture(3)) << "both are pictures";
    EXPECT_NE(picture(0), picture(1));
    EXPECT_NE(picture(1), picture(2));
    list.setCurrentRow(1);
    platform.ui.answers = {Answer::kYes};
  });
  Click("memoDel_");
  Then([&] { EXPECT_EQ(List("memoCONTROL_").currentItem()->text(), "c.xlsx"); });
  Press(Qt::Key_Escape);
  Work();
}

TEST_F(AttachmentTest, AStoredNameNeverLeavesTheTemporaryFolder) {
  const std::string companion = platform.folder / "firma/kontrahenci.ovd.memo";
  const auto memo = MemoFile::Open(platform.platform, companion);
  ASSERT_TRUE(memo);
  for (const char* name : {"../../firma/version.ovd", "/etc/ostrinka-test", "..\\..\\kontrahenci.ovd", "..", "C:evil.png"}) {
    ASSERT_TRUE(memo->Add(name, "MEMO_", 1, "content"));
  }
  OpenWindow();
  EditFirstCustomer();
  for (int i = 0; i < 5; ++i) {
    Then([this, i] { List("memoCONTROL_").setCurrentRow(i); });
    Click("memoExec_");
  }
  Press(Qt::Key_Escape);
  Work();
  const std::string temporary = platform.files.TemporaryFolder();
  EXPECT_EQ(temporary.find(platform.folder / "tmp/ostrinka-"), 0u);
  const std::vector<std::string> expected = {temporary + "version.ovd", temporary + "ostrinka-test", temporary + "kontrahenci.ovd",
                                             temporary + "evil.png"};
  EXPECT_EQ(platform.ui.opened, expected);
  EXPECT_EQ(platform.ui.messages.size(), 1u) << "a name that is only a folder opens nothing";
  EXPECT_FALSE(std::filesystem::exists("/etc/ostrinka-test"));
  EXPECT_EQ(Table(program, kKontrahenci).RECORD_COUNT(), 1);
}

TEST_F(AttachmentTest, MailAndWebAddressesAreHandedToTheSystemTrimmed) {
  OpenWindow();
  EditFirstCustomer();
  Then([&] {
    front_form->Find("txtEMail")->UserSet(" recepcja@nadwisla.example ");
    front_form->Find("txtWWW")->UserSet("www.nadwisla.example ");
  });
  Click("btnMAILgo");
  Click("btnWWWgo");
  Then([&] { platform.ui.answers = {Answer::kYes}; });
  Press(Qt::Key_Escape);
  Work();
  EXPECT_EQ(platform.ui.opened, (std::vector<std::string>{"mailto:recepcja@nadwisla.example", "www.nadwisla.example"}));
}

}  // namespace
}  // namespace ostrinka
