#include <set>
#include <vector>

#include "shell/commands.h"
#include "shell/main_window.h"
#include "shell/periods.h"
#include "shell/print_choice.h"
#include "shell/tabs.h"
#include "support/company.h"

namespace ostrinka {
namespace {

class ShellTest : public ProgramTest {
 protected:
  TestPlatform& surroundings = platform;
  std::unique_ptr<MainWindow> window = std::make_unique<MainWindow>(program);
};

TEST_F(ShellTest, ARowOfTheRibbonHasOneCommandWhereItActsByItselfAndEveryCommandAFunctionAndAPlace) {
  std::set<std::string_view> commands, placed = {"HELP", "SŁOWNIK.REKORD.EDYTUJ"};  // keys of the keyboard have these two alone
  for (const Command& command : AllCommands()) {
    EXPECT_TRUE(commands.insert(command.key).second) << command.key << " stands twice";
    EXPECT_NE(command.run, nullptr) << command.key;
  }
  using enum RibbonKind;
  for (const RibbonRow& row : RibbonRows()) {
    const RibbonRow* owner = window->ribbon.Find(row.parent);
    EXPECT_TRUE(owner || !*row.parent) << row.key << " has no " << row.parent;
    const bool separator = !*row.text && row.kind != kItem;
    const bool choice = row.kind == kItem && owner && (owner->kind == kSplit || owner->kind == kFind);
    const bool data =
        separator || choice || row.kind == kTab || row.kind == kBar || row.kind == kMode || row.kind == kToggle || row.kind == kAlphabet;
    if (data) {
      // A choice may bear its button's key, which is the button's command; the entry of a popup menu that of a tool.
      EXPECT_TRUE(!commands.count(row.key) || row.key == std::string_view(row.parent)) << row.key;
      continue;
    }
    EXPECT_TRUE(commands.count(row.key)) << row.key;
    placed.insert(row.key);
  }
  EXPECT_EQ(commands, placed);
}

TEST_F(ShellTest, EveryTabHasItsListAndTheRecordCommandsOfItsPrefix) {
  size_t tabs = 0;
  for (const RibbonRow& row : RibbonRows()) tabs += row.kind == RibbonKind::kTab;
  ASSERT_EQ(Tabs().size(), tabs);
  for (const Tab& tab : Tabs()) {
    EXPECT_TRUE(window->UserTab(tab.key)) << tab.key;
    EXPECT_EQ(window->list.CurrentTable, tab.table);
    for (const char* what : {".DODAJ", ".EDYTUJ", ".USUŃ"}) {
      const Command* command = FindCommand(std::string(tab.record_prefix) + what);
      ASSERT_EQ(command != nullptr, tab.table != kReportsTab) << tab.record_prefix << what;
      if (command && tab.table > 0) {
        EXPECT_EQ(command->table, tab.table) << command->key;
      }
    }
  }
}

TEST_F(ShellTest, AfterAltALetterBringsItsTabToTheFrontAndRunsItsCommand) {
  const struct {
    char letter;
    const char* tab;
    size_t refusals;  // of a command, for want of a company
  } rows[] = {{'F', "SPRZEDAŻ", 1},    {'S', "SPRZEDAŻ", 1},     {'Z', "ZAKUP", 1},       {'K', "KONTRAHENCI", 1},
              {'P', "KONTRAHENCI", 1}, {'T', "TOWARYUSŁUGI", 1}, {'U', "TOWARYUSŁUGI", 0}};
  for (const auto& row : rows) {
    surroundings.ui.messages.clear();
    window->UserKey(18);
    EXPECT_TRUE(window->UserKey(row.letter));
    EXPECT_EQ(window->ribbon.TabID(), row.tab) << row.letter;
    EXPECT_EQ(surroundings.ui.messages.size(), row.refusals) << row.letter;
    EXPECT_FALSE(window->ribbon.AltState());
  }
}

TEST_F(ShellTest, ASplitButtonKeepsTheKeyOfTheItemThatItsCaptionNames) {
  RibbonControl& ribbon = window->ribbon;
  EXPECT_EQ(ribbon.ChosenItem("SPRZEDAŻ.DRUKUJ"), "SPRZEDAŻ.DRUKUJ");
  EXPECT_EQ(ribbon.ChosenItem("SPRZEDAŻ.OKRES.OSTATNI"), "SPRZEDAŻ.OKRES.OSTATNI.TYDZIEŃ");
  EXPECT_EQ(ribbon.ChosenItem("SPRZEDAŻ.USUŃ"), "");
  window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.DOPDF");
  EXPECT_EQ(ribbon.ChosenItem("SPRZEDAŻ.DRUKUJ"), "SPRZEDAŻ.DOPDF");
  EXPECT_EQ(ribbon.ButtonText("SPRZEDAŻ.DRUKUJ"), program.Text("mdi.print.topdf"));
  EXPECT_EQ(ribbon.GetButtonIcon("SPRZEDAŻ.DRUKUJ"), "std-04");
  window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.TRYBDRUKU_DUP");  // a mode is no choice
  EXPECT_EQ(ribbon.ChosenItem("SPRZEDAŻ.DRUKUJ"), "SPRZEDAŻ.DOPDF");
  // The caption is the state: whoever sets it chooses.
  ribbon.ButtonText("SPRZEDAŻ.DRUKUJ", program.Text("mdi.print.preview"));
  EXPECT_EQ(ribbon.ChosenItem("SPRZEDAŻ.DRUKUJ"), "SPRZEDAŻ.PODGLĄD");
  ribbon.ButtonText("SPRZEDAŻ.DRUKUJ", "?");
  EXPECT_EQ(ribbon.ChosenItem("SPRZEDAŻ.DRUKUJ"), "");
  EXPECT_EQ(ChosenOutput(ribbon, "SPRZEDAŻ.DRUKUJ"), PrintOutput::kPrinter);
}

TEST_F(ShellTest, EveryChoiceOfAPeriodAndOfAPrintIsUnderstood) {
  size_t periods = 0, prints = 0;
  for (const RibbonRow& row : RibbonRows()) {
    const std::string_view key = row.key;
    if (row.kind != RibbonKind::kSplit) continue;
    std::vector<Span> spans;
    std::vector<PrintOutput> outputs;
    for (const RibbonRow* item : window->ribbon.Children(key)) {
      if (item->kind != RibbonKind::kItem) continue;
      window->ribbon.ChooseItem(*item);
      spans.push_back(ChosenSpan(window->ribbon, key));
      outputs.push_back(ChosenOutput(window->ribbon, key));
    }
    if (key.find(".OKRES.") != key.npos) {
      EXPECT_EQ(spans, (std::vector{Span::kWeek, Span::kMonth, Span::kQuarter, Span::kYear})) << key;
      ++periods;
    } else if (key.find(".DRUKUJ") != key.npos) {
      EXPECT_EQ(outputs, (std::vector{PrintOutput::kPreview, PrintOutput::kPrinter, PrintOutput::kPdf})) << key;
      ++prints;
    }
  }
  EXPECT_EQ(periods, 6u);
  EXPECT_EQ(prints, 7u);
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
  for (const Command& command : AllCommands()) {
    if (command.needs != Needs::kDatabase || !window->ribbon.ToolbarVisible(command.key)) continue;
    surroundings.ui.messages.clear();
    window->UserCommand(command.key);
    ASSERT_EQ(surroundings.ui.messages.size(), 1u) << command.key;
    EXPECT_EQ(surroundings.ui.messages[0], std::pair(program.Text("msg.info.dbnotopen"), MessageKind::kWarning));
  }
}

TEST_F(ShellTest, TheWindowsPlaceIsKeptAndDoubtfulValuesAreNot) {
  window->placement = {.left = 10, .top = 20, .width = 900, .height = 600, .state = 2};
  window->Zoom(1.5);
  window->save_window_();
  MainWindow second(program);
  EXPECT_EQ(second.placement.left, 10);
  EXPECT_EQ(second.placement.width, 900);
  EXPECT_EQ(second.placement.state, 2);
  EXPECT_EQ(second.list.zoom(), 1.5);
  for (const auto& [key, value] : {std::pair{"Width", "nan"}, {"Left", "1e30"}, {"Zoom", "4"}}) {
    program.settings.SaveSettingValue(kOstrinka, "Windows\\MDI", key, std::string(value));
  }
  MainWindow third(program);
  EXPECT_EQ(third.placement.width, 1180);
  EXPECT_EQ(third.placement.left, 0);
  EXPECT_EQ(third.list.zoom(), 1);
}

TEST_F(ShellTest, ReportPeriodsAreCountedFromToday) {
  program.database_open = true;
  surroundings.clock.now = *Date::Parse("2008-05-14");
  const auto from = [&](const char* parent, const char* choice) {
    window->UserItem(parent, std::string(parent) + "." + choice);
    return window->report_period.ReportDateFrom.Iso();
  };
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.BIEŻĄCY", "TYDZIEŃ"), "2008-05-12");
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.BIEŻĄCY", "MIESIĄC"), "2008-05-01");
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.BIEŻĄCY", "KWARTAŁ"), "2008-04-01");
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.BIEŻĄCY", "ROK"), "2008-01-01");
  EXPECT_EQ(from("ZESTAWIENIA.OKRES.OSTATNI", "KWARTAŁ"), "2008-02-11");
  EXPECT_TRUE(window->report_period.ReportAllDates);
  window->UserCommand("ZESTAWIENIA.OKRES.WSZYSTKIE");
  EXPECT_FALSE(window->report_period.ReportAllDates);
}

}  // namespace
}  // namespace ostrinka
