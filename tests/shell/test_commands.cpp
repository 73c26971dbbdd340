#include <gtest/gtest.h>

#include <set>

#include "shell/main_window.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

class ShellTest : public ::testing::Test {
 protected:
  ShellTest() {
    program.catalogue.LoadProgramCatalogue(OSTRINKA_SOURCE "/resources/program.lang");
    window = std::make_unique<MainWindow>(program);
  }
  TestPlatform surroundings;
  Program program{surroundings.platform};
  std::unique_ptr<MainWindow> window;
};

TEST_F(ShellTest, EveryKeyOfTheRibbonHasACommandAndEveryCommandAHandler) {
  std::set<std::string_view> commands;
  for (const Command& command : MainWindow::Commands()) {
    EXPECT_TRUE(commands.insert(command.key).second) << command.key << " stands twice";
    EXPECT_NE(command.run, nullptr) << command.key;
  }
  for (const RibbonRow& row : RibbonRows()) {
    const std::string_view key = row.key;
    const bool own_action = row.kind == RibbonKind::kTool || row.kind == RibbonKind::kSplit || row.kind == RibbonKind::kArrows ||
                            row.kind == RibbonKind::kFind || row.kind == RibbonKind::kPopup || row.kind == RibbonKind::kMainMenu;
    const bool separator = !*row.text;
    if (own_action && !separator) {
      EXPECT_TRUE(commands.count(key)) << key;
    }
    if (row.kind == RibbonKind::kItem && window->ribbon.Find(row.parent)->kind == RibbonKind::kAlphabet) {
      EXPECT_TRUE(commands.count(key)) << key;
    }
  }
}

TEST_F(ShellTest, CaptionsStandInTheCatalogueAndAreDistinctWithinAButton) {
  for (const RibbonRow& row : RibbonRows()) {
    if (*row.text) {
      EXPECT_TRUE(program.catalogue.Has(row.text)) << row.text;
    }
    std::set<std::string> captions;
    for (const RibbonRow* child : window->ribbon.Children(row.key)) {
      if (child->kind != RibbonKind::kItem || !*child->text) continue;
      EXPECT_TRUE(captions.insert(program.Text(child->text)).second) << child->key;
    }
  }
}

TEST_F(ShellTest, OneModeOfAGroupIsTickedAndTheTransferFlagIsKept) {
  EXPECT_EQ(window->TickedPrintMode(), PrintMode::kOriginal);
  EXPECT_TRUE(window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.TRYBDRUKU_O2C"));
  EXPECT_EQ(window->TickedPrintMode(), PrintMode::kOriginalAndTwoCopies);
  EXPECT_TRUE(window->ribbon.ButtonChecked("SPRZEDAŻ.TRYBDRUKU_ORG.S_"));
  EXPECT_TRUE(window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.GPP"));
  EXPECT_TRUE(MainWindow(program).GppTicked());
}

TEST_F(ShellTest, EveryCommandOnAClosedCompanySaysSo) {
  for (const Command& command : MainWindow::Commands()) {
    if (command.needs != Needs::kDatabase || !window->ribbon.ToolbarVisible(command.key)) continue;
    surroundings.ui.messages.clear();
    window->UserCommand(command.key);
    ASSERT_EQ(surroundings.ui.messages.size(), 1u) << command.key;
    EXPECT_EQ(surroundings.ui.messages[0], std::pair(program.Text("msg.info.dbnotopen"), MessageKind::kWarning));
  }
}

TEST_F(ShellTest, TheWindowsPlaceIsKeptAndDoubtfulValuesAreNot) {
  window->placement = {10, 20, 900, 600, 2};
  window->Zoom(1.5);
  window->save_window_();
  MainWindow second(program);
  EXPECT_EQ(second.placement.left, 10);
  EXPECT_EQ(second.placement.width, 900);
  EXPECT_EQ(second.placement.state, 2);
  EXPECT_EQ(second.zoom(), 1.5);
  for (const auto& [key, value] : {std::pair{"Width", "nan"}, {"Left", "1e30"}, {"Zoom", "4"}}) {
    program.settings.SaveSettingValue(kOstrinka, "Windows\\MDI", key, std::string(value));
  }
  MainWindow third(program);
  EXPECT_EQ(third.placement.width, 1180);
  EXPECT_EQ(third.placement.left, 0);
  EXPECT_EQ(third.zoom(), 1);
}

TEST_F(ShellTest, ReportPeriodsAreCountedFromToday) {
  program.database_open = true;
  surroundings.clock.now = *Date::Parse("2008-05-14");
  const auto from = [&](const char* parent, const char* choice) {
    window->UserItem(parent, std::string(parent) + "." + choice);
    return window->ReportDateFrom.Iso();
  };
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.BIEŻĄCY", "TYDZIEŃ"), "2008-05-12");
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.BIEŻĄCY", "MIESIĄC"), "2008-05-01");
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.BIEŻĄCY", "KWARTAŁ"), "2008-04-01");
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.BIEŻĄCY", "ROK"), "2008-01-01");
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.OSTATNI", "KWARTAŁ"), "2008-02-11");
  EXPECT_TRUE(window->ReportAllDates);
  window->UserCommand("ZESTAWIENIA.OKRES.WSZYSTKIE");
  EXPECT_FALSE(window->ReportAllDates);
}

}  // namespace
}  // namespace ostrinka
