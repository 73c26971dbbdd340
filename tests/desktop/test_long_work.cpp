// What a person meets when a table is large, and when the company's folder goes away and comes back.
#include <algorithm>

#include "company/table_definitions.h"
#include "desktop/clerk.h"
#include "shell/commands.h"

namespace ostrinka {
namespace {

class LongWorkTest : public ClerkTest {
 protected:
  // Empty records, as many as a large company has.
  void Customers(int count) {
    ClassQDBASE& customers = Table(program, kKontrahenci);
    for (int i = 0; i < count; ++i) ASSERT_TRUE(customers.RECORD_ADD());
  }
};

TEST_F(LongWorkTest, ASelectionOverALargeTableTellsItsPercentAndTakesNoCommandMeanwhile) {
  Customers(10000);
  OpenWindow();
  platform.ui.status.clear();
  int refused = 0, forms = 0;
  platform.ui.on_modal = [&](Form&) { ++forms; };
  platform.ui.on_turn = [&] {
    const std::string tab = window->ribbon.TabID();
    window->UserCommand("KONTRAHENT.DODAJ");
    ++refused;
    EXPECT_EQ(window->ribbon.TabID(), tab);
  };
  window->UserTab("KONTRAHENCI");
  EXPECT_EQ(window->ViewTable()->MAX_ROWS(), 10000);
  EXPECT_GE(refused, 2) << "events ran in between";
  EXPECT_EQ(forms, 0);
  EXPECT_EQ(platform.ui.status.back(), "") << "nothing of it stays";
  std::erase(platform.ui.status, "");
  ASSERT_EQ(platform.ui.status.size(), 2u);
  EXPECT_NE(platform.ui.status[0].find("40 %"), std::string::npos) << platform.ui.status[0];
  EXPECT_NE(platform.ui.status[1].find("81 %"), std::string::npos) << platform.ui.status[1];
  platform.ui.on_turn = nullptr;
  window->UserCommand("KONTRAHENT.DODAJ");
  EXPECT_EQ(forms, 1) << "afterwards commands are taken again";
}

TEST_F(LongWorkTest, AnUpgradeOfALargeTableTellsItsPercentWhileTheWindowLives) {
  ClassQDBASE& documents = Table(program, kDokSprzed);
  for (int i = 0; i < 9000; ++i) ASSERT_TRUE(documents.RECORD_ADD());
  OSTEngine(program).close_(false);
  std::filesystem::remove(platform.folder / "firma/db.info");  // a folder of an unknown version
  platform.ui.status.clear();
  const int turns = platform.ui.turns;
  bool ok = false;
  OSTEngine(program).open_(false, ok);
  EXPECT_TRUE(ok);
  EXPECT_TRUE(std::any_of(platform.ui.status.begin(), platform.ui.status.end(),
                          [](const std::string& text) { return text.find(" 45 %") != std::string::npos; }));
  EXPECT_GT(platform.ui.turns, turns + kTableCount);
  EXPECT_EQ(Stored(kDokSprzed, 9000, ".WALUTA"), "1") << "and it was done";
}

TEST_F(LongWorkTest, ASmallTableIsSelectedWithoutAWord) {
  Customers(100);
  OpenWindow();
  platform.ui.status.clear();
  window->UserTab("KONTRAHENCI");
  std::erase(platform.ui.status, "");
  EXPECT_TRUE(platform.ui.status.empty());
}

class VanishedFolderTest : public ClerkTest {
 protected:
  void SetUp() override {
    ClerkTest::SetUp();
    AddCustomer("Hotel Nad Wisłą", kTransfer14);
    AddCustomer("Zajazd Bocian", kTransfer14);
    AddArticle("Regał sosnowy", 100, 122);
    OpenWindow();
  }
  void Away() { std::filesystem::rename(platform.folder / "firma", platform.folder / "gone"); }
  void Back() { std::filesystem::rename(platform.folder / "gone", platform.folder / "firma"); }
};

TEST_F(VanishedFolderTest, CommandsGoOnWithoutTheFolderAndEverythingWorksOnceItIsBack) {
  for (const char* tab : {"KONTRAHENCI", "TOWARYUSŁUGI", "SPRZEDAŻ"}) window->UserTab(tab);
  Away();
  platform.ui.answers = {Answer::kYes, Answer::kYes, Answer::kYes, Answer::kYes, Answer::kYes, Answer::kYes};
  const auto shown = platform.ui.on_modal;
  platform.ui.on_modal = nullptr;
  for (const Command& command : AllCommands()) {
    if (command.key == "EXIT" || command.key == "SŁOWNIK.WALUTY.UPG.NBP" || !IsBuilt(command)) continue;
    window->UserCommand(command.key);
    view->grab();
  }
  for (const char* tab : {"SPRZEDAŻ", "ZAKUP", "KONTRAHENCI", "TOWARYUSŁUGI", "ZESTAWIENIA", "SŁOWNIKI"}) {
    window->UserTab(tab);
    window->UserSortByColumn(1);
    view->Refresh();
    view->grab();
  }
  Back();
  platform.ui.on_modal = shown;
  platform.ui.messages.clear();
  EXPECT_TRUE(program.database_open);
  EXPECT_EQ(Stored(kKontrahenci, 1, "NAZWA"), "Hotel Nad Wisłą");
  EXPECT_EQ(Stored(kTowaryUslugi, 1, "NAZWA"), "Regał sosnowy");
  window->UserTab("KONTRAHENCI");
  Press(Qt::Key_Alt);
  Type("k");
  Type("Nowy");
  Press(Qt::Key_Return, Qt::ControlModifier);
  Work();
  EXPECT_EQ(Stored(kKontrahenci, Table(program, kKontrahenci).RECORD_COUNT(), "NAZWA"), "Nowy");
  EXPECT_TRUE(platform.ui.messages.empty());
}

TEST_F(VanishedFolderTest, WhatIsTypedWhileTheFolderIsAwayStaysInTheFormAndIsSavedWhenItIsBack) {
  Press(Qt::Key_Alt);
  Type("f");
  Type("hote");
  Then([&] { Away(); });
  Press(Qt::Key_Return, Qt::ControlModifier);
  Then([&] {
    ASSERT_NE(front_form, nullptr);
    EXPECT_TRUE(front_form->IsOpen());
    ASSERT_EQ(platform.ui.messages.size(), 1u) << "the person is told";
    EXPECT_EQ(platform.ui.messages[0].second, MessageKind::kError);
    EXPECT_EQ(front_form->Find("txtKontrahent")->ShownText(), "Hotel Nad Wisłą");
    Back();
  });
  Press(Qt::Key_Return, Qt::ControlModifier);
  Work();
  ASSERT_EQ(Table(program, kDokSprzed).RECORD_COUNT(), 1);
  EXPECT_EQ(Stored(kDokSprzed, 1, "@KONTRAHENT"), "Hotel Nad Wisłą");
}

TEST_F(VanishedFolderTest, ALineThatCannotBeWrittenIsToldAndTheDialogComesBackWithIt) {
  Press(Qt::Key_Alt);
  Type("f");
  Press(Qt::Key_Insert);
  Type("rega");
  Press(Qt::Key_Return);
  Then([&] { Away(); });
  Type("17");
  Press(Qt::Key_Return);
  Then([&] {
    EXPECT_EQ(platform.ui.messages.size(), 1u);
    ASSERT_EQ(front_form->form_name(), "frm_Dok_add_TU");
    EXPECT_EQ(front_form->Find("txtIlość")->ShownText(), "17");
    Back();
    front_form->SetFocus(*front_form->Find("txtIlość"));
  });
  Press(Qt::Key_Return);
  Then([&] { EXPECT_EQ(front_form->form_name(), "frm_Dok_sprzed"); });
  Press(Qt::Key_Return, Qt::ControlModifier);
  Work();
  ASSERT_EQ(Table(program, kSprzedane).RECORD_COUNT(), 1);
  EXPECT_EQ(Stored(kSprzedane, 1, "ILOSC"), "17");
  EXPECT_EQ(Stored(kDokSprzed, 1, "WARTOSC_NETTO"), "1700");
}

TEST_F(VanishedFolderTest, ARecordThatCannotBeDeletedIsToldAndStays) {
  window->UserTab("KONTRAHENCI");
  Away();
  platform.ui.answers = {Answer::kYes};
  window->UserCommand("KONTRAHENT.USUŃ");
  ASSERT_EQ(platform.ui.messages.size(), 2u);
  EXPECT_EQ(platform.ui.messages[1].second, MessageKind::kError);
  Back();
  EXPECT_TRUE(Table(program, kKontrahenci).RECORD_EXIST(1));
}

TEST_F(VanishedFolderTest, AProgramThatStartsWithoutTheFolderSaysSoAndMakesNothing) {
  OSTEngine(program).close_(false);
  Away();
  bool ok = true;
  OSTEngine(program).open_(true, ok);
  EXPECT_FALSE(ok);
  EXPECT_FALSE(program.database_open);
  EXPECT_FALSE(std::filesystem::exists(platform.folder / "firma")) << "no empty company in its place";
  window->UserCommand("KONTRAHENT.DODAJ");
  EXPECT_EQ(platform.ui.messages.back().first, program.Text("msg.info.dbnotopen"));
  view->Refresh();
  view->grab();
  Back();
  OSTEngine(program).open_(true, ok);
  EXPECT_TRUE(ok);
}

}  // namespace
}  // namespace ostrinka
